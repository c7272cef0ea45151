#include "zorvascript.h"

#include <QXmlStreamReader>

namespace Orvane {

namespace {

/** @p code with each "{{CR}}" and "{{LF}}" replaced, in one pass: a long script may hold millions. */
QString withoutEscapes(const QString& code)
{
    const QLatin1String opening("{{");
    const QLatin1String carriageReturn("{{CR}}");
    const QLatin1String lineFeed("{{LF}}");
    QString result;
    result.reserve(code.size());
    int copied = 0;
    for (int found = code.indexOf(opening); found >= 0;) {
        const QStringRef token = code.midRef(found, carriageReturn.size());
        const bool isReturn = token == carriageReturn;
        if (!isReturn && token != lineFeed) {
            found = code.indexOf(opening, found + 1);
            continue;
        }
        result += code.midRef(copied, found - copied);
        result += isReturn ? QLatin1Char('\r') : QLatin1Char('\n');
        copied = found + token.size();
        found = code.indexOf(opening, copied);
    }
    return copied == 0 ? code : result + code.midRef(copied);
}

} // namespace

void ZorvaScript::ParseZORVA(QXmlStreamReader& reader)
{
    language = reader.attributes().value(QLatin1String("language")).toString();
    code = withoutEscapes(reader.readElementText());
}

} // namespace Orvane
