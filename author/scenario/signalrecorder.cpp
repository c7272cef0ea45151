#include "signalrecorder.h"

#include <algorithm>

namespace Orvane {
namespace Author {

void SignalRecorder::watch(const QString& name, const QObject* object)
{
    const QMetaObject& meta = *object->metaObject();
    // What every object has is of no use to anybody.
    for (int i = QObject::staticMetaObject.methodCount(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        const int slot = QObject::staticMetaObject.methodCount() + m_sources.size();
        if (QMetaObject::connect(object, i, this, slot, Qt::DirectConnection))
            m_sources.append({name, method});
    }
}

bool SignalRecorder::watches(const QString& object, const QString& signal) const
{
    const QByteArray name = signal.toLatin1();
    return std::any_of(m_sources.cbegin(), m_sources.cend(), [&](const Source& source) {
        return source.object == object && source.signal.name() == name;
    });
}

int SignalRecorder::qt_metacall(QMetaObject::Call call, int id, void** arguments)
{
    const int index = QObject::qt_metacall(call, id, arguments);
    if (call != QMetaObject::InvokeMetaMethod || index < 0)
        return index;
    if (index < m_sources.size()) {
        const Source& source = m_sources.at(index);
        Entry entry{source.object, QString::fromLatin1(source.signal.name()), {}};
        for (int i = 0; i < source.signal.parameterCount(); ++i) {
            const int type = source.signal.parameterType(i);
            entry.arguments.append(type == QMetaType::QVariant
                                       ? *static_cast<const QVariant*>(arguments[i + 1])
                                       : QVariant(type, arguments[i + 1]));
        }
        m_entries.append(entry);
    }
    return -1;
}

} // namespace Author
} // namespace Orvane
