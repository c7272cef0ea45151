#include "scenario.h"

#include <QDataStream>

namespace Orvane {
namespace Author {

namespace {

QDataStream& operator<<(QDataStream& stream, const NamedText& text)
{
    return stream << text.name << text.bytes;
}

QDataStream& operator>>(QDataStream& stream, NamedText& text)
{
    return stream >> text.name >> text.bytes;
}

QDataStream& operator<<(QDataStream& stream, const ScenarioPlace& place)
{
    return stream << place.file << place.line;
}

QDataStream& operator>>(QDataStream& stream, ScenarioPlace& place)
{
    return stream >> place.file >> place.line;
}

} // namespace

QString ScenarioPlace::text() const
{
    return line > 0 ? QStringLiteral("%1:%2").arg(file).arg(line) : QString();
}

QDataStream& operator<<(QDataStream& stream, const ScenarioSetup& setup)
{
    stream << setup.form << setup.tests.size() << setup.coverage;
    for (const NamedText& test : setup.tests)
        stream << test;
    return stream;
}

QDataStream& operator>>(QDataStream& stream, ScenarioSetup& setup)
{
    int count = 0;
    stream >> setup.form >> count >> setup.coverage;
    for (int i = 0; i < count && stream.status() == QDataStream::Ok; ++i) {
        NamedText test;
        stream >> test;
        setup.tests.append(test);
    }
    return stream;
}

QDataStream& operator<<(QDataStream& stream, const ScenarioTest& test)
{
    return stream << test.name << test.place;
}

QDataStream& operator>>(QDataStream& stream, ScenarioTest& test)
{
    return stream >> test.name >> test.place;
}

QDataStream& operator<<(QDataStream& stream, const ScenarioResult& result)
{
    return stream << result.passed << result.message << result.place << result.formPlace << result.compared
                  << result.expected << result.seen << result.notes << result.lines << result.milliseconds;
}

QDataStream& operator>>(QDataStream& stream, ScenarioResult& result)
{
    return stream >> result.passed >> result.message >> result.place >> result.formPlace >> result.compared >>
           result.expected >> result.seen >> result.notes >> result.lines >> result.milliseconds;
}

} // namespace Author
} // namespace Orvane
