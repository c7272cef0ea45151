#include "listxml_p.h"

#include <zorvaparser/zorvadelegate.h>

#include <QXmlStreamWriter>

namespace Orvane {

ListItemWriter::ListItemWriter(QXmlStreamWriter& xmlWriter, const ZorvaDelegate& row, UnitUse unitUse)
    : writer(xmlWriter)
    , tag(row.GetString("parameterListItemTag", QString()))
    , unit(unitUse == WithUnit ? row.GetString("unit", QString()) : QString())
{
}

void ListItemWriter::write(Attributes attributes, const QString& text)
{
    writer.writeStartElement(tag);
    if (!unit.isEmpty())
        writer.writeAttribute(QStringLiteral("unit"), unit);
    for (const auto& attribute : attributes)
        writer.writeAttribute(attribute.first, attribute.second);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

} // namespace Orvane
