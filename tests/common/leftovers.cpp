#include "leftovers.h"

#include <valueframework/tree.h>

#include <QApplication>
#include <QStringList>
#include <QWidget>

namespace {

QStringList leftValues()
{
    const values::Tree* const tree = values::Tree::Instance();
    QStringList lines;
    for (const QString& path : tree->GetPathNames())
        lines << QStringLiteral("value ") + path;
    const int unnamed = tree->GetValueCount() - lines.size();
    if (unnamed > 0)
        lines << QStringLiteral("%1 values without a name").arg(unnamed);
    return lines;
}

QStringList leftWidgets()
{
    QStringList lines;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        const QString type = QString::fromLatin1(widget->metaObject()->className());
        lines << QStringLiteral("widget %1 \"%2\"").arg(type, widget->objectName());
    }
    return lines;
}

} // namespace

QString leftovers()
{
    if (QCoreApplication::instance())
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return (leftValues() + leftWidgets()).join(QLatin1Char('\n'));
}
