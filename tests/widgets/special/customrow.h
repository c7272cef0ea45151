#ifndef ZORVA_TESTS_CUSTOMROW_H
#define ZORVA_TESTS_CUSTOMROW_H

#include <formtext.h>

/// A "Widget" with a block of custom properties, which may be empty.
inline QString customRowXml(const char* className, const char* name,
                            const QList<FormProperty>& customProperties,
                            const QList<FormProperty>& properties = {})
{
    QString block = QStringLiteral("<CustomProperties>");
    for (const FormProperty& property : customProperties)
        block += property.xml();
    block += QStringLiteral("</CustomProperties></Widget>");
    return widgetXml(className, name, properties).replace(QStringLiteral("</Widget>"), block);
}

#endif
