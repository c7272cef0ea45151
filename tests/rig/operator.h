#ifndef ZORVA_TESTS_OPERATOR_H
#define ZORVA_TESTS_OPERATOR_H

#include "recordingobserver.h"

#include <hostkit/rowstates.h>
#include <rig/session.h>
#include <rig/window.h>

#include <QString>
#include <QStringList>

#include <map>
#include <memory>

class QAbstractSpinBox;

/// Somebody at a window of the program: reads the rows, types into them, applies.
class Operator
{
public:
    ~Operator();

    /// Prepares a window for the radio at `address`; an empty `form` is the made one. Empty, or why it
    /// could not be done.
    QString prepare(const QString& address, const QString& form = QString());
    /// Makes the window and shows it; its way to the radio begins with start(). `device` is in place of the
    /// session's own if it is not null.
    void show(std::shared_ptr<radio::RigDevice> device = nullptr);
    /// Ends the link and lets window and form go; false if the link did not end in `wait` milliseconds.
    bool leave(int wait);

    radio::Session session;
    std::unique_ptr<radio::Window> window;

    /// What the row of the parameter holds.
    QString shown(const QString& path) const;
    /// How it stands at the radio.
    hostkit::RowState state(const QString& path) const;
    /// The box of numbers of that name; null if there is none.
    QAbstractSpinBox* box(const QString& name) const;
    /// Types in place of the number in a row; false if there is no such row.
    bool type(const QString& name, const QString& keys) const;
    /// Clicks on the button.
    void apply() const;
    /// From now on each text that the row takes is written down.
    void watch(const QString& path);
    /// The texts written down.
    QStringList seen(const QString& path) const;

private:
    struct Record
    {
        QStringList texts;
        RecordingObserver observer;
    };
    std::map<QString, Record> m_records;
};

#endif
