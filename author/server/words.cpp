#include "words.h"

namespace Orvane {
namespace Author {

namespace {

constexpr int mostEntries = 30;

QString line(const char* title, const QString& text)
{
    return text.isEmpty() ? QString() : QStringLiteral("\n\n%1: %2").arg(QLatin1String(title), text);
}

} // namespace

QString propertyHelp(const Property& property)
{
    QStringList choices;
    for (const QString& choice : property.choices)
        choices.append(QStringLiteral("`%1`").arg(choice));
    QStringList needs;
    for (const QString& need : property.needs)
        needs.append(QStringLiteral("`%1`").arg(need));
    QString text = QStringLiteral("**%1** (`%2`): %3").arg(property.name, property.type, property.effect);
    text += line("Default", property.absent);
    text += line("Unit", property.unit);
    text += line("Range", property.range);
    text += line("Choices", choices.join(QLatin1String(", ")));
    text += line("Needs", needs.join(QLatin1String(", ")));
    if (property.inert)
        text += QStringLiteral("\n\nChanges nothing by itself: kept for scripts and hosts.");
    else if (property.late)
        text += QStringLiteral(
            "\n\nDoes nothing when the form comes up; a script that changes it later is heard.");
    return text;
}

QString methodKindName(Method::Kind kind)
{
    switch (kind) {
    case Method::Signal:
        return QStringLiteral("signal");
    case Method::Slot:
        return QStringLiteral("slot");
    case Method::Invokable:
        break;
    }
    return QStringLiteral("invokable");
}

QString methodHelp(const Method& method)
{
    QStringList arguments;
    for (const Argument& argument : method.arguments)
        arguments.append(QStringLiteral("`%1` is a `%2`").arg(argument.name, argument.type));
    QString text =
        QStringLiteral("**%1** (%2): %3").arg(method.call(), methodKindName(method.kind), method.effect);
    if (!arguments.isEmpty())
        text += QStringLiteral("\n\n") + arguments.join(QLatin1String(", "));
    if (method.returns != QLatin1String("void"))
        text += line("Gives", QStringLiteral("`%1`").arg(method.returns));
    return text;
}

QString classHelp(const ControlClass& controlClass)
{
    QString text = QStringLiteral("**%1**: %2").arg(controlClass.name, controlClass.summary);
    QString parameters = controlClass.parameter.text;
    if (!controlClass.parameter.example.isEmpty())
        parameters += QStringLiteral(", as in `%1`").arg(controlClass.parameter.example);
    return text + line("Parameter XML", parameters);
}

QString elementHelp(const Element& element)
{
    QString text = QStringLiteral("**%1**: %2").arg(element.name, element.summary);
    for (const Attribute& attribute : element.attributes)
        text += QStringLiteral("\n\n`%1`: %2").arg(attribute.name, attribute.effect);
    return text;
}

QString attributeHelp(const Attribute& attribute)
{
    return QStringLiteral("**%1**: %2").arg(attribute.name, attribute.effect) +
           line("Default", attribute.absent);
}

QString valueTypeHelp(const ValueType& type)
{
    return QStringLiteral("**%1**: %2; %3").arg(type.name, type.text, type.summary);
}

QString entryPart(const Description& description, int entry, const char* part)
{
    const int index = description.child(entry, part);
    return index < 0 ? QString() : description.textOf(index);
}

int findEnumeration(const Description& description, const QString& name)
{
    int found = -1;
    for (const int enumeration : description.elementsNamed("Enum")) {
        if (description.element(enumeration).value("name") == name)
            found = enumeration;
    }
    return found;
}

QString enumerationHelp(const Description& description, int enumeration)
{
    QString text =
        QStringLiteral("**%1**, an enumeration").arg(description.element(enumeration).value("name"));
    int count = 0;
    for (const int entry : description.children(enumeration)) {
        if (description.element(entry).name != QLatin1String("EnumValue") || ++count > mostEntries)
            continue;
        text +=
            QStringLiteral("\n- %1 (`%2`): `%3`")
                .arg(entryPart(description, entry, "DisplayName"),
                     entryPart(description, entry, "EnumIdentifier"), entryPart(description, entry, "Value"));
    }
    return count > mostEntries ? text + QStringLiteral("\n- and %1 more").arg(count - mostEntries) : text;
}

QString rowDetail(const WrittenRow& row)
{
    const QString caption = row.text("labelText").trimmed();
    const QString shown = caption.isEmpty() ? row.text("text").trimmed() : caption;
    const QString kind = row.className().isEmpty() ? QStringLiteral("no class") : row.className();
    return shown.isEmpty() ? kind : QStringLiteral("%1, \"%2\"").arg(kind, shown);
}

} // namespace Author
} // namespace Orvane
