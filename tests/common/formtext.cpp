#include "formtext.h"

namespace {

QString latin(const char* text)
{
    return QString::fromUtf8(text);
}

QString joined(const QList<FormProperty>& properties)
{
    QString text;
    for (const FormProperty& property : properties)
        text += property.xml();
    return text;
}

} // namespace

FormProperty::FormProperty(const char* propertyName, const char* propertyText)
    : FormProperty(propertyName, latin(propertyText))
{
}

FormProperty::FormProperty(const char* propertyName, const QString& propertyText)
    : name(latin(propertyName))
    , type(QStringLiteral("String"))
    , text(propertyText)
{
}

FormProperty::FormProperty(const char* propertyName, bool flag)
    : name(latin(propertyName))
    , type(QStringLiteral("Bool"))
    , text(flag ? QStringLiteral("true") : QStringLiteral("false"))
{
}

FormProperty::FormProperty(const char* propertyName, int number)
    : name(latin(propertyName))
    , type(QStringLiteral("Int"))
    , text(QString::number(number))
{
}

FormProperty::FormProperty(const char* propertyName, double number)
    : name(latin(propertyName))
    , type(QStringLiteral("Double"))
    , text(QString::number(number, 'g', 17))
{
}

QString FormProperty::xml() const
{
    return QStringLiteral("<Property name=\"%1\"><%2>%3</%2></Property>")
        .arg(name.toHtmlEscaped(), type, text.toHtmlEscaped());
}

QString widgetXml(const char* className, const char* name, const QList<FormProperty>& properties)
{
    return QStringLiteral("<Widget name=\"%1\" class=\"%2\">%3</Widget>\n")
        .arg(latin(name), latin(className), joined(properties));
}

QString rowXml(const char* className, const char* name, const QList<FormProperty>& properties)
{
    const QList<FormProperty> usual{{"visible", true}, {"enabled", true}, {"generateParameterXml", true}};
    return widgetXml(className, name, usual + properties);
}

QString enumXml(const char* name, const QList<FormEnumValue>& entries)
{
    QString values;
    for (const FormEnumValue& entry : entries) {
        values += QStringLiteral("<EnumValue><DisplayName>%1</DisplayName><EnumIdentifier>%2</EnumIdentifier>"
                                 "<Value>%3</Value></EnumValue>")
                      .arg(latin(entry.displayName).toHtmlEscaped(), latin(entry.identifier),
                           latin(entry.value).toHtmlEscaped());
    }
    return QStringLiteral("<Enum name=\"%1\">%2</Enum>\n").arg(latin(name), values);
}

QString formXml(const QString& widgets, const QString& enums, const QString& script,
                const QList<FormProperty>& sheetProperties)
{
    const QString code =
        script.isEmpty()
            ? QString()
            : QStringLiteral("<Script language=\"qtscript\">%1</Script>\n").arg(script.toHtmlEscaped());
    return QStringLiteral("<KVParamGui version=\"1\">\n<Enums>%1</Enums>\n%2"
                          "<Sheet name=\"sheet\"><Properties>%3</Properties>\n%4</Sheet></KVParamGui>")
        .arg(enums, code, joined(sheetProperties), widgets);
}
