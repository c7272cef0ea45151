#ifndef ZORVA_AUTHOR_FORMDRIVER_H
#define ZORVA_AUTHOR_FORMDRIVER_H

#include "autoapplyclock.h"
#include "scenario.h"
#include "signalrecorder.h"

#include <author/live/liveform.h>
#include <author/parameters/formrows.h>
#include <hostkit/rowcontrols.h>

#include <QObject>
#include <QScriptValue>
#include <QScriptable>

namespace Orvane {
namespace Author {

class TestedForm;

/**
 * One live form as a test sees it: what an operator can do to it, what its host can, and what
 * both can see. Rows are called by their name, their path or their tag in parameter XML;
 * "name[1]" is the second field of a row that has several. What cannot be done throws in the
 * test, and so does an expectation that is not met.
 */
class FormDriver : public QObject, protected QScriptable
{
    Q_OBJECT

public:
    /** Brings the form to life; @p form and @p live outlive this. @p live has only been read. */
    FormDriver(const TestedForm& form, LiveForm& live);
    ~FormDriver() override;

    /** What the last failed expectation was about; the message is empty if there was none. */
    const ScenarioResult& failure() const { return m_failure; }
    /** What the form's script threw since the start, or since exceptions() was called. */
    const QStringList& uncaught() const { return m_exceptions; }
    const ScenarioPlace& firstUncaught() const { return m_exceptionPlace; }
    /** Throws in the test, about a row if @p row is not empty. */
    QScriptValue fail(const QString& message, const QString& row = QString());
    /** The same with what was wanted and what was seen. */
    QScriptValue failCompared(const QString& what, const QString& expected, const QString& seen,
                              const QString& row = QString());

public Q_SLOTS:
    // What an operator does. Controls that are greyed, hidden or collapsed cannot be used.

    /** Clicks into the field, selects what is there, and types. Nothing is entered yet. */
    void type(const QString& row, const QString& text);
    /** The same, and Return. */
    void enter(const QString& row, const QString& text);
    /** A key by its name, as in "Up", "Return", "Ctrl+Z". */
    void press(const QString& row, const QString& key);
    /** Gives the keyboard focus to the field. */
    void focus(const QString& row);
    /** Takes the keyboard focus away from all fields. */
    void leave();
    void click(const QString& row);
    /** Opens the list and takes the entry with that shown text. */
    void choose(const QString& row, const QString& shown);
    /** Presses Apply. */
    void apply();
    /** Milliseconds of the auto-apply pause go by. */
    void advance(int milliseconds);
    void collapse(const QString& group);
    void open(const QString& group);

    // What a host does.

    /** Writes to the value of a row. */
    void set(const QString& row, const QScriptValue& value);
    /** Parameter XML comes from the device. */
    void push(const QString& xml);
    /** What is to be sent: parameter XML of the modified rows, whose marks go; "" if there are none. */
    QString fetch();
    /** Parameter XML of all rows; marks go. */
    QString fetchAll();
    void overlay(const QString& text);
    void enableInput(bool enable);
    /** Runs code in the form's script. */
    QScriptValue evaluate(const QString& code);

    // What both see.

    /** The content of the row's value, as a host reads it. */
    QString value(const QString& row);
    /** What the field shows. */
    QString text(const QString& row);
    QString caption(const QString& row);
    QString toolTip(const QString& row);
    QStringList choices(const QString& row);
    bool checked(const QString& row);
    bool enabled(const QString& row);
    bool visible(const QString& row);
    /** Whether the row is marked; without a row, whether the form has something to apply. */
    bool modified(const QString& row = QString());
    bool collapsed(const QString& group);
    /** The row's own text in parameter XML; marks stay. */
    QString parameter(const QString& row);
    QScriptValue property(const QString& row, const QString& name);
    QStringList rows();
    /** Milliseconds until the form applies by itself; -1 if no pause is running. */
    int pause();
    /** How often the form announced parameters. */
    int applied();
    /** The arguments of each time that "row.signal" came, in order. */
    QScriptValue emitted(const QString& signal);
    /** Forgets the signals so far. */
    void forget();
    /** What the form's script threw; it does not fail the test then. */
    QStringList exceptions();
    /** Titles of the dialogs that opened so far. Each is dismissed at once, as if by Escape. */
    QStringList dialogs();

    // What must be so.

    void expectValue(const QString& row, const QScriptValue& expected);
    void expectText(const QString& row, const QString& expected);
    void expectChecked(const QString& row, bool expected = true);
    void expectEnabled(const QString& row, bool expected = true);
    void expectVisible(const QString& row, bool expected = true);
    void expectModified(const QString& row, bool expected = true);
    void expectParameter(const QString& row, const QString& expected);
    /** The marked rows are these and no others; marks stay. */
    void expectMarks(const QStringList& rows);
    /** fetch() says the same as this, in whatever order; "" for nothing at all. */
    void expectFetched(const QString& xml);
    /** fetchAll() says the same as this, in whatever order. */
    void expectAll(const QString& xml);
    /** "row.signal" came, with these arguments if some are given, and as often as lists of them. */
    void expectEmitted(const QString& signal, const QScriptValue& calls = QScriptValue());
    void expectNotEmitted(const QString& signal);

public:
    /** Sees dialogs and menus open, which would wait for somebody for ever. */
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Target
    {
        int row = -1;
        int field = 0;
    };

    /** A row of -1, and an exception in the test, if there is none. */
    Target find(const QString& name);
    ZorvaDelegate* delegate(const QString& name);
    int groupOf(const QString& name);
    /** Null, and an exception in the test, if there is none. */
    QWidget* field(const QString& name);
    /** The same; likewise if the operator cannot use it. */
    QWidget* usable(const QString& name);
    template <typename Kind>
    Kind* usable(const QString& name, const char* what);
    void compare(const QString& what, const QString& expected, const QString& seen, const QString& row);
    void compareFlag(const QString& row, bool expected, bool seen, const char* yes, const char* no);
    void compareXml(const QString& what, const QString& expected, const QString& seen);
    void settle();
    void takeException(const QScriptValue& exception);
    int count(const QString& object, const QString& signal) const;
    ScenarioPlace placeOf(const QString& row) const;
    ScenarioPlace testPlace() const;

    const TestedForm& m_tested;
    LiveForm& m_live;
    FormRows m_rows;
    SignalRecorder m_signals;
    std::unique_ptr<AutoApplyClock> m_clock;
    QVector<hostkit::RowControl> m_controls;
    ScenarioResult m_failure;
    QStringList m_exceptions;
    ScenarioPlace m_exceptionPlace;
    QStringList m_dialogs;
};

/** @p value as a person writes it in a script, for messages. */
QString shownInTest(const QScriptValue& value);

} // namespace Author
} // namespace Orvane

#endif
