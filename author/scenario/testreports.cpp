#include "testreports.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamWriter>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

/** Raised when a reader of the old form would stumble over the new one. */
constexpr int formatVersion = 1;

/** @p text in quotes of YAML. */
QString yaml(const QString& text)
{
    QString escaped;
    for (const QChar c : text) {
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            escaped += QLatin1Char('\\') + QString(c);
        else if (c.unicode() < 0x20)
            escaped += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            escaped += c;
    }
    return QLatin1Char('"') + escaped + QLatin1Char('"');
}

/** What XML can hold of a text that may have come out of anything. */
QString forXml(QString text)
{
    for (QChar& c : text) {
        if (c.unicode() < 0x20 && c != QLatin1Char('\n') && c != QLatin1Char('\t'))
            c = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

/** One line: a "#" would begin a directive. */
QString tapName(QString name)
{
    return name.replace(QLatin1Char('\n'), QLatin1Char(' ')).replace(QLatin1Char('#'), QLatin1String("\\#"));
}

} // namespace

QString tapText(int number, const TestedScenario& tested)
{
    const ScenarioResult& result = tested.result;
    QString text = QStringLiteral("%1 %2 - %3\n")
                       .arg(QLatin1String(result.passed ? "ok" : "not ok"))
                       .arg(number)
                       .arg(tapName(tested.test.name));
    for (const QString& note : result.notes)
        text += QStringLiteral("# %1\n").arg(QString(note).replace(QLatin1Char('\n'), QLatin1String("\n# ")));
    if (result.passed)
        return text;
    text += QStringLiteral("  ---\n  message: %1\n").arg(yaml(result.message));
    if (result.place.line > 0)
        text += QStringLiteral("  at: %1\n").arg(yaml(result.place.text()));
    if (result.formPlace.line > 0)
        text += QStringLiteral("  form: %1\n").arg(yaml(result.formPlace.text()));
    if (result.compared)
        text += QStringLiteral("  expected: %1\n  seen: %2\n").arg(yaml(result.expected), yaml(result.seen));
    return text + QStringLiteral("  ...\n");
}

QByteArray junitXml(const QString& name, const QVector<TestedScenario>& tested)
{
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    const auto failures = std::count_if(tested.cbegin(), tested.cend(),
                                        [](const TestedScenario& one) { return !one.result.passed; });
    int milliseconds = 0;
    for (const TestedScenario& one : tested)
        milliseconds += one.result.milliseconds;
    const auto seconds = [](int time) { return QString::number(time / 1000.0, 'f', 3); };
    writer.writeStartElement(QStringLiteral("testsuite"));
    writer.writeAttribute(QStringLiteral("name"), forXml(name));
    writer.writeAttribute(QStringLiteral("tests"), QString::number(tested.size()));
    writer.writeAttribute(QStringLiteral("failures"), QString::number(failures));
    writer.writeAttribute(QStringLiteral("errors"), QStringLiteral("0"));
    writer.writeAttribute(QStringLiteral("time"), seconds(milliseconds));
    for (const TestedScenario& one : tested) {
        writer.writeStartElement(QStringLiteral("testcase"));
        writer.writeAttribute(QStringLiteral("classname"), forXml(one.test.place.file));
        writer.writeAttribute(QStringLiteral("name"), forXml(one.test.name));
        writer.writeAttribute(QStringLiteral("file"), forXml(one.test.place.file));
        writer.writeAttribute(QStringLiteral("line"), QString::number(one.test.place.line));
        writer.writeAttribute(QStringLiteral("time"), seconds(one.result.milliseconds));
        if (!one.result.passed) {
            writer.writeStartElement(QStringLiteral("failure"));
            writer.writeAttribute(QStringLiteral("message"), forXml(one.result.message));
            QStringList places{one.result.place.text(), one.result.formPlace.text()};
            places.removeAll(QString());
            writer.writeCharacters(forXml(places.join(QLatin1Char('\n'))));
            writer.writeEndElement();
        }
        if (!one.result.notes.isEmpty())
            writer.writeTextElement(QStringLiteral("system-out"),
                                    forXml(one.result.notes.join(QLatin1Char('\n'))));
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return xml;
}

QByteArray testsJson(const QVector<TestedScenario>& tested, const QString& coverage)
{
    QJsonArray array;
    for (const TestedScenario& one : tested) {
        const ScenarioResult& result = one.result;
        QJsonObject object{{QStringLiteral("name"), one.test.name},
                           {QStringLiteral("file"), one.test.place.file},
                           {QStringLiteral("line"), one.test.place.line},
                           {QStringLiteral("passed"), result.passed},
                           {QStringLiteral("message"), result.message},
                           {QStringLiteral("at"), result.place.text()},
                           {QStringLiteral("form"), result.formPlace.text()},
                           {QStringLiteral("notes"), QJsonArray::fromStringList(result.notes)},
                           {QStringLiteral("milliseconds"), result.milliseconds}};
        if (result.compared) {
            object.insert(QStringLiteral("expected"), result.expected);
            object.insert(QStringLiteral("seen"), result.seen);
        }
        array.append(object);
    }
    QJsonObject run{{QStringLiteral("version"), formatVersion}, {QStringLiteral("tests"), array}};
    if (!coverage.isEmpty())
        run.insert(QStringLiteral("coverage"), coverage);
    return QJsonDocument(run).toJson();
}

} // namespace Author
} // namespace Orvane
