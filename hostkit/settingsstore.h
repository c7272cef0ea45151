#ifndef ZORVA_HOSTKIT_SETTINGSSTORE_H
#define ZORVA_HOSTKIT_SETTINGSSTORE_H

#include <hostkit/hostkit_export.h>

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

namespace hostkit {

/**
 * Writes @p bytes to a file in one go: whatever happens meanwhile, the file holds
 * the old bytes or the new ones. What is no file, a terminal or a pipe, is written to as it is. False if that
 * failed; then @p error (may be null) tells why.
 */
HOSTKIT_EXPORT bool saveBytes(const QString& fileName, const QByteArray& bytes, QString* error = nullptr);
/** The same with @p text, in UTF-8. */
HOSTKIT_EXPORT bool saveText(const QString& fileName, const QString& text, QString* error = nullptr);
/** Reads a file of UTF-8 text, of at most 16 MiB; @p text must not be null and is left as it is on an error.
 */
HOSTKIT_EXPORT bool loadText(const QString& fileName, QString* text, QString* error = nullptr);

/**
 * A configuration object for forms (see ZorvaFormular::SetConfigObject) that keeps
 * its dynamic properties in a file: texts, numbers and booleans, as texts. It is
 * read when it is made and written whole, and in one go, after the last change of
 * a turn of the event loop and when it goes.
 */
class HOSTKIT_EXPORT ConfigurationStore : public QObject
{
    Q_OBJECT

public:
    /** A file that is missing or damaged counts as empty. */
    explicit ConfigurationStore(const QString& fileName, QObject* parent = nullptr);
    ~ConfigurationStore() override;

    /** Hears of dynamic properties that change, to write them. */
    bool event(QEvent* event) override;
    /** Writes what has changed at once; false if that failed. */
    bool save();

private:
    void load();

    const QString m_fileName;
    QTimer m_saveSoon;
    bool m_loading = false;
    bool m_changed = false;
};

} // namespace hostkit

#endif
