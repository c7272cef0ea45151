#include "effectivevalue.h"

#include "words.h"

namespace Orvane {
namespace Author {

namespace {

QString code(const QString& text)
{
    return text.isEmpty() ? QStringLiteral("the empty text") : QStringLiteral("`%1`").arg(text);
}

/** Why the live form does not have the property; empty if it has. */
QString loss(const Subject& subject, const WrittenProperty& property)
{
    const Fate& fate = subject.reading().fate(property.element);
    if (!fate.isLost())
        return QString();
    if (fate.isReplaced() && fate.by >= 0)
        return QStringLiteral("none: the one in line %1 counts").arg(subject.lineOf(fate.by));
    return QStringLiteral("none: the live form does not have this property");
}

QString entry(const Subject& subject, const WrittenRow& row, const QString& value)
{
    const int enumeration = findEnumeration(subject.description(), row.text("enumName"));
    if (enumeration < 0)
        return QStringLiteral("none: there is no enumeration %1").arg(code(row.text("enumName")));
    QString first;
    for (const int candidate : subject.description().children(enumeration)) {
        if (subject.element(candidate).name != QLatin1String("EnumValue"))
            continue;
        const QString text = entryPart(subject.description(), candidate, "Value");
        if (text == value)
            return QStringLiteral("%1, shown as \"%2\"")
                .arg(code(value), entryPart(subject.description(), candidate, "DisplayName"));
        if (first.isNull())
            first = text;
    }
    return QStringLiteral("%1, the first entry: the enumeration has no %2").arg(code(first), code(value));
}

QString number(const WrittenRow& row, const WrittenProperty& property)
{
    const std::optional<double> written = property.number();
    if (!written)
        return QStringLiteral("`0`: %1 is no number").arg(code(property.text));
    const bool isLimited = property.name == QLatin1String("value");
    const double lowest = isLimited ? row.number("minimum", *written) : *written;
    const double highest = isLimited ? row.number("maximum", *written) : *written;
    if (*written < lowest)
        return QStringLiteral("`%1`, the lower limit").arg(row.text("minimum"));
    if (*written > highest)
        return QStringLiteral("`%1`, the upper limit").arg(row.text("maximum"));
    return code(property.text.trimmed());
}

QString value(const Subject& subject, const WrittenRow& row, const WrittenProperty& property)
{
    const Property* const known = property.isCustom ? row.kind().findCustomProperty(property.name)
                                                    : row.kind().findProperty(property.name);
    const bool isTruth = known && known->type == QLatin1String("Bool");
    if (property.typeName == QLatin1String("Bool") || isTruth)
        return property.isTrue() ? QStringLiteral("`true`") : QStringLiteral("`false`");
    if (known && known->refers == QLatin1String("entry"))
        return entry(subject, row, property.text);
    if (known && known->refers == QLatin1String("enumeration") &&
        findEnumeration(subject.description(), property.text) < 0)
        return QStringLiteral("none: there is no enumeration %1").arg(code(property.text));
    return known && known->isNumber() ? number(row, property) : code(property.text);
}

} // namespace

QString effectiveValue(const Subject& subject, const WrittenRow& row, const WrittenProperty& property)
{
    const QString lost = loss(subject, property);
    if (!lost.isEmpty())
        return lost;
    const QString now =
        property.type < 0 ? QStringLiteral("none: it has no type element") : value(subject, row, property);
    const bool isSet = !property.isCustom && subject.written().scriptSets(row, property.name);
    return isSet ? now + QStringLiteral(", until the script sets it") : now;
}

} // namespace Author
} // namespace Orvane
