#ifndef ZORVA_TESTS_FORMTEXT_H
#define ZORVA_TESTS_FORMTEXT_H

#include <QList>
#include <QString>

/// One "Property" of a description. Only the type "Bool" makes a difference to
/// the parser, so it follows from what is given.
struct FormProperty
{
    FormProperty(const char* propertyName, const char* text);
    FormProperty(const char* propertyName, const QString& text);
    FormProperty(const char* propertyName, bool flag);
    FormProperty(const char* propertyName, int number);
    FormProperty(const char* propertyName, double number);

    QString xml() const;

    QString name;
    QString type;
    QString text;
};

/// One "EnumValue".
struct FormEnumValue
{
    const char* displayName;
    const char* identifier;
    const char* value;
};

/// A "Widget" with just these properties.
QString widgetXml(const char* className, const char* name, const QList<FormProperty>& properties = {});
/// A "Widget" that is visible, enabled and takes part in parameter XML, as most rows are.
QString rowXml(const char* className, const char* name, const QList<FormProperty>& properties = {});
QString enumXml(const char* name, const QList<FormEnumValue>& entries);
/// A whole description. `enums` is the content of "Enums", `sheetProperties` goes into "Properties".
QString formXml(const QString& widgets, const QString& enums = QString(), const QString& script = QString(),
                const QList<FormProperty>& sheetProperties = {});

#endif
