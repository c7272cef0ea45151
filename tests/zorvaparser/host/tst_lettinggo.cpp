#include <formtest.h>
#include <formtext.h>

#include <valueframework/tree.h>
#include <vkbase/iobserver.h>
#include <zorvaparser/zorvaformularmanager.h>
#include <zorvaparser/zorvaparser.h>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QTableWidget>
#include <QTimer>
#include <QWheelEvent>

#include <functional>

using Orvane::ZorvaFormular;
using Orvane::ZorvaFormularManager;
using Orvane::ZorvaParser;

// Whatever a form tells, and whatever made it tell: the host may answer by letting go
// of anything it holds. Every way to raise signals is run once for each signal, and
// each notice of a value, that it raises, and the host lets go at that one.

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// What the host does in answer.
enum Answer {
    DropForm,
    ResetManager,
    RemoveValues,
    DropWindow,
    BuildAnew,
    BuildAnewByManager,
    InsertRow,
    CreateValues,
    SwitchInput,
    ReadParameters,
    ApplyOverlay,
    TurnLoop,
    ListenOnly
};

const char* const answerNames[] = {
    "drop the form",         "reset the manager", "remove the values",   "drop the window", "build anew",
    "reset and build again", "insert a row",      "create values again", "switch input",    "read parameters",
    "apply an overlay",      "turn the loop",     "listen only"};

bool letsTheFormGo(int answer)
{
    return answer == DropForm || answer == ResetManager || answer == BuildAnew ||
           answer == BuildAnewByManager;
}

/// Calls back at each signal that it was connected to.
class Listener : public QObject
{
    Q_OBJECT

public:
    std::function<void()> heard;

    void listenTo(QObject* sender)
    {
        const QMetaObject* const meta = sender->metaObject();
        const int slot = staticMetaObject.indexOfSlot("hear()");
        for (int i = QObject::staticMetaObject.methodCount(); i < meta->methodCount(); ++i) {
            if (meta->method(i).methodType() == QMetaMethod::Signal)
                QMetaObject::connect(sender, i, this, slot);
        }
    }

private Q_SLOTS:
    void hear() { heard(); }
};

/// Calls back at each notice of the values that it was added to.
class ValueListener : public IObserver
{
public:
    std::function<void()> heard;

    ~ValueListener() override
    {
        for (values::ValueBase* const value : qAsConst(m_values))
            value->DeleteObserver(this);
    }
    void listenTo(values::ValueBase* value)
    {
        value->AddObserver(this);
        m_values.append(value);
    }
    void Update(Observable* observable, TChangeCode code) override
    {
        auto* const value = static_cast<values::ValueBase*>(observable);
        if (code != ChangeCode::State || value->GetState() != ValueState::GoingAway) {
            heard();
            return;
        }
        value->DeleteObserver(this);
        m_values.removeOne(value);
    }

private:
    QList<values::ValueBase*> m_values;
};

/// A host with one form, which counts what it hears and gives its answer at one of these.
class Host
{
public:
    Host(const QString& formText, bool bar, Answer hostAnswer, int answerAt)
        : m_text(formText)
        , m_bar(bar)
        , m_answer(hostAnswer)
        , m_answerAt(answerAt)
    {
        m_listener.heard = m_valueListener.heard = [this] { hear(); };
        m_manager.EnableApplyUi(bar);
        m_manager.SetVTPath(text("/test"));
        build();
        m_listener.listenTo(&m_manager);
        m_form->CreateValueTree(path());
        for (const QString& valuePath : values::Tree::Instance()->GetPathNames())
            m_valueListener.listenTo(values::Tree::Instance()->GetValue(valuePath));
        if (m_form) {
            m_form->CreateGUI(m_bar);
            m_window = m_form->GetGUI();
        }
        if (m_form)
            m_manager.ShowFormular(text("form"));
    }
    ~Host()
    {
        m_listener.heard = m_valueListener.heard = [] {};
        letGo();
        delete m_window;
        delete m_newWindow;
        m_new.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    ZorvaFormular* form() const { return m_form.data(); }
    ZorvaFormularManager& manager() { return m_manager; }
    QWidget* window() const { return m_window; }
    /// Null once the window is gone.
    template <typename Control>
    Control* control(const char* name) const
    {
        if (!m_window)
            return nullptr;
        auto* const found = m_window->findChild<Control*>(text(name));
        if (found)
            return found;
        QWidget* const around = m_window->findChild<QWidget*>(text(name));
        return around ? around->findChild<Control*>() : nullptr;
    }
    int heard() const { return m_heard; }
    bool hasAnswered() const { return m_answered; }
    QPointer<ZorvaFormular> watched() const { return m_watched; }

    /// Empty if what was built in answer has its values.
    QString checkNew() const
    {
        if (!m_answered || (m_answer != BuildAnew && m_answer != BuildAnewByManager))
            return QString();
        if (!m_new)
            return text("nothing new");
        Orvane::ZorvaSheet& sheet = m_new->GetSheet();
        for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
            const auto row = sheet.GetWidgetAt(i);
            if (m_withValue.contains(row->GetName()) && !row->GetDelegate()->GetVTValue())
                return text("no value: ") + row->GetName();
        }
        return QString();
    }

private:
    QString path() const { return text("/test/form"); }

    void build()
    {
        m_form = ZorvaParser().ParseZORVA(m_text);
        m_watched = m_form.data();
        m_form->SetName(text("form"));
        m_manager.AddFormular(m_form.data());
        m_listener.listenTo(m_form.data());
        Orvane::ZorvaSheet& sheet = m_form->GetSheet();
        m_listener.listenTo(sheet.GetDelegate());
        for (int i = 0; i < sheet.GetWidgetCount(); ++i)
            m_listener.listenTo(sheet.GetWidgetAt(i)->GetDelegate());
    }

    void hear()
    {
        if (m_answered || ++m_heard != m_answerAt)
            return;
        m_answered = true;
        answer();
    }

    void letGo()
    {
        m_manager.Reset();
        m_form.reset();
    }

    void answer()
    {
        Orvane::ZorvaSheet& sheet = m_form->GetSheet();
        for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
            if (sheet.GetWidgetAt(i)->GetDelegate()->GetVTValue())
                m_withValue << sheet.GetWidgetAt(i)->GetName();
        }
        switch (m_answer) {
        case DropForm:
        case ResetManager:
            letGo();
            break;
        case RemoveValues:
            for (const QString& valuePath : values::Tree::Instance()->GetPathNames())
                values::Tree::Instance()->RemoveValue(valuePath);
            break;
        case DropWindow:
            if (m_window)
                m_window->deleteLater();
            break;
        case BuildAnew:
            letGo();
            m_new = ZorvaParser().ParseZORVA(m_text);
            m_new->CreateValueTree(path());
            m_new->CreateGUI(m_bar);
            m_newWindow = m_new->GetGUI();
            break;
        case BuildAnewByManager:
            letGo();
            m_manager.DefineFormular(text("form"), m_text);
            m_new = m_manager.GetFormular(text("form"));
            m_newWindow = m_new ? m_new->GetGUI() : nullptr;
            break;
        case InsertRow:
            sheet.InsertWidget(text("inserted"), QString(), nullptr, 0);
            break;
        case CreateValues:
            m_form->CreateValueTree(path());
            break;
        case SwitchInput:
            m_form->EnableInput(!m_form->IsInputEnabled());
            break;
        case ReadParameters:
            m_manager.SetXmlString(text("<Parameters><row>1</row><other>q</other></Parameters>"));
            break;
        case ApplyOverlay:
            m_form->SetChangedZORVA(
                text("<KVParamGui><Sheet>%1</Sheet></KVParamGui>")
                    .arg(widgetXml("", "row", {{"labelText", "Other"}, {"enabled", false}})));
            break;
        case TurnLoop:
            QCoreApplication::processEvents();
            break;
        default:
            break;
        }
    }

    QString m_text;
    bool m_bar;
    Answer m_answer;
    int m_answerAt;
    int m_heard = 0;
    bool m_answered = false;
    Listener m_listener;
    ValueListener m_valueListener;
    ZorvaFormularManager m_manager;
    QExplicitlySharedDataPointer<ZorvaFormular> m_form;
    QExplicitlySharedDataPointer<ZorvaFormular> m_new;
    QPointer<ZorvaFormular> m_watched;
    QPointer<QWidget> m_window;
    QPointer<QWidget> m_newWindow;
    QStringList m_withValue;
};

using Trigger = std::function<void(Host&)>;

void press(QWidget* widget, Qt::Key key)
{
    if (widget)
        QTest::keyClick(widget, key);
}

template <typename Control = QAbstractSpinBox>
Trigger key(const char* name, Qt::Key pressed)
{
    return [=](Host& host) { press(host.control<Control>(name), pressed); };
}

/// Types into a field that has the focus, and leaves it so.
template <typename Control>
Trigger typed(const char* name, const char* letters)
{
    return [=](Host& host) {
        const QPointer<Control> control = host.control<Control>(name);
        if (!control)
            return;
        QApplication::setActiveWindow(host.window());
        control->setFocus();
        if (QLineEdit* const edit = control->template findChild<QLineEdit*>())
            edit->selectAll();
        else if (auto* const line = qobject_cast<QLineEdit*>(control.data()))
            line->selectAll();
        for (const char* letter = letters; control && *letter; ++letter)
            QTest::keyClick(control.data(), *letter);
    };
}

Trigger both(const Trigger& first, const Trigger& second)
{
    return [=](Host& host) {
        first(host);
        second(host);
    };
}

Trigger script(const char* code)
{
    return [=](Host& host) {
        if (host.form())
            host.form()->EvaluateScript(text(code));
    };
}

Trigger parameters(const char* inner)
{
    return [=](Host& host) {
        if (host.form())
            host.manager().SetXmlString(text("<Parameters>%1</Parameters>").arg(text(inner)));
    };
}

Trigger overlay(const QString& rows)
{
    return [=](Host& host) {
        if (host.form())
            host.form()->SetChangedZORVA(
                text("<KVParamGui><Sheet name=\"sheet\">%1</Sheet></KVParamGui>").arg(rows));
    };
}

Trigger write(const char* row, const char* value)
{
    return [=](Host& host) {
        if (host.form())
            host.form()->SetVTValue(text(row), text(value), nullptr, true);
    };
}

/// By the value in the tree, as anybody who knows its path may.
Trigger treeWrite(const char* path, const char* value)
{
    return [=](Host&) {
        values::ValueBase* const found = values::Tree::Instance()->GetValue(text("/test/form/") + text(path));
        if (found)
            found->SetStringValue(text(value), nullptr);
    };
}

Trigger wheel(const char* name)
{
    return [=](Host& host) {
        auto* const control = host.control<QAbstractSpinBox>(name);
        if (!control)
            return;
        QApplication::setActiveWindow(host.window());
        control->setFocus();
        const QPointF at(control->rect().center());
        QWheelEvent event(at, control->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(control, &event);
    };
}

Trigger stepButton(const char* name)
{
    return [=](Host& host) {
        auto* const spin = host.control<QAbstractSpinBox>(name);
        if (!spin)
            return;
        QStyleOptionSpinBox option;
        option.initFrom(spin);
        option.subControls = QStyle::SC_All;
        const QRect up =
            spin->style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, spin);
        const QPointer<QWidget> alive(spin);
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, up.center(), Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            if (alive)
                QCoreApplication::sendEvent(alive, &event);
        }
    };
}

Trigger click(const char* name)
{
    return [=](Host& host) {
        if (auto* const button = host.control<QAbstractButton>(name))
            QTest::mouseClick(button, Qt::LeftButton);
    };
}

void withForm(Host& host, const std::function<void(ZorvaFormular&)>& act)
{
    if (host.form())
        act(*host.form());
}

Trigger onForm(const std::function<void(ZorvaFormular&)>& act)
{
    return [=](Host& host) { withForm(host, act); };
}

/// Opens an editor in the first cell, types, and ends it with Return.
Trigger cell(const char* name)
{
    return [=](Host& host) {
        const QPointer<QTableWidget> table = host.control<QTableWidget>(name);
        if (!table || !table->item(0, 0))
            return;
        if (host.form()) {
            const auto row = host.form()->GetSheet().GetWidget(text(name));
            QObject::connect(table.data(), SIGNAL(cellChanged(int, int)), row->GetDelegate(),
                             SLOT(sl_cellChanged(int, int)), Qt::UniqueConnection);
        }
        table->setCurrentCell(0, 0);
        if (!table)
            return;
        table->edit(table->model()->index(0, 0));
        QWidget* const editor = table->findChild<QAbstractSpinBox*>();
        if (!editor)
            return;
        QTest::keyClick(editor, Qt::Key_7);
        QTest::keyClick(editor, Qt::Key_Return);
    };
}

/// Runs @p act, which opens a dialog, and accepts it once it is open.
Trigger accepting(const Trigger& act)
{
    return [=](Host& host) {
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [] {
            if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
                dialog->accept();
        });
        timer.start(0);
        act(host);
    };
}

const QString modes()
{
    return enumXml("Modes",
                   {{"Slow", "MODE_SLOW", "1"}, {"Fast", "MODE_FAST", "2"}, {"Best", "MODE_BEST", "3"}});
}

QString row(const char* kind, const QList<FormProperty>& properties = {})
{
    return rowXml("Headline", "head", {{"text", "Group"}}) + rowXml(kind, "row", properties) +
           rowXml("LineEdit", "other", {{"text", "a"}});
}

} // namespace

Q_DECLARE_METATYPE(Trigger)

class TestLettingGo : public FormTest
{
    Q_OBJECT

private Q_SLOTS:
    void anyAnswerToAnySignal_data();
    void anyAnswerToAnySignal();
    void aFormLetGoIsSilent();
    void deletionWaitsForTheScript();
    void resetWhileTheManagerReads();
    void inputCanBeSwitchedInAnswer_data();
    void inputCanBeSwitchedInAnswer();
    void aHostsDialogFindsTheFormPainted();
    void aValueMayLiveOn_data();
    void aValueMayLiveOn();
    void controlsThatGoWithTheirRow_data();
    void controlsThatGoWithTheirRow();
    void controlsOfAListOutliveWhatIsUnderWay();

private:
    void add(const char* name, const QString& rows, const Trigger& trigger, const char* code = "");
};

void TestLettingGo::add(const char* name, const QString& rows, const Trigger& trigger, const char* code)
{
    QTest::newRow(name) << formXml(rows, modes(), text(code)) << trigger;
}

void TestLettingGo::anyAnswerToAnySignal_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<Trigger>("trigger");

    struct
    {
        const char* kind;
        QString rows;
    } const spins[] = {
        {"SpinBox", row("SpinBox", {{"value", 5}, {"maximum", 900}})},
        {"DoubleSpinBox", row("DoubleSpinBox", {{"value", 5}, {"maximum", 900}, {"decimals", 1}})},
        {"BandwidthEdit", row("BandwidthEdit", {{"value", 5}, {"maximum", 900}})},
        {"SpinBoxList", row("SpinBoxList", {{"itemCount", 2}, {"maximum", 900}})},
        {"DoubleSpinBoxList", row("DoubleSpinBoxList", {{"itemCount", 2}, {"maximum", 900}})},
        {"ShiftList", row("ShiftList", {{"shiftCount", 2}, {"maximum", 900}})},
    };
    const struct
    {
        const char* name;
        Trigger trigger;
    } spinTriggers[] = {
        {"Key_Up", key("row", Qt::Key_Up)},
        {"wheel", wheel("row")},
        {"step button", stepButton("row")},
        {"typed, Return", both(typed<QAbstractSpinBox>("row", "7"), key("row", Qt::Key_Return))},
        {"typed, left", both(typed<QAbstractSpinBox>("row", "7"),
                             [](Host& host) {
                                 if (auto* const other = host.control<QLineEdit>("other"))
                                     other->setFocus();
                             })},
        // The form may go while the focus is on its way to a control of the list.
        {"entered", both(typed<QLineEdit>("other", "7"),
                         [](Host& host) {
                             if (auto* const spin = host.control<QAbstractSpinBox>("row"))
                                 spin->setFocus();
                         })},
        {"typed, input off", both(typed<QAbstractSpinBox>("row", "7"),
                                  onForm([](ZorvaFormular& form) { form.EnableInput(false); }))},
        {"typed, group hidden", both(typed<QAbstractSpinBox>("row", "7"), onForm([](ZorvaFormular& form) {
                                         form.ShowGroup(text("head"), false);
                                     }))},
        {"limits", script("row.setMaximum(3); row.setMinimum(1); row.setSingleStep(2)")},
        {"script", script("row.setValue(7); row.setItemValue(0, 7); row.setItemValue(1, 8)")},
        {"read",
         parameters("<row>17<Item>8</Item></row><row><Item>1</Item><Item>2</Item></row><other>x</other>")},
        {"text", write("row", "8")},
        {"overlay", overlay(widgetXml("", "row", {{"value", 9}, {"maximum", 6}, {"visible", false}}) +
                            widgetXml("", "other", {{"text", "o"}}))},
        {"value", both(treeWrite("row", "6"), treeWrite("row_0", "6"))},
    };
    for (const auto& spin : spins) {
        for (const auto& trigger : spinTriggers)
            add(qPrintable(text("%1: %2").arg(text(spin.kind), text(trigger.name))), spin.rows,
                trigger.trigger);
    }

    const QString combo = row("ComboBox", {{"enumName", "Modes"}, {"currentValue", "1"}});
    add("ComboBox: Key_Down", combo, key<QComboBox>("row", Qt::Key_Down));
    add("ComboBox: script", combo, script("row.setCurrentValue('2'); row.setCurrentIndex(2)"));
    add("ComboBox: read a number between", combo, parameters("<row>1.5</row><other>x</other>"));
    add("ComboBox: value", combo, treeWrite("row_Modes", "Fast"));
    add("ComboBox: items of another", combo, onForm([](ZorvaFormular& form) {
            values::ValueSelection items(text("items"), ValueState::Normal);
            items.AddItem(text("one"), 1, 1, nullptr);
            items.AddItem(text("two"), 2, 2, nullptr);
            form.InitVTValue(text("row"), &items);
        }));
    add("ComboBox: overlay", combo, [](Host& host) {
        withForm(host, [](ZorvaFormular& form) {
            form.SetChangedZORVA(text("<KVParamGui><Enums>%1</Enums><Sheet/></KVParamGui>")
                                     .arg(enumXml("Modes", {{"New", "MODE_NEW", "9"}})));
        });
    });

    const QString check = row("CheckBox");
    add("CheckBox: click", check, click("row"));
    add("CheckBox: script", check, script("row.setChecked(true)"));
    add("CheckBox: read", check, parameters("<row>true</row><other>x</other>"));
    add("CheckBox: value", check, treeWrite("row", "true"));

    const QString line = row("LineEdit", {{"text", "t"}});
    add("LineEdit: letter", line, typed<QLineEdit>("row", "x"));
    add("LineEdit: Return", line, both(typed<QLineEdit>("row", "x"), key<QLineEdit>("row", Qt::Key_Return)));
    add("LineEdit: left", line, both(typed<QLineEdit>("row", "x"), typed<QLineEdit>("other", "y")));
    add("LineEdit: finished by script", line,
        both(typed<QLineEdit>("row", "x"), script("row.forceFinishEditing(); row.setText('z')")));
    add("LineEdit: collapsed", line, both(typed<QLineEdit>("row", "x"), click("head")));
    add("LineEdit: collapsed by the host", line,
        both(typed<QLineEdit>("row", "x"),
             onForm([](ZorvaFormular& form) { form.GetSheet().SetCollapsed({text("head")}); })));
    add("LineEdit: hidden window", line,
        both(typed<QLineEdit>("row", "x"), onForm([](ZorvaFormular& form) { form.Hide(); })));
    add("LineEdit: another form", line,
        both(typed<QLineEdit>("row", "x"), [](Host& host) { host.manager().ShowFormular(text("none")); }));
    add("LineEdit: read", line, parameters("<row>x</row><other>x</other>"));

    const QString frequency = row("FrequencyEdit", {{"value", "98500000"}});
    add("FrequencyEdit: Return", frequency,
        both(typed<QLineEdit>("row", "7"), key<QLineEdit>("row", Qt::Key_Return)));
    add("FrequencyEdit: input off", frequency,
        both(typed<QLineEdit>("row", "7"), onForm([](ZorvaFormular& form) { form.EnableInput(false); })));
    add("FrequencyEdit: hidden by overlay", frequency,
        both(typed<QLineEdit>("row", "7"), overlay(widgetXml("", "row", {{"visible", false}}))));
    add("FrequencyEdit: read", frequency, parameters("<row>99000000</row><other>x</other>"));
    add("FrequencyEdit: lock", row("FrequencyEdit", {{"MainFreqEdit", true}}),
        script("row.FrequencyLock = true; row.FrequencyLock = false; row.setValue(99000000)"));

    const QString range = row("FrequencyRangeEdit", {{"startFrequency", "1000000"},
                                                     {"stopFrequency", "2000000"},
                                                     {"startFrequencyParameterXmlTag", "Start"},
                                                     {"stopFrequencyParameterXmlTag", "Stop"}});
    add("FrequencyRangeEdit: Return", range,
        both(typed<QLineEdit>("row_StartFrequency", "7"),
             key<QLineEdit>("row_StartFrequency", Qt::Key_Return)));
    add("FrequencyRangeEdit: crossing", range, script("row.setStartFrequency(5000000); row.setRange(1, 2)"));
    add("FrequencyRangeEdit: read", range, parameters("<Start>3000000</Start><Stop>9000</Stop>"));
    add("FrequencyRangeEdit: value", range,
        both(treeWrite("row_1", "3000000"), treeWrite("row_2", "100000")));

    const QString hidden = row("HiddenParameter", {{"value", "1"}});
    add("HiddenParameter: overlay", hidden, overlay(widgetXml("", "row", {{"value", "2"}})));
    add("HiddenParameter: read", hidden, parameters("<row>3</row><other>x</other>"));
    add("HiddenParameter: value", hidden, treeWrite("row", "4"));
    add("HiddenList", row("HiddenList", {{"itemCount", 2}}),
        both(script("row.setItemValue(0, 'a'); row.setItemValue(5, 'b')"),
             parameters("<row><i>1</i><i>2</i></row>")));
    add("HiddenTable", row("HiddenTable", {{"rowCount", 2}, {"columnCount", 2}}),
        both(script("row.setItemValue(0, 0, 'a'); row.clear()"),
             parameters("<row><i row=\"1\" column=\"1\">1</i><i row=\"0\" column=\"1\">2</i></row>")));
    add("HiddenMap", row("HiddenMap"),
        script("row.setValue('a', '1'); row.setValue('a', '2'); row.remove('a')"));

    const QString table = row("TableWidget", {{"rowCount", 2}, {"columnCount", 2}});
    add("TableWidget: cells", table, cell("row"));
    add("TableWidget: script", table, script("row.setItemValue(0, 0, 1); row.clear(); row.setRowCount(3)"));
    const QString spacing = row("ChannelSpacingTable", {{"spacingsCount", 2}, {"maximum", 900}});
    add("ChannelSpacingTable: cells", spacing, cell("row"));
    add("ChannelSpacingTable: script", spacing, script("row.setSpacingValue(0, 1); row.setSpacingsCount(3)"));

    const QString button = row("PushButton", {{"text", "Go"}});
    add("PushButton: announce last", button, click("row"),
        "row.clicked.connect(function() { other.setText('b'); sheet.emitParametersXml(); });");
    add("PushButton: announce and more", button, click("row"),
        "row.clicked.connect(function() { sheet.emitParametersXml(); other.setText('c'); "
        "sheet.setModified(true); sheet.applyNow(); other.setModified(true); row.setText('d'); });");
    add("PushButton: marks", button, click("row"),
        "row.pressed.connect(function() { other.setModified(true); other.setCustomProperty('a', 1); });");
    add("script announces", button,
        script("sheet.emitParametersXml(); other.setModified(true); sheet.applyNow();"));
    add("script at the start", button,
        onForm([](ZorvaFormular& form) { form.CreateValueTree(text("/test/form")); }),
        "other.setText('x'); sheet.emitParametersXml(); other.setCustomProperty('a', new Date().getTime());");
    add("ScriptControl", row("ScriptControl", {{"enabledLoad", true}, {"visibleLoad", true}}),
        both(click("row_LoadButton"), script("row.setCustomProperty('scriptloaded', true)")));

    add("FFT", row("SpecialObject_FFT"), script("row.setSignalSampleRate(48000); row.setFFTLength(1024)"));
    add("special objects",
        rowXml("SpecialObject_Tuner", "tuner") + rowXml("SpecialObject_Audio", "audio") +
            rowXml("SpecialObject_DSC", "dsc"),
        script(
            "tuner.emitSegmentChanged(1, 2); audio.emitAudioSourceAnalog(); dsc.emitEditScriptBtnClicked()"));
    add("FHP: dialog by script", row("SpecialObject_FHP"),
        accepting(script("row.emitEditExclusionRangesBtnClicked(); other.setText('x')")));
    add("DSC: dialog by script", row("SpecialObject_DSC"),
        accepting(script("row.emitEditExclusionRangesBtnClicked(); other.setText('x')")));
    add("FHP: read", row("SpecialObject_FHP"),
        parameters("<ExclusionRanges><ExclusionRange><StartFreq>1</StartFreq><StopFreq>2</StopFreq>"
                   "</ExclusionRange></ExclusionRanges><other>x</other>"));
    add("apply", line, both(typed<QLineEdit>("row", "x"), click("applyButton")));
    add("text size", line, [](Host& host) {
        withForm(host, [](ZorvaFormular& form) {
            QMetaObject::invokeMethod(form.GetSheet().GetDelegate(), "si_chooseFontSize", Q_ARG(int, 14));
        });
    });
}

void TestLettingGo::anyAnswerToAnySignal()
{
    QFETCH(QString, form);
    QFETCH(Trigger, trigger);
    // The offscreen platform's word on the hint that a refused text shows.
    m_messages->allow(QRegularExpression(text("does not support raise")));
    constexpr int mostNotices = 8;
    for (const bool bar : {false, true}) {
        int notices = 0;
        {
            Host host(form, bar, ListenOnly, 0);
            trigger(host);
            notices = qMin(host.heard(), mostNotices);
        }
        for (int answer = 0; answer < ListenOnly; ++answer) {
            for (int at = 1; at <= notices; ++at) {
                const QString where = text("%1 at notice %2, %3")
                                          .arg(text(answerNames[answer]))
                                          .arg(at)
                                          .arg(text(bar ? "bar" : "no bar"));
                QPointer<ZorvaFormular> watched;
                QString fault;
                {
                    Host host(form, bar, static_cast<Answer>(answer), at);
                    watched = host.watched();
                    trigger(host);
                    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                    QCoreApplication::processEvents();
                    fault = host.checkNew();
                    if (host.hasAnswered() && letsTheFormGo(answer) && watched)
                        fault = text("the form lives on");
                }
                QVERIFY2(fault.isEmpty(), qPrintable(where + text(": ") + fault));
                QVERIFY2(!watched, qPrintable(where));
                QVERIFY2(leftovers().isEmpty(), qPrintable(where + text(": ") + leftovers()));
            }
        }
    }
}

void TestLettingGo::aFormLetGoIsSilent()
{
    QExplicitlySharedDataPointer<ZorvaFormular> form(ZorvaParser().ParseZORVA(formXml(row("SpinBox"))));
    const QPointer<ZorvaFormular> watched(form.data());
    form->CreateValueTree(text("/test"));
    int heard = 0;
    connect(form.data(), &ZorvaFormular::si_parametersModified, this, [&] {
        ++heard;
        form.reset();
    });
    form->EvaluateScript(
        text("sheet.emitParametersXml(); sheet.emitParametersXml(); row.setModified(true);"));
    QCOMPARE(heard, 1);
    QVERIFY(!form);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!watched);
}

void TestLettingGo::deletionWaitsForTheScript()
{
    QPointer<ZorvaFormular> form = ZorvaParser().ParseZORVA(formXml(row("SpecialObject_FHP")));
    form->CreateValueTree(text("/test"));
    form->CreateGUI(false);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    bool wasThere = false;
    QObject context;
    QTimer::singleShot(0, &context, [&] { form->deleteLater(); });
    QTimer::singleShot(10, &context, [&] {
        wasThere = form;
        QApplication::activeModalWidget()->close();
    });
    form->EvaluateScript(text("row.emitEditExclusionRangesBtnClicked(); other.setText('z')"));
    QVERIFY(wasThere);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!form);
}

void TestLettingGo::resetWhileTheManagerReads()
{
    ZorvaFormularManager manager;
    manager.SetVTPath(text("/test"));
    manager.DefineFormular(text("form"), formXml(row("SpinBox")));
    ValueListener watcher;
    const QPointer<ZorvaFormular> form = manager.GetFormular(text("form")).data();
    QVERIFY(form);
    watcher.heard = [&] { manager.Reset(); };
    watcher.listenTo(form->GetVTValue(text("other")));
    manager.ShowFormular(text("form"));
    manager.SetXmlString(text("<Parameters><other>n</other><row>4</row></Parameters>"));
    QVERIFY(!manager.GetCurrentFormular());
    QVERIFY(manager.GetXmlString(false).isNull());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!form);
}

void TestLettingGo::inputCanBeSwitchedInAnswer_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("field");
    QTest::addColumn<bool>("group");
    for (const bool group : {false, true}) {
        const QString way = group ? text(" hidden") : text(" off");
        QTest::newRow(qPrintable(text("LineEdit") + way)) << row("LineEdit") << text("row") << group;
        QTest::newRow(qPrintable(text("SpinBox") + way)) << row("SpinBox") << text("row") << group;
        QTest::newRow(qPrintable(text("SpinBoxList") + way))
            << row("SpinBoxList", {{"itemCount", 1}}) << text("row_0") << group;
        QTest::newRow(qPrintable(text("FrequencyEdit") + way))
            << row("FrequencyEdit") << text("row") << group;
    }
}

void TestLettingGo::inputCanBeSwitchedInAnswer()
{
    QFETCH(QString, rows);
    QFETCH(QString, field);
    QFETCH(bool, group);
    const QExplicitlySharedDataPointer<ZorvaFormular> form(ZorvaParser().ParseZORVA(formXml(rows)));
    form->CreateValueTree(text("/test"));
    form->CreateGUI(false);
    const std::unique_ptr<QWidget> window(form->GetGUI());
    window->show();
    QApplication::setActiveWindow(window.get());
    auto* const control = window->findChild<QWidget*>(field);
    auto* const other = window->findChild<QWidget*>(text("other"));
    control->setFocus();
    if (auto* const line = qobject_cast<QLineEdit*>(control))
        line->selectAll();
    QTest::keyClick(control, Qt::Key_7);
    // Typing a letter marks some kinds; what counts is what comes when it is made final.
    form->GetXmlString(true);
    int heard = 0;
    connect(form.data(), &ZorvaFormular::si_parametersModified, this, [&] {
        ++heard;
        form->EnableInput(true);
        form->ShowGroup(text("head"), true);
    });
    const auto close = [&] { group ? form->ShowGroup(text("head"), false) : form->EnableInput(false); };
    close();
    QCOMPARE(heard, 1);
    QCOMPARE(form->IsInputEnabled(), group);
    QCOMPARE(control->isEnabled() && !control->isHidden(), false);
    QCOMPARE(other->isEnabled() && !other->isHidden(), false);
    form->EnableInput(true);
    form->ShowGroup(text("head"), true);
    QVERIFY(control->isEnabled());
    QVERIFY(other->isEnabled());
    QVERIFY(!other->isHidden());
}

void TestLettingGo::aHostsDialogFindsTheFormPainted()
{
    FormFixture form(row("SpinBox"));
    form.show();
    auto* const control = form.control<QWidget>("row");
    bool held = false;
    bool painted = false;
    ValueListener watcher;
    watcher.heard = [&] {
        held = !control->updatesEnabled();
        QCoreApplication::processEvents();
        painted = control->updatesEnabled();
    };
    watcher.listenTo(form.value<values::NumericInt>("row"));
    form.formular()->SetChangedZORVA(
        text("<KVParamGui><Sheet>%1</Sheet></KVParamGui>").arg(widgetXml("", "row", {{"value", 9}})));
    QVERIFY(held);
    QVERIFY(painted);
    QVERIFY(control->updatesEnabled());
}

void TestLettingGo::aValueMayLiveOn_data()
{
    QTest::addColumn<QString>("rows");
    const QString kinds[] = {
        row("SpinBox"),
        row("DoubleSpinBox"),
        row("BandwidthEdit"),
        row("SpinBoxList", {{"itemCount", 3}}),
        row("DoubleSpinBoxList", {{"itemCount", 3}}),
        row("ComboBox", {{"enumName", "Modes"}}),
        row("CheckBox"),
        row("LineEdit"),
        row("Label"),
        row("HiddenParameter"),
        row("FrequencyEdit"),
        row("FrequencyEdit", {{"MainFreqEdit", true}}),
        row("FrequencyRangeEdit"),
        row("SpecialObject_FHP"),
        row("SpecialObject_DSC"),
    };
    for (const QString& kind : kinds) {
        const QString name = kind.section(text("class=\""), 2, 2).section(QLatin1Char('"'), 0, 0);
        QTest::newRow(qPrintable(name)) << kind;
    }
}

// A value that says it goes and then stays must not keep anybody who left it.
void TestLettingGo::aValueMayLiveOn()
{
    QFETCH(QString, rows);
    QExplicitlySharedDataPointer<ZorvaFormular> form(ZorvaParser().ParseZORVA(formXml(rows, modes())));
    form->CreateValueTree(text("/test"));
    form->CreateGUI(true);
    std::unique_ptr<QWidget> window(form->GetGUI());
    values::Tree* const tree = values::Tree::Instance();
    const QStringList paths = tree->GetPathNames();
    for (const QString& path : paths)
        tree->GetValue(path)->SetState(ValueState::GoingAway, nullptr);
    form.reset();
    window.reset();
    for (const QString& path : paths) {
        values::ValueBase* const value = tree->GetValue(path);
        QVERIFY(value);
        QCOMPARE(value->GetObserverCount(), 0);
        value->SetState(ValueState::Normal, nullptr);
        value->SetStringValue(text("1"), nullptr);
        tree->RemoveValue(path);
    }
}

void TestLettingGo::controlsThatGoWithTheirRow_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<bool>("goes");
    QTest::newRow("SpinBoxList") << row("SpinBoxList", {{"itemCount", 2}}) << true;
    QTest::newRow("DoubleSpinBoxList") << row("DoubleSpinBoxList", {{"itemCount", 2}}) << true;
    QTest::newRow("ChannelSpacingTable") << row("ChannelSpacingTable", {{"spacingsCount", 2}}) << true;
    QTest::newRow("SpinBox") << row("SpinBox") << false;
    QTest::newRow("TableWidget") << row("TableWidget", {{"rowCount", 2}, {"columnCount", 2}}) << false;
}

void TestLettingGo::controlsThatGoWithTheirRow()
{
    QFETCH(QString, rows);
    QFETCH(bool, goes);
    FormFixture form(rows);
    const QPointer<QWidget> control = form.control<QWidget>("row");
    QVERIFY(control);
    form.deleteForm();
    QVERIFY(form.window());
    QCOMPARE(control.isNull(), goes);
}

void TestLettingGo::controlsOfAListOutliveWhatIsUnderWay()
{
    FormFixture form(row("SpinBoxList", {{"itemCount", 2}}));
    const QPointer<QWidget> control = form.control<QWidget>("row_0");
    QVERIFY(control);
    bool outlives = false;
    ValueListener watcher;
    watcher.heard = [&] {
        form.deleteForm();
        outlives = control;
    };
    watcher.listenTo(form.value<values::ValueBase>("other"));
    form.value<values::ValueBase>("other")->SetStringValue(text("x"), nullptr);
    QVERIFY(outlives);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!control);
}

QTEST_MAIN(TestLettingGo)
#include "tst_lettinggo.moc"
