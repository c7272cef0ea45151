#ifndef ZORVA_SIZEHINTCACHE_P_H
#define ZORVA_SIZEHINTCACHE_P_H

#include <QSize>
#include <QString>

#include <functional>

class QWidget;

/// Size hints shared between equal controls: a form of a thousand rows measures
/// each kind of control once instead of shaping every text again.
namespace SizeHintCache {

/// The hint of a control that equals this one in its class, its contents (put
/// into words by the caller) and what it takes from its surroundings; measured
/// if there is none yet, or if a style sheet may treat each widget differently.
QSize Hint(const QWidget* control, const QString& contents, const std::function<QSize()>& measure);

/// The same text, in one piece of memory for all controls that have an equal one.
QString Shared(const QString& contents);

/// To be called when a style changes: one is known by its address only, which
/// another one may take over.
void Forget();

} // namespace SizeHintCache

#endif
