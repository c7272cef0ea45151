#include "formdriver.h"

#include "testedform.h"

#include <author/parameters/parameterset.h>
#include <hostkit/formrows.h>
#include <zorvaparser/zorvadelegate.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScriptContextInfo>
#include <QScriptEngine>
#include <QScriptValueIterator>
#include <QXmlStreamWriter>

namespace Orvane {
namespace Author {

namespace {

constexpr int deepest = 5; // levels of objects in a message

void sendKey(QWidget* widget, int key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    const QPointer<QWidget> there(widget);
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, text);
        if (there)
            QCoreApplication::sendEvent(there, &event);
    }
}

void sendText(QWidget* widget, const QString& text)
{
    const QPointer<QWidget> there(widget);
    for (const QChar c : text) {
        const ushort code = c.toUpper().unicode();
        if (there)
            sendKey(there, code < 0x80 ? code : 0, Qt::NoModifier, c);
    }
}

void sendClick(QWidget* widget, const QPoint& at)
{
    const QPointer<QWidget> there(widget);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        if (there)
            QCoreApplication::sendEvent(there, &event);
    }
}

/** Where a person clicks a control: its middle, or the box or title at its leading edge. */
QPoint clickPoint(const QWidget& widget)
{
    const bool isLeading =
        qobject_cast<const QGroupBox*>(&widget) ||
        (qobject_cast<const QAbstractButton*>(&widget) && !qobject_cast<const QPushButton*>(&widget));
    const QPoint middle = widget.rect().center();
    return isLeading ? QPoint(qMin(8, middle.x()), qobject_cast<const QGroupBox*>(&widget) ? 8 : middle.y())
                     : middle;
}

/** The widget that takes what is typed, chosen or clicked, for a piece of a row. */
QVector<QWidget*> fieldsOf(QWidget* widget)
{
    QVector<QWidget*> fields;
    if (qobject_cast<QAbstractSpinBox*>(widget) || qobject_cast<QLineEdit*>(widget) ||
        qobject_cast<QComboBox*>(widget) || qobject_cast<QAbstractButton*>(widget) ||
        qobject_cast<QAbstractItemView*>(widget) || qobject_cast<QGroupBox*>(widget) ||
        qobject_cast<QLabel*>(widget))
        return {widget};
    for (QObject* const child : widget->children()) {
        if (auto* const part = qobject_cast<QWidget*>(child))
            fields += fieldsOf(part);
    }
    // A text field comes before the buttons beside it.
    std::stable_partition(fields.begin(), fields.end(),
                          [](QWidget* field) { return !qobject_cast<QAbstractButton*>(field); });
    return fields;
}

bool isReadOnly(const QWidget& widget)
{
    return widget.property("readOnly").toBool();
}

QString quoted(const QString& text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString shown(const QScriptValue& value, int depth)
{
    if (value.isString())
        return quoted(value.toString());
    if (!value.isObject() || value.isFunction() || value.isQObject() || value.isDate() || value.isRegExp() ||
        value.isError() || depth > deepest)
        return value.toString();
    const bool isArray = value.isArray();
    QStringList parts;
    QScriptValueIterator part(value);
    while (part.hasNext()) {
        part.next();
        if (part.flags() & QScriptValue::SkipInEnumeration)
            continue;
        const QString text = shown(part.value(), depth + 1);
        parts.append(isArray ? text : part.name() + QLatin1String(": ") + text);
    }
    if (!isArray)
        parts.sort();
    const QString inside = parts.join(QLatin1String(", "));
    return isArray ? QLatin1Char('[') + inside + QLatin1Char(']')
                   : QLatin1Char('{') + inside + QLatin1Char('}');
}

/** Whole numbers of any width are one type to a script. */
QScriptValue toScript(QScriptEngine* engine, const QVariant& value)
{
    switch (static_cast<QMetaType::Type>(value.type())) {
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Double:
    case QMetaType::Float:
        return QScriptValue(value.toDouble());
    default:
        return engine->newVariant(value).isVariant() ? engine->toScriptValue(value)
                                                     : QScriptValue(value.toString());
    }
}

/** What a script's value is to a host that writes texts. */
QString hostText(const QScriptValue& value)
{
    return value.toString();
}

} // namespace

QString shownInTest(const QScriptValue& value)
{
    return shown(value, 0);
}

FormDriver::FormDriver(const TestedForm& form, LiveForm& live)
    : m_tested(form)
    , m_live(live)
    , m_rows(live.form())
{
    ZorvaSheet& sheet = live->GetSheet();
    QScriptEngine* const engine = live.engine();
    if (engine)
        connect(engine, &QScriptEngine::signalHandlerException, this, &FormDriver::takeException);
    live.bring(LiveForm::Running);
    if (engine && engine->hasUncaughtException())
        takeException(engine->uncaughtException());
    live.bring(LiveForm::Built);
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        m_signals.watch(sheet.GetWidgetAt(i)->GetName(), sheet.GetWidgetAt(i)->GetDelegate());
    m_signals.watch(sheet.GetName(), sheet.GetDelegate());
    m_controls = hostkit::rowControls(live.form());
    m_clock = std::make_unique<AutoApplyClock>(live.form());
    qApp->installEventFilter(this);
    live->Show();
    QApplication::setActiveWindow(live->GetGUI());
    settle();
}

FormDriver::~FormDriver() = default;

bool FormDriver::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show) {
        if (auto* const dialog = qobject_cast<QDialog*>(watched)) {
            m_dialogs.append(dialog->windowTitle());
            QMetaObject::invokeMethod(dialog, "reject", Qt::QueuedConnection);
        } else if (auto* const menu = qobject_cast<QMenu*>(watched)) {
            QMetaObject::invokeMethod(menu, "close", Qt::QueuedConnection);
        }
    }
    return QObject::eventFilter(watched, event);
}

void FormDriver::takeException(const QScriptValue& exception)
{
    QScriptEngine* const engine = m_live.engine();
    const QScriptValue thrownAt = exception.property(QStringLiteral("lineNumber"));
    const int line = thrownAt.isNumber() ? thrownAt.toInt32() : engine->uncaughtExceptionLineNumber();
    const ScenarioPlace place = m_tested.place(m_tested.lineOfCode(line));
    if (m_exceptions.isEmpty())
        m_exceptionPlace = place;
    m_exceptions.append(QStringLiteral("%1: %2").arg(place.text(), exception.toString()));
}

void FormDriver::settle()
{
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_clock->look();
}

ScenarioPlace FormDriver::placeOf(const QString& row) const
{
    const QString name = row.section(QLatin1Char('['), 0, 0);
    ZorvaSheet& sheet = m_live->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (sheet.GetWidgetAt(i)->GetName() == name)
            return m_tested.place(m_tested.lineOfRow(i));
    }
    const int index = row.isEmpty() ? -1 : sheet.IndexOfWidget(name);
    return index < 0 ? ScenarioPlace() : m_tested.place(m_tested.lineOfRow(index));
}

/** The call in the test that this is the answer to. */
ScenarioPlace FormDriver::testPlace() const
{
    for (QScriptContext* place = context(); place; place = place->parentContext()) {
        const QScriptContextInfo info(place);
        if (!info.fileName().isEmpty() && info.lineNumber() > 0)
            return {info.fileName(), info.lineNumber()};
    }
    return ScenarioPlace();
}

QScriptValue FormDriver::fail(const QString& message, const QString& row)
{
    m_failure = ScenarioResult();
    m_failure.message = message;
    m_failure.place = testPlace();
    m_failure.formPlace = placeOf(row);
    return context() ? context()->throwError(message) : QScriptValue();
}

QScriptValue FormDriver::failCompared(const QString& what, const QString& expected, const QString& seen,
                                      const QString& row)
{
    const QScriptValue error =
        fail(QStringLiteral("%1: expected %2, seen %3").arg(what, expected, seen), row);
    m_failure.compared = true;
    m_failure.expected = expected;
    m_failure.seen = seen;
    return error;
}

void FormDriver::compare(const QString& what, const QString& expected, const QString& seen,
                         const QString& row)
{
    if (expected != seen)
        failCompared(what, quoted(expected), quoted(seen), row);
}

FormDriver::Target FormDriver::find(const QString& name)
{
    Target target;
    QString plain = name;
    const int bracket = name.indexOf(QLatin1Char('['));
    if (bracket >= 0 && name.endsWith(QLatin1Char(']'))) {
        plain = name.left(bracket);
        target.field = name.midRef(bracket + 1, name.size() - bracket - 2).toInt();
    }
    ZorvaSheet& sheet = m_live->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount() && target.row < 0; ++i) {
        if (sheet.GetWidgetAt(i)->GetName() == plain)
            target.row = i;
    }
    if (target.row < 0 && !plain.isEmpty())
        target.row = sheet.IndexOfWidget(plain);
    if (target.row < 0)
        fail(QStringLiteral("the form has no row \"%1\"").arg(plain));
    return target;
}

ZorvaDelegate* FormDriver::delegate(const QString& name)
{
    const int row = find(name).row;
    return row < 0 ? nullptr : m_live->GetSheet().GetWidgetAt(row)->GetDelegate();
}

QWidget* FormDriver::field(const QString& name)
{
    const Target target = find(name);
    if (target.row < 0)
        return nullptr;
    QVector<QWidget*> fields;
    for (const QPointer<QWidget>& widget : qAsConst(m_controls.at(target.row).widgets)) {
        if (widget)
            fields += fieldsOf(widget);
    }
    if (target.field >= 0 && target.field < fields.size())
        return fields.at(target.field);
    fail(QStringLiteral("row \"%1\" has no control").arg(name), name);
    return nullptr;
}

QWidget* FormDriver::usable(const QString& name)
{
    QWidget* const widget = field(name);
    if (!widget)
        return nullptr;
    if (!widget->isVisible())
        fail(QStringLiteral("row \"%1\" is not shown").arg(name), name);
    else if (!widget->isEnabled() || isReadOnly(*widget))
        fail(QStringLiteral("row \"%1\" is disabled").arg(name), name);
    else
        return widget;
    return nullptr;
}

template <typename Kind>
Kind* FormDriver::usable(const QString& name, const char* what)
{
    QWidget* const widget = usable(name);
    auto* const wanted = qobject_cast<Kind*>(widget);
    if (widget && !wanted)
        fail(QStringLiteral("row \"%1\" has no %2").arg(name, QLatin1String(what)), name);
    return wanted;
}

void FormDriver::type(const QString& row, const QString& text)
{
    QWidget* const widget = usable(row);
    if (!widget)
        return;
    const QPointer<QWidget> there(widget);
    widget->setFocus(Qt::MouseFocusReason);
    if (there)
        sendKey(there, Qt::Key_A, Qt::ControlModifier, QString());
    if (there && text.isEmpty())
        sendKey(there, Qt::Key_Delete, Qt::NoModifier, QString());
    if (there)
        sendText(there, text);
    settle();
}

void FormDriver::enter(const QString& row, const QString& text)
{
    m_failure = ScenarioResult();
    type(row, text);
    if (m_failure.message.isEmpty())
        press(row, QStringLiteral("Return"));
}

void FormDriver::press(const QString& row, const QString& key)
{
    QWidget* const widget = usable(row);
    if (!widget)
        return;
    const QKeySequence sequence(key);
    if (sequence.count() != 1 || sequence[0] == Qt::Key_unknown) {
        fail(QStringLiteral("there is no key \"%1\"").arg(key));
        return;
    }
    const int code = sequence[0] & ~static_cast<int>(Qt::KeyboardModifierMask);
    const Qt::KeyboardModifiers modifiers(sequence[0] & static_cast<int>(Qt::KeyboardModifierMask));
    const bool isText = code < 0x80 && !(modifiers & (Qt::ControlModifier | Qt::AltModifier));
    const QPointer<QWidget> there(widget);
    if (!widget->hasFocus())
        widget->setFocus(Qt::MouseFocusReason);
    if (there)
        sendKey(there, code, modifiers, isText ? QString(QChar(code)) : QString());
    settle();
}

void FormDriver::focus(const QString& row)
{
    if (QWidget* const widget = usable(row))
        widget->setFocus(Qt::MouseFocusReason);
    settle();
}

void FormDriver::leave()
{
    if (QWidget* const widget = QApplication::focusWidget())
        widget->clearFocus();
    settle();
}

void FormDriver::click(const QString& row)
{
    if (QWidget* const widget = usable(row))
        sendClick(widget, clickPoint(*widget));
    settle();
}

void FormDriver::choose(const QString& row, const QString& shownText)
{
    auto* const box = usable<QComboBox>(row, "choice");
    if (!box)
        return;
    const int index = box->findText(shownText);
    if (index < 0) {
        fail(QStringLiteral("\"%1\" is none of the choices of row \"%2\": %3")
                 .arg(shownText, row, choices(row).join(QLatin1String(", "))),
             row);
        return;
    }
    const QModelIndex entry = box->model()->index(index, box->modelColumn(), box->rootModelIndex());
    if (!(entry.flags() & Qt::ItemIsEnabled)) {
        fail(QStringLiteral("\"%1\" of row \"%2\" is greyed").arg(shownText, row), row);
        return;
    }
    box->setFocus(Qt::MouseFocusReason);
    box->showPopup();
    box->view()->setCurrentIndex(entry);
    sendKey(box->view(), Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    settle();
}

void FormDriver::apply()
{
    auto* const button = m_live->GetGUI()->findChild<QPushButton*>(QStringLiteral("applyButton"));
    if (button && !button->isEnabled()) {
        fail(QStringLiteral("there is nothing to apply: the button is greyed"));
        return;
    }
    leave(); // as a press on the button does
    if (button)
        sendClick(button, button->rect().center());
    else
        m_live->applyNow();
    settle();
}

void FormDriver::advance(int milliseconds)
{
    m_clock->advance(milliseconds);
    settle();
}

int FormDriver::groupOf(const QString& name)
{
    const int row = find(name).row;
    if (row < 0 || m_live->GetSheet().GetWidgetAt(row)->IsHeadline())
        return row;
    fail(QStringLiteral("row \"%1\" heads no group").arg(name), name);
    return -1;
}

void FormDriver::collapse(const QString& group)
{
    if (groupOf(group) >= 0 && !collapsed(group))
        click(group);
}

void FormDriver::open(const QString& group)
{
    if (groupOf(group) >= 0 && collapsed(group))
        click(group);
}

bool FormDriver::collapsed(const QString& group)
{
    const int row = groupOf(group);
    return row >= 0 &&
           m_live->GetSheet().GetCollapsed().contains(m_live->GetSheet().GetWidgetAt(row)->GetName());
}

void FormDriver::set(const QString& row, const QScriptValue& newValue)
{
    ZorvaDelegate* const target = delegate(row);
    if (!target)
        return;
    values::ValueBase* const held = target->GetVTValue();
    if (!held) {
        fail(QStringLiteral("row \"%1\" has no value").arg(row), row);
        return;
    }
    held->SetStringValue(hostText(newValue), nullptr);
    settle();
}

void FormDriver::push(const QString& xml)
{
    m_live->SetXmlString(xml);
    settle();
}

QString FormDriver::fetch()
{
    const QString xml = m_live->GetXmlString(true);
    settle();
    return xml.isNull() ? QStringLiteral("") : xml;
}

QString FormDriver::fetchAll()
{
    const QString xml = m_live->GetXmlString(false);
    settle();
    return xml;
}

void FormDriver::overlay(const QString& text)
{
    m_live->SetChangedZORVA(text);
    settle();
}

void FormDriver::enableInput(bool enable)
{
    m_live->EnableInput(enable);
    settle();
}

QScriptValue FormDriver::evaluate(const QString& code)
{
    QScriptEngine* const engine = m_live.engine();
    if (!engine)
        return QScriptValue();
    const QScriptValue result = engine->evaluate(code, QStringLiteral("evaluate"));
    const QString problem = engine->hasUncaughtException() ? result.toString() : QString();
    engine->clearExceptions();
    settle();
    if (!problem.isEmpty())
        return fail(problem);
    // Values of one interpreter are nothing to another.
    if (result.isQObject() || result.isFunction() || (result.isObject() && !result.isArray()))
        return QScriptValue(result.toString());
    return result.isUndefined() || result.isNull() ? QScriptValue()
                                                   : QScriptable::engine()->toScriptValue(result.toVariant());
}

QString FormDriver::value(const QString& row)
{
    const ZorvaDelegate* const target = delegate(row);
    if (!target)
        return QString();
    const values::ValueBase* const held = target->GetVTValue();
    if (!held)
        fail(QStringLiteral("row \"%1\" has no value").arg(row), row);
    return held ? held->GetStringValue() : QString();
}

QString FormDriver::text(const QString& row)
{
    QWidget* const widget = field(row);
    if (const auto* const box = qobject_cast<QComboBox*>(widget))
        return box->currentText();
    if (const auto* const spin = qobject_cast<QAbstractSpinBox*>(widget))
        return spin->text();
    if (const auto* const edit = qobject_cast<QLineEdit*>(widget))
        return edit->text();
    if (const auto* const button = qobject_cast<QAbstractButton*>(widget))
        return button->text();
    if (const auto* const label = qobject_cast<QLabel*>(widget))
        return label->text();
    if (const auto* const head = qobject_cast<QGroupBox*>(widget))
        return head->title();
    if (widget)
        fail(QStringLiteral("row \"%1\" shows no text").arg(row), row);
    return QString();
}

QString FormDriver::caption(const QString& row)
{
    const int index = find(row).row;
    return index >= 0 && m_controls.at(index).caption ? m_controls.at(index).caption->text() : QString();
}

QString FormDriver::toolTip(const QString& row)
{
    const QWidget* const widget = field(row);
    return widget ? widget->toolTip() : QString();
}

QStringList FormDriver::choices(const QString& row)
{
    QStringList texts;
    const auto* const box = qobject_cast<QComboBox*>(field(row));
    for (int i = 0; box && i < box->count(); ++i)
        texts.append(box->itemText(i));
    return texts;
}

bool FormDriver::checked(const QString& row)
{
    const auto* const button = qobject_cast<QAbstractButton*>(field(row));
    return button && button->isChecked();
}

bool FormDriver::enabled(const QString& row)
{
    const QWidget* const widget = field(row);
    return widget && widget->isEnabled() && !isReadOnly(*widget);
}

bool FormDriver::visible(const QString& row)
{
    const int index = find(row).row;
    if (index < 0)
        return false;
    const hostkit::RowControl& control = m_controls.at(index);
    return std::any_of(control.widgets.cbegin(), control.widgets.cend(),
                       [](const QPointer<QWidget>& widget) { return widget && widget->isVisible(); }) ||
           (control.widgets.isEmpty() && control.caption && control.caption->isVisible());
}

bool FormDriver::modified(const QString& row)
{
    if (row.isEmpty())
        return m_live->GetSheet().isWidgetModified();
    ZorvaDelegate* const target = delegate(row);
    return target && target->isModified();
}

QString FormDriver::parameter(const QString& row)
{
    const ZorvaDelegate* const target = delegate(row);
    if (!target)
        return QString();
    QString xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartElement(QStringLiteral("row"));
    target->GetXml(writer);
    writer.writeEndElement();
    const Description written{SourceText(xml.toUtf8())};
    const QVector<int> elements = written.children(0);
    QStringList texts;
    for (const int element : elements)
        texts.append(written.textOf(element));
    return texts.join(QLatin1Char(' '));
}

QScriptValue FormDriver::property(const QString& row, const QString& name)
{
    const ZorvaDelegate* const target = delegate(row);
    return target ? toScript(QScriptable::engine(), target->property(name.toLatin1().constData()))
                  : QScriptValue();
}

QStringList FormDriver::rows()
{
    QStringList names;
    ZorvaSheet& sheet = m_live->GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i)
        names.append(sheet.GetWidgetAt(i)->GetName());
    return names;
}

int FormDriver::pause()
{
    return m_clock->remaining();
}

int FormDriver::count(const QString& object, const QString& signal) const
{
    const auto& entries = m_signals.entries();
    return static_cast<int>(
        std::count_if(entries.cbegin(), entries.cend(), [&](const SignalRecorder::Entry& entry) {
            return entry.object == object && entry.signal == signal;
        }));
}

int FormDriver::applied()
{
    return count(m_live->GetSheet().GetName(), QStringLiteral("si_parametersModified"));
}

QScriptValue FormDriver::emitted(const QString& signal)
{
    QScriptEngine* const engine = QScriptable::engine();
    const QString object = signal.section(QLatin1Char('.'), 0, -2);
    const QString name = signal.section(QLatin1Char('.'), -1);
    m_failure = ScenarioResult();
    if (!m_signals.watches(object, name))
        fail(QStringLiteral("there is no signal \"%1\"; it is written as ROW.SIGNAL").arg(signal), object);
    QScriptValue calls = engine->newArray();
    quint32 next = 0;
    for (const SignalRecorder::Entry& entry : m_signals.entries()) {
        if (entry.object != object || entry.signal != name)
            continue;
        QScriptValue arguments = engine->newArray();
        for (int i = 0; i < entry.arguments.size(); ++i)
            arguments.setProperty(quint32(i), toScript(engine, entry.arguments.at(i)));
        calls.setProperty(next++, arguments);
    }
    return calls;
}

void FormDriver::forget()
{
    m_signals.clear();
}

QStringList FormDriver::exceptions()
{
    QStringList taken;
    taken.swap(m_exceptions);
    return taken;
}

QStringList FormDriver::dialogs()
{
    return m_dialogs;
}

void FormDriver::expectValue(const QString& row, const QScriptValue& expected)
{
    m_failure = ScenarioResult();
    const QString seen = value(row);
    if (m_failure.message.isEmpty() && !hostkit::saysTheSame(hostText(expected), seen))
        compare(QStringLiteral("value of %1").arg(row), hostText(expected), seen, row);
}

void FormDriver::expectText(const QString& row, const QString& expected)
{
    m_failure = ScenarioResult();
    const QString seen = text(row);
    if (m_failure.message.isEmpty())
        compare(QStringLiteral("text of %1").arg(row), expected, seen, row);
}

void FormDriver::compareFlag(const QString& row, bool expected, bool seen, const char* yes, const char* no)
{
    if (m_failure.message.isEmpty() && expected != seen)
        failCompared(row, QLatin1String(expected ? yes : no), QLatin1String(seen ? yes : no), row);
}

void FormDriver::expectChecked(const QString& row, bool expected)
{
    m_failure = ScenarioResult();
    compareFlag(row, expected, checked(row), "checked", "unchecked");
}

void FormDriver::expectEnabled(const QString& row, bool expected)
{
    m_failure = ScenarioResult();
    compareFlag(row, expected, enabled(row), "enabled", "disabled");
}

void FormDriver::expectVisible(const QString& row, bool expected)
{
    m_failure = ScenarioResult();
    compareFlag(row, expected, visible(row), "visible", "hidden");
}

void FormDriver::expectModified(const QString& row, bool expected)
{
    m_failure = ScenarioResult();
    compareFlag(row, expected, modified(row), "modified", "not modified");
}

void FormDriver::expectParameter(const QString& row, const QString& expected)
{
    m_failure = ScenarioResult();
    const QString seen = parameter(row);
    if (m_failure.message.isEmpty())
        compare(QStringLiteral("parameter of %1").arg(row), expected, seen, row);
}

void FormDriver::expectMarks(const QStringList& wanted)
{
    QStringList expected = wanted;
    QStringList seen;
    for (const QString& row : rows()) {
        if (modified(row))
            seen.append(row);
    }
    expected.sort();
    seen.sort();
    compare(QStringLiteral("marked rows"), expected.join(QLatin1String(", ")), seen.join(QLatin1String(", ")),
            QString());
}

void FormDriver::compareXml(const QString& what, const QString& expected, const QString& seen)
{
    const ParameterSet wanted(m_rows, SourceText(expected.toUtf8()));
    const ParameterSet found(m_rows, SourceText(seen.toUtf8()));
    const auto line = [](const Setting* setting, const QString& key) {
        return setting ? QStringLiteral("%1 = \"%2\"").arg(key, setting->text())
                       : QStringLiteral("no %1").arg(key);
    };
    QStringList missing;
    QStringList instead;
    const auto compareSetting = [&](const QString& key) {
        const Setting* const left = wanted.find(key);
        const Setting* const right = found.find(key);
        if (left && right && meansTheSame(m_rows.kind(left->row), *left, *right))
            return;
        missing.append(line(left, key));
        instead.append(line(right, key));
    };
    for (const Setting& setting : wanted.settings())
        compareSetting(setting.key);
    for (const Setting& setting : found.settings()) {
        if (!wanted.find(setting.key))
            compareSetting(setting.key);
    }
    if (!missing.isEmpty())
        failCompared(what, missing.join(QLatin1String(", ")), instead.join(QLatin1String(", ")));
    else if (wanted.hasRoot() != found.hasRoot())
        failCompared(what, wanted.hasRoot() ? QStringLiteral("parameters") : QStringLiteral("nothing"),
                     found.hasRoot() ? QStringLiteral("parameters") : QStringLiteral("nothing"));
}

void FormDriver::expectFetched(const QString& xml)
{
    compareXml(QStringLiteral("fetched parameters"), xml, fetch());
}

void FormDriver::expectAll(const QString& xml)
{
    compareXml(QStringLiteral("all parameters"), xml, fetchAll());
}

void FormDriver::expectEmitted(const QString& signal, const QScriptValue& calls)
{
    const QScriptValue came = emitted(signal);
    if (!m_failure.message.isEmpty())
        return;
    const QString seen = shownInTest(came);
    const bool isNone = came.property(QStringLiteral("length")).toInt32() == 0;
    const QString row = signal.section(QLatin1Char('.'), 0, -2);
    if (calls.isValid() && !calls.isUndefined() ? shownInTest(calls) != seen : isNone)
        failCompared(
            signal, calls.isValid() && !calls.isUndefined() ? shownInTest(calls) : QStringLiteral("a signal"),
            isNone ? QStringLiteral("none") : seen, row);
}

void FormDriver::expectNotEmitted(const QString& signal)
{
    const QScriptValue came = emitted(signal);
    if (m_failure.message.isEmpty() && came.property(QStringLiteral("length")).toInt32() > 0)
        failCompared(signal, QStringLiteral("none"), shownInTest(came),
                     signal.section(QLatin1Char('.'), 0, -2));
}

} // namespace Author
} // namespace Orvane
