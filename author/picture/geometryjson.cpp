#include "geometryjson.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Orvane {
namespace Author {

namespace {

QString quoted(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

QString member(const char* name, const QString& value)
{
    return QStringLiteral("\"%1\": %2").arg(QLatin1String(name), value);
}

QString member(const char* name, int value)
{
    return member(name, QString::number(value));
}

QString flag(const char* name, bool value)
{
    return member(name, value ? QStringLiteral("true") : QStringLiteral("false"));
}

QString object(const QStringList& members)
{
    return QLatin1Char('{') + members.join(QLatin1String(", ")) + QLatin1Char('}');
}

QString lines(const QStringList& objects, const QString& indent)
{
    if (objects.isEmpty())
        return QStringLiteral("[]");
    return QStringLiteral("[\n%1  %2\n%1]").arg(indent, objects.join(QStringLiteral(",\n%1  ").arg(indent)));
}

QString partJson(const PlacedPart& part)
{
    if (!part.isSeen())
        return QStringLiteral("null");
    QStringList members{member("x", part.place.x()), member("y", part.place.y()),
                        member("width", part.place.width()), member("height", part.place.height())};
    if (!part.text.isEmpty())
        members.prepend(member("text", quoted(part.text)));
    return object(members);
}

QString rowJson(const FormGeometry& picture, const PlacedRow& row)
{
    const QString section = row.section < 0 ? QString() : picture.sections.at(row.section).name;
    return object({member("name", quoted(row.name)), member("class", quoted(row.className)),
                   member("path", quoted(row.path)), member("section", quoted(section)),
                   member("column", picture.columnOf(row)), member("caption", partJson(row.caption)),
                   member("control", partJson(row.control))});
}

QString sectionJson(const PlacedSection& section)
{
    return object({member("name", quoted(section.name)), member("column", section.column),
                   flag("collapsed", section.collapsed), member("head", partJson(section.head))});
}

QString findingJson(const LayoutFinding& finding)
{
    return object({member("id", quoted(finding.id)), member("row", quoted(finding.row)),
                   member("message", quoted(finding.message))});
}

QString pictureJson(const FormGeometry& picture)
{
    const QString indent = QStringLiteral("      ");
    QStringList sections;
    for (const PlacedSection& section : picture.sections) {
        if (!section.name.isEmpty() || section.column > 0)
            sections << sectionJson(section);
    }
    QStringList rows;
    for (const PlacedRow& row : picture.rows)
        rows << rowJson(picture, row);
    QStringList findings;
    for (const LayoutFinding& finding : picture.findings)
        findings << findingJson(finding);
    return QStringLiteral("    {\n      ") +
           QStringList{member("file", quoted(picture.file)),    member("width", picture.size.width()),
                       member("height", picture.size.height()), member("fontSize", picture.fontSize),
                       member("columns", picture.columns),      member("sections", lines(sections, indent)),
                       member("rows", lines(rows, indent)),     member("findings", lines(findings, indent))}
               .join(QLatin1String(",\n      ")) +
           QStringLiteral("\n    }");
}

PlacedPart readPart(const QJsonValue& value)
{
    PlacedPart part;
    const QJsonObject json = value.toObject();
    if (json.isEmpty())
        return part;
    part.text = json.value(QLatin1String("text")).toString();
    part.place =
        QRect(json.value(QLatin1String("x")).toInt(), json.value(QLatin1String("y")).toInt(),
              json.value(QLatin1String("width")).toInt(), json.value(QLatin1String("height")).toInt());
    return part;
}

// Each row stands in a section of its own name and column.
void readRow(const QJsonObject& json, QHash<QString, int>& sectionOf, FormGeometry& picture)
{
    PlacedSection section;
    section.name = json.value(QLatin1String("section")).toString();
    section.column = json.value(QLatin1String("column")).toInt();
    const QString key = QStringLiteral("%1 %2").arg(section.column).arg(section.name);
    if (!sectionOf.contains(key)) {
        sectionOf.insert(key, picture.sections.size());
        picture.sections.append(section);
    }
    PlacedRow row;
    row.name = json.value(QLatin1String("name")).toString();
    row.className = json.value(QLatin1String("class")).toString();
    row.path = json.value(QLatin1String("path")).toString();
    row.caption = readPart(json.value(QLatin1String("caption")));
    row.control = readPart(json.value(QLatin1String("control")));
    row.section = sectionOf.value(key);
    picture.rows.append(row);
}

FormGeometry readPicture(const QJsonObject& json)
{
    FormGeometry picture;
    picture.file = json.value(QLatin1String("file")).toString();
    picture.fontSize = json.value(QLatin1String("fontSize")).toInt();
    picture.size =
        QSize(json.value(QLatin1String("width")).toInt(), json.value(QLatin1String("height")).toInt());
    picture.columns = json.value(QLatin1String("columns")).toInt();
    QHash<QString, int> sectionOf;
    for (const QJsonValue row : json.value(QLatin1String("rows")).toArray())
        readRow(row.toObject(), sectionOf, picture);
    return picture;
}

} // namespace

QByteArray geometryJson(const QString& form, const QVector<FormGeometry>& pictures)
{
    QStringList objects;
    for (const FormGeometry& picture : pictures)
        objects << pictureJson(picture);
    return QStringLiteral("{\n  \"version\": 1,\n  \"form\": %1,\n  \"pictures\": [\n%2\n  ]\n}\n")
        .arg(quoted(form), objects.join(QLatin1String(",\n")))
        .toUtf8();
}

ReadGeometry readGeometryJson(const QByteArray& json)
{
    ReadGeometry geometry;
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(json, &error).object();
    if (error.error != QJsonParseError::NoError)
        geometry.problem = QStringLiteral("%1 at byte %2").arg(error.errorString()).arg(error.offset);
    else if (root.value(QLatin1String("version")).toInt() != 1)
        geometry.problem = QStringLiteral("it is no geometry of this version");
    for (const QJsonValue picture : root.value(QLatin1String("pictures")).toArray())
        geometry.pictures.append(readPicture(picture.toObject()));
    return geometry;
}

} // namespace Author
} // namespace Orvane
