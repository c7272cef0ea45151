#include "parametertext.h"

#include <QStringList>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace hostkit {

namespace {

/** Reads the element the reader stands on; @p groups are the names of those around it. */
void readElement(QXmlStreamReader& reader, QStringList& groups, QList<Parameter>& parameters)
{
    const QString index = reader.attributes().value(QLatin1String("index")).toString();
    groups.append(reader.name().toString());
    QString text;
    bool leaf = true;
    while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::EndElement) {
        if (reader.isStartElement()) {
            leaf = false;
            readElement(reader, groups, parameters);
        } else if (reader.isCharacters()) {
            text += reader.text();
        }
    }
    if (leaf && !reader.hasError()) {
        const QString item = index.isEmpty() ? QString() : QLatin1Char('[') + index + QLatin1Char(']');
        parameters.append({groups.join(QLatin1Char('/')) + item, text});
    }
    groups.removeLast();
}

/** Cuts an item's index off a leaf's name; empty if it has none. */
QString takeIndex(QString* name)
{
    const int bracket = name->endsWith(QLatin1Char(']')) ? name->lastIndexOf(QLatin1Char('[')) : -1;
    if (bracket < 0)
        return QString();
    const QString index = name->mid(bracket + 1, name->size() - bracket - 2);
    name->truncate(bracket);
    return index;
}

void writeRoot(QXmlStreamWriter& writer, const QString& emptyRoot)
{
    QXmlStreamReader reader(emptyRoot);
    if (!reader.readNextStartElement()) {
        writer.writeStartElement(QStringLiteral("Parameters"));
        return;
    }
    writer.writeStartElement(reader.name().toString());
    writer.writeAttributes(reader.attributes());
}

/** Closes and opens groups until @p wanted are open; @p open are those that are. */
void changeGroups(QXmlStreamWriter& writer, QStringList& open, const QStringList& wanted)
{
    const int most = std::min(open.size(), wanted.size());
    int common = 0;
    while (common < most && open.at(common) == wanted.at(common))
        ++common;
    for (int i = open.size(); i > common; --i)
        writer.writeEndElement();
    for (int i = common; i < wanted.size(); ++i)
        writer.writeStartElement(wanted.at(i));
    open = wanted;
}

} // namespace

QList<Parameter> parametersOf(const QString& xml)
{
    QList<Parameter> parameters;
    QXmlStreamReader reader(xml);
    if (!reader.readNextStartElement())
        return parameters;
    QStringList groups;
    while (reader.readNextStartElement())
        readElement(reader, groups, parameters);
    return parameters;
}

QString parameterXml(const QString& emptyRoot, const QList<Parameter>& parameters)
{
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writeRoot(writer, emptyRoot);
    QStringList open;
    for (const Parameter& parameter : parameters) {
        QStringList groups = parameter.path.split(QLatin1Char('/'), Qt::SkipEmptyParts);
        if (groups.isEmpty())
            continue;
        QString leaf = groups.takeLast();
        const QString index = takeIndex(&leaf);
        changeGroups(writer, open, groups);
        writer.writeStartElement(leaf);
        if (!index.isEmpty())
            writer.writeAttribute(QStringLiteral("index"), index);
        writer.writeCharacters(parameter.text);
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return xml.trimmed();
}

} // namespace hostkit
