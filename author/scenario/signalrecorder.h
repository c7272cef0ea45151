#ifndef ZORVA_AUTHOR_SIGNALRECORDER_H
#define ZORVA_AUTHOR_SIGNALRECORDER_H

#include <QMetaMethod>
#include <QObject>
#include <QString>
#include <QVariant>
#include <QVector>

namespace Orvane {
namespace Author {

/** Writes down every signal of the objects that it was shown, in the order in which they come. */
class SignalRecorder : public QObject
{
public:
    struct Entry
    {
        QString object;
        QString signal; // without its arguments
        QVariantList arguments;
    };

    /** @p name is what @p object, which may go at any time, is called here. */
    void watch(const QString& name, const QObject* object);
    /** False for an object or a signal that nobody showed. */
    bool watches(const QString& object, const QString& signal) const;
    const QVector<Entry>& entries() const { return m_entries; }
    void clear() { m_entries.clear(); }

    /** Takes the place of a slot for each signal. */
    int qt_metacall(QMetaObject::Call call, int id, void** arguments) override;

private:
    struct Source
    {
        QString object;
        QMetaMethod signal;
    };

    QVector<Source> m_sources;
    QVector<Entry> m_entries;
};

} // namespace Author
} // namespace Orvane

#endif
