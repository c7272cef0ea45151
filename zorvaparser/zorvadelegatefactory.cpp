#include "zorvadelegatefactory_p.h"

#include <zorvaparser/zorvadelegate.h>

#include <QMap>
#include <QString>

namespace Orvane {

namespace {

using Factory = ZorvaDelegate* (*)(ZorvaWidget*);

template <typename Kind>
ZorvaDelegate* make(ZorvaWidget* widget)
{
    return new Kind(widget);
}

QMap<QString, Factory> buildFactories()
{
    return {
        {QStringLiteral("SpecialObject_Generic"), make<ZorvaDelegate>},
        {QStringLiteral("SpecialObject_WDE"), make<ZorvaDelegate>},
    };
}

} // namespace

ZorvaDelegate* createDelegateOfClass(const QString& className, ZorvaWidget* widget)
{
    static const QMap<QString, Factory> factories = buildFactories();
    const Factory factory = factories.value(className, make<ZorvaDelegate>);
    return factory(widget);
}

} // namespace Orvane
