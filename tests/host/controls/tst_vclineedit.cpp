#include <basicvaluewidgets/vclineedit.h>

#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <valueframework/value.h>
#include <valueframework/valuenumeric.h>

#include <QHBoxLayout>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <memory>

class TestVCLineEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void typingWritesNothing();
    void finalMoments_data();
    void finalMoments();
    void untouchedTextStaysAlone();
    void signalComesBeforeTheValue();
    void finalBeforeReturnPressed();
    void listenersWordStands();
    void escapeBringsTheOldTextBack();
    void followsTheValueWhileTyping();
    void maskAndLength();
    void incompleteMaskIsRefused();
    void plainNumberTakesNoWords();
    void unboundKeepsText();
    void listenerMayDelete_data();
    void listenerMayDelete();

    void showsFrequencies();
    void typedFrequency_data();
    void typedFrequency();
    void wrongFrequency_data();
    void wrongFrequency();
    void readingIsShownWhileTyping();
    void refusalOnLeavingStays();
    void enteredFrequenciesAreWalked();
    void listenerMayDeleteWhileRefreshed();
    void readOnlyStandsOnTheWindow();
    void sameFrequencyIsNotWritten();
    void waitsWhileAFrequencyIsTyped();
    void unitShown();

private:
    VCLineEdit* make(VCLineEdit::LineEditType type, values::ValueBase* value);

    std::unique_ptr<MessageGuard> m_guard;
    std::unique_ptr<values::ValueString> m_text;
    std::unique_ptr<values::NumericDouble> m_frequency;
    std::unique_ptr<QWidget> m_window;
    QLineEdit* m_other = nullptr;
};

void TestVCLineEdit::init()
{
    m_guard = std::make_unique<MessageGuard>();
    m_guard->allow(QRegularExpression(QStringLiteral("^This plugin does not support"))); // offscreen
    m_text = std::make_unique<values::ValueString>(QStringLiteral("t"), ValueState::Normal);
    m_text->SetValue(QStringLiteral("old"), nullptr);
    m_frequency = std::make_unique<values::NumericDouble>(QStringLiteral("f"), ValueState::Normal);
    m_frequency->SetMinMax(8000.0, 26.5e9, 1.0, nullptr);
    m_frequency->SetValue(98.5e6, nullptr);
    m_window = std::make_unique<QWidget>();
    new QHBoxLayout(m_window.get());
    m_other = new QLineEdit(m_window.get());
    m_window->layout()->addWidget(m_other);
}

void TestVCLineEdit::cleanup()
{
    QToolTip::hideText();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->inherits("QTipLabel"))
            delete widget;
    }
    m_window.reset();
    m_text.reset();
    m_frequency.reset();
    m_guard.reset();
    QCOMPARE(leftovers(), QString());
}

VCLineEdit* TestVCLineEdit::make(VCLineEdit::LineEditType type, values::ValueBase* value)
{
    auto* edit = new VCLineEdit(m_window.get(), "edit", type);
    m_window->layout()->addWidget(edit);
    edit->SetValueBase(value);
    m_window->show();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qWarning("the window did not become active");
    edit->setFocus();
    edit->selectAll();
    return edit;
}

void TestVCLineEdit::typingWritesNothing()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    QCOMPARE(edit->text(), QStringLiteral("old"));
    QSignalSpy finally(edit, &VCLineEdit::signalTextFinallyChanged);
    QTest::keyClicks(edit, QStringLiteral("new"));
    QCOMPARE(m_text->GetValue(), QStringLiteral("old"));
    QCOMPARE(finally.count(), 0);
}

void TestVCLineEdit::finalMoments_data()
{
    QTest::addColumn<int>("moment");
    QTest::newRow("Return") << 0;
    QTest::newRow("Enter") << 1;
    QTest::newRow("leaving") << 2;
    QTest::newRow("endEdit") << 3;
}

void TestVCLineEdit::finalMoments()
{
    QFETCH(int, moment);
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    QSignalSpy finally(edit, &VCLineEdit::signalTextFinallyChanged);
    QTest::keyClicks(edit, QStringLiteral("new"));
    if (moment < 2)
        QTest::keyClick(edit, moment ? Qt::Key_Enter : Qt::Key_Return);
    else if (moment == 2)
        m_other->setFocus();
    else
        edit->endEdit();
    QCOMPARE(m_text->GetValue(), QStringLiteral("new"));
    edit->endEdit();
    m_other->setFocus();
    QCOMPARE(finally.count(), 1);
    QCOMPARE(finally.first().first().toString(), QStringLiteral("new"));
}

void TestVCLineEdit::untouchedTextStaysAlone()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    QSignalSpy finally(edit, &VCLineEdit::signalTextFinallyChanged);
    QSignalSpy returned(edit, &QLineEdit::returnPressed);
    edit->endEdit();
    QTest::keyClick(edit, Qt::Key_Return);
    m_other->setFocus();
    QCOMPARE(finally.count(), 0);
    QCOMPARE(returned.count(), 1);
}

void TestVCLineEdit::signalComesBeforeTheValue()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    QString seen;
    connect(edit, &VCLineEdit::signalTextFinallyChanged, this, [&] { seen = m_text->GetValue(); });
    RecordingObserver observer;
    observer.watch(m_text.get());
    QTest::keyClicks(edit, QStringLiteral("new"));
    edit->endEdit();
    QCOMPARE(seen, QStringLiteral("old"));
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{ChangeCode::Content});
}

void TestVCLineEdit::finalBeforeReturnPressed()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    QString seen;
    connect(edit, &QLineEdit::returnPressed, this, [&] { seen = m_text->GetValue(); });
    QTest::keyClicks(edit, QStringLiteral("new"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(seen, QStringLiteral("new"));
}

void TestVCLineEdit::listenersWordStands()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    connect(edit, &VCLineEdit::signalTextFinallyChanged, this,
            [this](const QString& text) { m_text->SetValue(text.toUpper(), nullptr); });
    QTest::keyClicks(edit, QStringLiteral("new"));
    edit->endEdit();
    QCOMPARE(m_text->GetValue(), QStringLiteral("NEW"));
    QCOMPARE(edit->text(), QStringLiteral("NEW"));
}

void TestVCLineEdit::escapeBringsTheOldTextBack()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    QTest::keyClicks(edit, QStringLiteral("new"));
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(edit->text(), QStringLiteral("old"));
    m_other->setFocus();
    QCOMPARE(m_text->GetValue(), QStringLiteral("old"));
}

void TestVCLineEdit::followsTheValueWhileTyping()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    QTest::keyClicks(edit, QStringLiteral("ne"));
    m_text->SetValue(QStringLiteral("outside"), nullptr);
    QCOMPARE(edit->text(), QStringLiteral("outside"));
    QVERIFY(!edit->isModified());
}

void TestVCLineEdit::maskAndLength()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    edit->setProperty("maxLength", 3);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("abcdef"));
    edit->endEdit();
    QCOMPARE(m_text->GetValue(), QStringLiteral("abc"));
}

void TestVCLineEdit::incompleteMaskIsRefused()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    m_text->SetValue(QStringLiteral("12-34"), nullptr);
    edit->setProperty("inputMask", QStringLiteral("99-99"));
    QSignalSpy finally(edit, &VCLineEdit::signalTextFinallyChanged);
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("5"));
    m_other->setFocus();
    QCOMPARE(edit->text(), QStringLiteral("12-34"));
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("5678"));
    m_other->setFocus();
    QCOMPARE(m_text->GetValue(), QStringLiteral("56-78"));
    QCOMPARE(finally.count(), 1);
}

void TestVCLineEdit::plainNumberTakesNoWords()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_frequency.get());
    QCOMPARE(edit->text(), QStringLiteral("98500000"));
    QTest::keyClicks(edit, QStringLiteral("word"));
    edit->endEdit();
    QCOMPARE(edit->text(), QStringLiteral("98500000"));
}

void TestVCLineEdit::unboundKeepsText()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, nullptr);
    QSignalSpy finally(edit, &VCLineEdit::signalTextFinallyChanged);
    QTest::keyClicks(edit, QStringLiteral("new"));
    edit->endEdit();
    QTest::keyClicks(edit, QStringLiteral("er"));
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(edit->text(), QStringLiteral("new"));
    QCOMPARE(finally.count(), 1);
}

void TestVCLineEdit::listenerMayDelete_data()
{
    QTest::addColumn<bool>("control");
    QTest::addColumn<int>("type");
    QTest::newRow("the control, plain") << true << 0;
    QTest::newRow("the control, frequency") << true << 1;
    QTest::newRow("the value, plain") << false << 0;
    QTest::newRow("the value, frequency") << false << 1;
}

void TestVCLineEdit::listenerMayDelete()
{
    QFETCH(bool, control);
    QFETCH(int, type);
    values::ValueBase* value = type ? static_cast<values::ValueBase*>(m_frequency.get()) : m_text.get();
    QPointer<VCLineEdit> edit = make(static_cast<VCLineEdit::LineEditType>(type), value);
    connect(edit, &VCLineEdit::signalTextFinallyChanged, this, [&] {
        if (control)
            delete edit.data();
        m_text.reset();
        m_frequency.reset();
    });
    QTest::keyClicks(edit, QStringLiteral("9000"));
    edit->endEdit();
    QVERIFY(!edit || !edit->isEnabled());
}

void TestVCLineEdit::showsFrequencies()
{
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    QCOMPARE(edit->text(), QStringLiteral("98.5 MHz"));
    m_frequency->SetValue(8000.0, nullptr);
    QCOMPARE(edit->text(), QStringLiteral("8 kHz"));
}

void TestVCLineEdit::typedFrequency_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<double>("hertz");
    QTest::newRow("with unit") << "100 MHz"
                               << "100 MHz" << 100e6;
    QTest::newRow("bare number in the unit shown") << "101.7"
                                                   << "101.7 MHz" << 101.7e6;
    QTest::newRow("whole bare number in the unit shown") << "9000"
                                                         << "9 GHz" << 9e9;
    QTest::newRow("bare number in hertz") << "98500000"
                                          << "98.5 MHz" << 98.5e6;
    QTest::newRow("comma as point") << "101,7"
                                    << "101.7 MHz" << 101.7e6;
    QTest::newRow("every hertz") << "26.499999999g"
                                 << "26.499999999 GHz" << 26499999999.0;
}

void TestVCLineEdit::typedFrequency()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    QSignalSpy finally(edit, &VCLineEdit::signalTextFinallyChanged);
    QTest::keyClicks(edit, typed);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edit->text(), shown);
    QTEST(m_frequency->GetValue(), "hertz");
    QCOMPARE(finally.count(), 1);
    QCOMPARE(finally.first().first().toString(), shown);
}

void TestVCLineEdit::wrongFrequency_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("hint");
    QTest::newRow("a word") << "abc"
                            << "98.5 MHz";
    QTest::newRow("empty") << ""
                           << "98.5 MHz";
    QTest::newRow("unknown unit") << "5 THz"
                                  << "98.5 MHz";
    QTest::newRow("below the limit") << "1 kHz"
                                     << "8 kHz is the lowest";
    QTest::newRow("above the limit") << "99g"
                                     << "26.5 GHz is the highest";
}

void TestVCLineEdit::wrongFrequency()
{
    QFETCH(QString, typed);
    QFETCH(QString, hint);
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    QSignalSpy finally(edit, &VCLineEdit::signalTextFinallyChanged);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, typed);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(edit->text(), QStringLiteral("98.5 MHz"));
    QCOMPARE(m_frequency->GetValue(), 98.5e6);
    QCOMPARE(finally.count(), 0);
    QTRY_VERIFY(QToolTip::isVisible());
    QCOMPARE(edit->accessibleDescription(), QToolTip::text());
    QVERIFY(QToolTip::text().contains(hint));
    QTest::keyClicks(edit, QStringLiteral("99 MHz"));
    QCOMPARE(edit->accessibleDescription(), QStringLiteral("8 kHz ... 26.5 GHz"));
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("99 MHz"));
}

void TestVCLineEdit::readingIsShownWhileTyping()
{
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    QTest::keyClicks(edit, QStringLiteral("101.7"));
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("101.7 MHz"));
    QTest::keyClicks(edit, QStringLiteral(" k"));
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("101.7 kHz"));
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(m_frequency->GetValue(), 101.7e3);
    QTRY_VERIFY(!QToolTip::isVisible() || QToolTip::text() != QStringLiteral("101.7 kHz"));
}

void TestVCLineEdit::refusalOnLeavingStays()
{
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    QTest::keyClicks(edit, QStringLiteral("99g"));
    m_other->setFocus();
    QCOMPARE(edit->text(), QStringLiteral("98.5 MHz"));
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("26.5 GHz is the highest"));
}

void TestVCLineEdit::enteredFrequenciesAreWalked()
{
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    for (const char* typed : {"100 MHz", "101 MHz"}) {
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromLatin1(typed));
        QTest::keyClick(edit, Qt::Key_Return);
    }
    QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_frequency->GetValue(), 100e6);
    QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_frequency->GetValue(), 98.5e6);
    QCOMPARE(edit->text(), QStringLiteral("98.5 MHz"));
    QTest::keyClick(edit, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(m_frequency->GetValue(), 100e6);
    edit->setReadOnly(true);
    QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_frequency->GetValue(), 100e6);
}

void TestVCLineEdit::listenerMayDeleteWhileRefreshed()
{
    QPointer<VCLineEdit> edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    connect(edit, &QLineEdit::textChanged, this, [&edit] { delete edit; });
    m_frequency->SetValue(8000.0, nullptr);
    QVERIFY(!edit);
}

void TestVCLineEdit::readOnlyStandsOnTheWindow()
{
    VCLineEdit* edit = make(VCLineEdit::ekPlainText, m_text.get());
    const QColor writable = edit->palette().color(QPalette::Base);
    edit->setReadOnly(true);
    QCOMPARE(edit->palette().color(QPalette::Base), edit->palette().color(QPalette::Window));
    edit->setReadOnly(false);
    QCOMPARE(edit->palette().color(QPalette::Base), writable);
}

void TestVCLineEdit::sameFrequencyIsNotWritten()
{
    m_frequency->SetValue(98500000.0001, nullptr);
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    QTest::keyClicks(edit, QStringLiteral("98.5M"));
    edit->endEdit();
    QCOMPARE(m_frequency->GetValue(), 98500000.0001);
}

void TestVCLineEdit::waitsWhileAFrequencyIsTyped()
{
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    QTest::keyClicks(edit, QStringLiteral("10"));
    m_frequency->SetValue(200e6, nullptr);
    QCOMPARE(edit->text(), QStringLiteral("10"));
    QTest::keyClick(edit, Qt::Key_Escape);
    QCOMPARE(edit->text(), QStringLiteral("200 MHz"));
    edit->selectAll();
    QTest::keyClicks(edit, QStringLiteral("10k"));
    m_frequency->SetValue(300e6, nullptr);
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(m_frequency->GetValue(), 10000.0);
}

void TestVCLineEdit::unitShown()
{
    VCLineEdit* edit = make(VCLineEdit::ekFrequencyText, m_frequency.get());
    edit->SetFrequencyUnit(FrequencyText::Unit::Kilohertz);
    QCOMPARE(edit->text(), QStringLiteral("98500 kHz"));
}

QTEST_MAIN(TestVCLineEdit)
#include "tst_vclineedit.moc"
