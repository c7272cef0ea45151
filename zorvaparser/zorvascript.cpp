#include "zorvascript.h"

#include <QXmlStreamReader>

namespace Orvane {

void ZorvaScript::ParseZORVA(QXmlStreamReader& reader)
{
    language = reader.attributes().value(QLatin1String("language")).toString();
    code = reader.readElementText();
    code.replace(QLatin1String("{{CR}}"), QLatin1String("\r"));
    code.replace(QLatin1String("{{LF}}"), QLatin1String("\n"));
}

} // namespace Orvane
