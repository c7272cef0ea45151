#ifndef ZORVADELEGATEFACTORY_P_H
#define ZORVADELEGATEFACTORY_P_H

#include <QStringList>

class QWidget;

namespace Orvane {

class ZorvaDelegate;
class ZorvaWidget;

/** A new delegate of the control kind @p className for @p widget; the plain one for an unknown class. */
ZorvaDelegate* createDelegateOfClass(const QString& className, ZorvaWidget* widget);

/** Every class name that has a control kind of its own, sorted. */
QStringList delegateClasses();

/** A new delegate for the host's own @p externalWidget, which it does not own. */
ZorvaDelegate* createExternalDelegate(ZorvaWidget* widget, QWidget* externalWidget);

} // namespace Orvane

#endif
