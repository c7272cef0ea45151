#include <basicvaluewidgets/fieldsize.h>
#include <basicvaluewidgets/vcnumericfloatspin.h>

#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <valueframework/tree.h>
#include <valueframework/value.h>
#include <valueframework/valuenumeric.h>

#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>
#include <limits>
#include <memory>

namespace {

bool wheel(QWidget* widget, int notches)
{
    QWheelEvent event(QPointF(5, 5), widget->mapToGlobal(QPoint(5, 5)), {}, QPoint(0, notches * 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

} // namespace

Q_DECLARE_METATYPE(VCNumericFloatSpin::Display)

class TestVCNumericFloatSpin : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void madeAsAWhole_data();
    void madeAsAWhole();
    void showsTheDisplayNumber();
    void typingCommits_data();
    void typingCommits();
    void typedTexts_data();
    void typedTexts();
    void roundingDoesNotWrite();
    void stepsWrite_data();
    void stepsWrite();
    void buttonsStep();
    void stepInDisplayTerms();
    void fineStepCounts();
    void stepAfterTyping();
    void wrapAround();
    void noSteps();
    void wheelNeedsFocus();
    void readsLimitsAgain();
    void limitProperties();
    void negativeFactor();
    void factorZero();
    void wholeNumbersKeepTheirValue();
    void numberBeyondTheCap();
    void specialValueText();
    void suffixIsSpaced();
    void valuePath();
    void undoAndRedo();
    void waitsWhileTyping();
    void escapeDropsTyped();
    void readOnly();
    void widthStaysOrdinary();
    void hintsEqualForEqualControls();
    void refusedTextGetsAHint_data();
    void refusedTextGetsAHint();
    void pointInEveryLocale();
    void buttonsThatDoNothingGo();
    void listenerMayDeleteWhileRefreshed();
    void unboundWorks();
    void listenerMayDelete();

private:
    void type(const QString& text);

    std::unique_ptr<MessageGuard> m_guard;
    std::unique_ptr<values::NumericDouble> m_value;
    std::unique_ptr<QWidget> m_window;
    VCNumericFloatSpin* m_spin = nullptr;
    QLineEdit* m_other = nullptr;
};

void TestVCNumericFloatSpin::init()
{
    m_guard = std::make_unique<MessageGuard>();
    m_guard->allow(QRegularExpression(QStringLiteral("^This plugin does not support"))); // offscreen
    m_value = std::make_unique<values::NumericDouble>(QStringLiteral("n"), ValueState::Normal);
    m_value->SetMinMax(0.0, 1000.0, 1.0, nullptr);
    m_value->SetValue(10.0, nullptr);
    m_window = std::make_unique<QWidget>();
    new QHBoxLayout(m_window.get());
    m_other = new QLineEdit(m_window.get());
    m_spin = new VCNumericFloatSpin(m_window.get(), "spin", true);
    m_window->layout()->addWidget(m_other);
    m_window->layout()->addWidget(m_spin);
    m_spin->SetNumericValue(m_value.get());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_spin->setFocus();
}

void TestVCNumericFloatSpin::cleanup()
{
    m_window.reset();
    m_value.reset();
    m_guard.reset();
    QCOMPARE(leftovers(), QString());
}

void TestVCNumericFloatSpin::type(const QString& text)
{
    m_spin->setFocus();
    m_spin->selectAll();
    QTest::keyClicks(m_spin, text);
}

void TestVCNumericFloatSpin::madeAsAWhole_data()
{
    using Display = VCNumericFloatSpin::Display;
    QTest::addColumn<Display>("display");
    QTest::addColumn<double>("number");
    const double infinite = std::numeric_limits<double>::infinity();
    QTest::newRow("plain") << Display() << 10.0;
    QTest::newRow("zero") << Display() << 0.0;
    QTest::newRow("no value") << Display{QStringLiteral("dB"), 1, 2.0, 3.0, 4.0} << std::nan("");
    QTest::newRow("word") << Display{QStringLiteral("dB"), 1} << 2.5;
    QTest::newRow("sign") << Display{QStringLiteral("%"), 0} << 2.5;
    QTest::newRow("turned") << Display{QString(), 2, 1.5, -2.0} << 999.0;
    QTest::newRow("megahertz") << Display{QStringLiteral("MHz"), 6, 0.0, 1.0, 1e6} << 1000.0;
    QTest::newRow("at zero") << Display{QString(), 3, 1.0, 0.0} << 7.0;
    QTest::newRow("unusable") << Display{QString(), -3, -infinite, infinite, 0.0} << 7.0;
    QTest::newRow("many decimals") << Display{QString(), 99} << 7.0;
    QTest::newRow("beyond the cap") << Display{QString(), 0, 0.0, 1e18} << 500.0;
}

void TestVCNumericFloatSpin::madeAsAWhole()
{
    QFETCH(const VCNumericFloatSpin::Display, display);
    QFETCH(const double, number);
    values::NumericDouble* const value = std::isnan(number) ? nullptr : m_value.get();
    if (value)
        value->SetValue(number, nullptr);
    VCNumericFloatSpin stepwise(nullptr, nullptr, true);
    stepwise.setSuffix(display.suffix);
    stepwise.setAdditionalPrecision(display.decimals);
    stepwise.SetDisplayAdditveOffset(display.offset);
    stepwise.SetDisplayScalingFactor(display.factor);
    stepwise.SetUnitScale(display.unitScale);
    stepwise.SetNumericValue(value);
    const VCNumericFloatSpin whole(nullptr, true, display, value);
    QCOMPARE(whole.text(), stepwise.text());
    QVERIFY(!whole.text().isEmpty());
    QCOMPARE(whole.value(), stepwise.value());
    QCOMPARE(whole.minimum(), stepwise.minimum());
    QCOMPARE(whole.maximum(), stepwise.maximum());
    QCOMPARE(whole.decimals(), stepwise.decimals());
    QCOMPARE(whole.suffix(), stepwise.suffix());
    QCOMPARE(whole.displayAdditiveOffset(), stepwise.displayAdditiveOffset());
    QCOMPARE(whole.RangeText(), stepwise.RangeText());
    QCOMPARE(whole.sizeHint(), stepwise.sizeHint());
    QCOMPARE(whole.minimumSizeHint(), stepwise.minimumSizeHint());
    QCOMPARE(whole.isEnabled(), stepwise.isEnabled());
    const auto* const line = whole.findChild<QLineEdit*>();
    QCOMPARE(line->cursorPosition(), stepwise.findChild<QLineEdit*>()->cursorPosition());
    QVERIFY(!line->isModified());
    if (value)
        value->SetValue(300.0, nullptr);
    QCOMPARE(whole.text(), stepwise.text());
}

void TestVCNumericFloatSpin::showsTheDisplayNumber()
{
    m_spin->SetFactor(2);
    m_spin->SetDisplayAdditveOffset(3);
    QCOMPARE(m_spin->value(), 23.0);
    m_spin->SetUnitScale(10);
    m_spin->setAdditionalPrecision(2);
    QCOMPARE(m_spin->value(), 2.3);
    QCOMPARE(m_spin->text(), QStringLiteral("2.30"));
    QCOMPARE(m_spin->maximum(), 200.3);
    QCOMPARE(m_value->GetValue(), 10.0);
}

void TestVCNumericFloatSpin::typingCommits_data()
{
    QTest::addColumn<bool>("byReturn");
    QTest::newRow("on Return") << true;
    QTest::newRow("on leaving") << false;
}

void TestVCNumericFloatSpin::typingCommits()
{
    QFETCH(bool, byReturn);
    RecordingObserver observer;
    observer.watch(m_value.get());
    type(QStringLiteral("123"));
    QCOMPARE(m_value->GetValue(), 10.0);
    if (byReturn)
        QTest::keyClick(m_spin, Qt::Key_Return);
    else
        m_other->setFocus();
    QCOMPARE(m_value->GetValue(), 123.0);
    QCOMPARE(observer.takeCodes(), QList<TChangeCode>{ChangeCode::Content});
}

void TestVCNumericFloatSpin::typedTexts_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("value");
    QTest::newRow("comma is a point") << ""
                                      << "2,5" << 2.5;
    QTest::newRow("exponent") << ""
                              << "1e2" << 100.0;
    QTest::newRow("k alone") << ""
                             << "0.5k" << 500.0;
    QTest::newRow("above the range") << ""
                                     << "5000" << 10.0;
    QTest::newRow("below the range") << ""
                                     << "-5" << 10.0;
    QTest::newRow("rounded into the range") << ""
                                            << "1000.001" << 1000.0;
    QTest::newRow("wrong order") << ""
                                 << "1-2" << 10.0;
    QTest::newRow("empty") << ""
                           << " " << 10.0;
    QTest::newRow("own suffix") << "dB"
                                << "5 db" << 5.0;
    QTest::newRow("foreign suffix") << "dB"
                                    << "5 Hz" << 10.0;
    QTest::newRow("milli is not mega") << "V"
                                       << "5 mV" << 10.0;
    QTest::newRow("kHz in a kHz box") << "kHz"
                                      << "5k" << 5.0;
    QTest::newRow("MHz in a kHz box") << "kHz"
                                      << "0.5 MHz" << 500.0;
    QTest::newRow("m is mega for hertz") << "kHz"
                                         << "0.5m" << 500.0;
    QTest::newRow("Hz in a kHz box") << "kHz"
                                     << "2500 Hz" << 2.5;
    QTest::newRow("decimals are held") << ""
                                       << "1.23456" << 1.23;
}

void TestVCNumericFloatSpin::typedTexts()
{
    QFETCH(QString, suffix);
    QFETCH(QString, typed);
    m_spin->setSuffix(suffix);
    m_spin->setAdditionalPrecision(2);
    type(typed);
    QTest::keyClick(m_spin, Qt::Key_Return);
    QTEST(m_value->GetValue(), "value");
    QCOMPARE(m_spin->value(), m_value->GetValue());
    QCOMPARE(m_spin->cleanText().toDouble(), m_value->GetValue());
}

void TestVCNumericFloatSpin::roundingDoesNotWrite()
{
    m_value->SetValue(10.4, nullptr);
    QCOMPARE(m_spin->text(), QStringLiteral("10"));
    m_other->setFocus();
    m_spin->setFocus();
    QTest::keyClick(m_spin, Qt::Key_Return);
    m_spin->setAdditionalPrecision(3);
    m_spin->setAdditionalPrecision(0);
    type(QStringLiteral("10"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 10.4);
}

void TestVCNumericFloatSpin::stepsWrite_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<double>("value");
    QTest::newRow("up") << int(Qt::Key_Up) << 11.0;
    QTest::newRow("down") << int(Qt::Key_Down) << 9.0;
    QTest::newRow("page up") << int(Qt::Key_PageUp) << 20.0;
    QTest::newRow("page down") << int(Qt::Key_PageDown) << 0.0;
}

void TestVCNumericFloatSpin::stepsWrite()
{
    QFETCH(int, key);
    QTest::keyClick(m_spin, static_cast<Qt::Key>(key));
    QTEST(m_value->GetValue(), "value");
}

void TestVCNumericFloatSpin::buttonsStep()
{
    QStyleOptionSpinBox option;
    option.initFrom(m_spin);
    option.subControls = QStyle::SC_All;
    option.buttonSymbols = m_spin->buttonSymbols();
    const QStyle* style = m_spin->style();
    const QRect up = style->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, m_spin);
    QTest::mouseClick(m_spin, Qt::LeftButton, {}, up.center());
    QCOMPARE(m_value->GetValue(), 11.0);
    QCOMPARE(VCNumericFloatSpin(nullptr, nullptr, false).buttonSymbols(), QAbstractSpinBox::NoButtons);
}

void TestVCNumericFloatSpin::stepInDisplayTerms()
{
    m_value->SetMinMax(0.0, 1e9, 500.0, nullptr);
    m_value->SetValue(1000.0, nullptr);
    m_spin->SetUnitScale(1000);
    m_spin->setAdditionalPrecision(1);
    m_spin->stepBy(1);
    QCOMPARE(m_spin->value(), 1.5);
    QCOMPARE(m_value->GetValue(), 1500.0);
}

void TestVCNumericFloatSpin::fineStepCounts()
{
    m_value->SetStep(0.25, nullptr);
    m_spin->stepBy(1);
    QCOMPARE(m_value->GetValue(), 10.25);
    m_spin->stepBy(3);
    QCOMPARE(m_value->GetValue(), 11.0);
    m_value->SetStep(0.0, nullptr);
    m_spin->stepBy(1);
    QCOMPARE(m_value->GetValue(), 12.0);
}

void TestVCNumericFloatSpin::stepAfterTyping()
{
    type(QStringLiteral("50"));
    QTest::keyClick(m_spin, Qt::Key_Up);
    QCOMPARE(m_value->GetValue(), 51.0);
}

void TestVCNumericFloatSpin::wrapAround()
{
    m_value->SetValue(1000.0, nullptr);
    m_spin->stepBy(1);
    QCOMPARE(m_value->GetValue(), 1000.0);
    m_spin->EnableWrapAround(true);
    m_spin->stepBy(1);
    QCOMPARE(m_value->GetValue(), 0.0);
    m_spin->stepBy(-1);
    QCOMPARE(m_value->GetValue(), 1000.0);
    m_value->SetValue(995.0, nullptr);
    m_spin->stepBy(10);
    QCOMPARE(m_value->GetValue(), 1000.0);
}

void TestVCNumericFloatSpin::noSteps()
{
    m_spin->disableStep(true);
    QTest::keyClick(m_spin, Qt::Key_Up);
    wheel(m_spin, 1);
    m_spin->stepBy(1);
    QCOMPARE(m_value->GetValue(), 10.0);
    type(QStringLiteral("20"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 20.0);
}

void TestVCNumericFloatSpin::wheelNeedsFocus()
{
    m_other->setFocus();
    QVERIFY(!wheel(m_spin, 1));
    QCOMPARE(m_value->GetValue(), 10.0);
    m_spin->setFocus();
    QVERIFY(wheel(m_spin, 1));
    QCOMPARE(m_value->GetValue(), 11.0);
}

void TestVCNumericFloatSpin::readsLimitsAgain()
{
    RecordingObserver observer;
    observer.watch(m_value.get());
    m_value->SetMax(5.0, nullptr);
    QCOMPARE(observer.takeCodes(), (QList<TChangeCode>{ChangeCode::Limits, ChangeCode::Content}));
    QCOMPARE(m_spin->maximum(), 5.0);
    QCOMPARE(m_spin->value(), 5.0);
    m_value->SetMin(7.0, nullptr); // above the maximum
    QCOMPARE(m_spin->value(), m_value->GetValue());
    m_value->SetMin(-1e300, nullptr);
    QCOMPARE(m_value->GetValue(), 5.0);
    QVERIFY(!m_spin->CanUndo());
}

void TestVCNumericFloatSpin::limitProperties()
{
    m_spin->SetDisplayScalingFactor(1000);
    QVERIFY(m_spin->setProperty("minimum", QStringLiteral("5")));
    QCOMPARE(m_spin->property("minimum").toDouble(), 5.0);
    QCOMPARE(m_spin->minimum(), 5000.0);
    m_spin->setProperty("maximum", 1e308);
    QCOMPARE(m_spin->property("maximum").toDouble(), 1000.0);
    m_value->SetMin(2.0, nullptr);
    QCOMPARE(m_spin->property("minimum").toDouble(), 2.0);
    QVERIFY(m_spin->setProperty("displayAdditiveOffset", 1));
    QCOMPARE(m_spin->value(), 10001.0);
    QCOMPARE(m_value->GetValue(), 10.0);
}

void TestVCNumericFloatSpin::negativeFactor()
{
    m_spin->SetFactor(-1);
    QCOMPARE(m_spin->minimum(), -1000.0);
    QCOMPARE(m_spin->maximum(), 0.0);
    m_spin->stepBy(1);
    QCOMPARE(m_value->GetValue(), 9.0);
}

void TestVCNumericFloatSpin::factorZero()
{
    m_spin->SetFactor(0);
    m_spin->SetUnitScale(0);
    type(QStringLiteral("5"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    m_spin->stepBy(1);
    QCOMPARE(m_value->GetValue(), 10.0);
}

void TestVCNumericFloatSpin::wholeNumbersKeepTheirValue()
{
    values::NumericInt whole(QStringLiteral("i"), ValueState::Normal);
    m_spin->SetNumericValue(&whole);
    m_spin->SetFactor(0.1);
    m_spin->setAdditionalPrecision(1);
    for (int i = 1; i < 100; ++i) {
        m_spin->stepBy(0);
        type(QString::number(i * 0.1, 'f', 1));
        QTest::keyClick(m_spin, Qt::Key_Return);
        QCOMPARE(whole.GetValue(), i);
    }
    m_spin->SetNumericValue(nullptr);
}

void TestVCNumericFloatSpin::numberBeyondTheCap()
{
    m_value->SetMinMax(-1e308, 1e308, 1.0, nullptr);
    m_value->SetValue(1e20, nullptr);
    QCOMPARE(m_spin->text(), QStringLiteral("1e+20"));
    m_other->setFocus();
    QCOMPARE(m_value->GetValue(), 1e20);
    m_value->SetValue(5.0, nullptr);
    QCOMPARE(m_spin->text(), QStringLiteral("5"));
}

void TestVCNumericFloatSpin::specialValueText()
{
    m_spin->setProperty("specialValueText", QStringLiteral("off"));
    m_value->SetValue(0.0, nullptr);
    QCOMPARE(m_spin->text(), QStringLiteral("off"));
    m_value->SetValue(7.0, nullptr);
    type(QStringLiteral("off"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 0.0);
}

void TestVCNumericFloatSpin::suffixIsSpaced()
{
    m_spin->setSuffix(QStringLiteral("kHz"));
    QCOMPARE(m_spin->text(), QStringLiteral("10 kHz"));
    QCOMPARE(m_spin->suffix(), QStringLiteral("kHz"));
    m_spin->setSuffix(QStringLiteral("%"));
    QCOMPARE(m_spin->text(), QStringLiteral("10%"));
    m_spin->setProperty("prefix", QStringLiteral("~"));
    QCOMPARE(m_spin->text(), QStringLiteral("~10%"));
    QTest::keyClick(m_spin, Qt::Key_Up);
    QCOMPARE(m_value->GetValue(), 11.0);
}

void TestVCNumericFloatSpin::valuePath()
{
    auto* inTree = new values::NumericInt(QStringLiteral("N"), ValueState::Normal);
    inTree->SetValue(42, nullptr);
    QVERIFY(values::Tree::Instance()->AddValue(QStringLiteral("/Spin"), inTree));
    QVERIFY(m_spin->SetNumeric_ValuePath(QStringLiteral("/Spin/N")));
    QCOMPARE(m_spin->value(), 42.0);
    QVERIFY(values::Tree::Instance()->RemoveValue(QStringLiteral("/Spin/N")));
    QVERIFY(!m_spin->isEnabled());
    QCOMPARE(m_spin->value(), 42.0);
    m_spin->stepBy(1);
    QVERIFY(!m_spin->SetNumeric_ValuePath(QStringLiteral("/Spin/N")));
}

void TestVCNumericFloatSpin::undoAndRedo()
{
    QTest::keyClick(m_spin, Qt::Key_Up);
    type(QStringLiteral("100"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    QTest::keyClick(m_spin, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_value->GetValue(), 11.0);
    QTest::keyClick(m_spin, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_value->GetValue(), 10.0);
    QTest::keyClick(m_spin, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(m_spin, Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(m_value->GetValue(), 11.0);
    QCOMPARE(m_spin->value(), 11.0);
}

void TestVCNumericFloatSpin::waitsWhileTyping()
{
    type(QStringLiteral("10"));
    m_value->SetValue(500.0, nullptr);
    QCOMPARE(m_spin->findChild<QLineEdit*>()->text(), QStringLiteral("10"));
    m_value->SetMax(900.0, nullptr);
    QCOMPARE(m_spin->findChild<QLineEdit*>()->text(), QStringLiteral("10"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 10.0);
    m_value->SetValue(20.0, nullptr);
    QCOMPARE(m_spin->value(), 20.0);
}

void TestVCNumericFloatSpin::escapeDropsTyped()
{
    type(QStringLiteral("77"));
    m_value->SetValue(30.0, nullptr);
    QTest::keyClick(m_spin, Qt::Key_Escape);
    QCOMPARE(m_spin->text(), QStringLiteral("30"));
    m_other->setFocus();
    QCOMPARE(m_value->GetValue(), 30.0);
}

void TestVCNumericFloatSpin::readOnly()
{
    m_spin->stepBy(1);
    m_spin->setProperty("readOnly", true);
    QTest::keyClick(m_spin, Qt::Key_Up);
    QTest::keyClick(m_spin, Qt::Key_Z, Qt::ControlModifier);
    wheel(m_spin, 1);
    type(QStringLiteral("5"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 11.0);
}

void TestVCNumericFloatSpin::widthStaysOrdinary()
{
    const QSize hint = m_spin->sizeHint();
    m_spin->setFixedWidth(QWIDGETSIZE_MAX);
    QCOMPARE(m_spin->sizeHint(), hint);
    const QWidgetItem item(m_spin);
    QCOMPARE(item.sizeHint().width(), hint.width());
    QVERIFY(item.minimumSize().width() <= hint.width());
    m_spin->setFixedWidth(77);
    QCOMPARE(m_spin->minimumWidth(), 77);
    m_spin->setFixedWidth(QWIDGETSIZE_MAX);
    QCOMPARE(QWidgetItem(m_spin).sizeHint().width(), hint.width());
}

void TestVCNumericFloatSpin::hintsEqualForEqualControls()
{
    VCNumericFloatSpin twin(nullptr, nullptr, true);
    twin.SetNumericValue(m_value.get());
    QCOMPARE(twin.sizeHint(), m_spin->sizeHint());
    QDoubleSpinBox stock;
    stock.setDecimals(0);
    stock.setRange(0, 1000);
    QCOMPARE(m_spin->sizeHint(), QSize(FieldSize::CommonWidth(m_spin), stock.sizeHint().height()));
    twin.setSuffix(QStringLiteral("letters of a very long unit"));
    QVERIFY(twin.sizeHint().width() > m_spin->sizeHint().width());
    twin.setSuffix(QString(300, QLatin1Char('w')));
    QCOMPARE(twin.sizeHint().width(), FieldSize::UpperWidth(&twin));
    twin.setSuffix(QString());
    QCOMPARE(twin.sizeHint(), m_spin->sizeHint());
}

void TestVCNumericFloatSpin::refusedTextGetsAHint_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("wrapping");
    QTest::addColumn<QString>("hint");
    for (const bool wrapping : {false, true}) {
        QTest::addRow("high, %d", wrapping) << "5000" << wrapping << "1000 dB is the highest";
        QTest::addRow("low, %d", wrapping) << "-5" << wrapping << "0 dB is the lowest";
        QTest::addRow("unit, %d", wrapping)
            << "5 parsec" << wrapping << "Not a number that fits. Example: 10 dB";
    }
}

void TestVCNumericFloatSpin::refusedTextGetsAHint()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, hint);
    QFETCH(const bool, wrapping);
    m_spin->setSuffix(QStringLiteral("dB"));
    m_spin->EnableWrapAround(wrapping);
    type(typed);
    QTest::keyClick(m_spin, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 10.0);
    QCOMPARE(m_spin->cleanText(), QStringLiteral("10"));
    QTRY_COMPARE(QToolTip::text(), hint);
    QCOMPARE(m_spin->accessibleDescription(), hint);
    type(QStringLiteral("0.5k"));
    QCOMPARE(m_spin->accessibleDescription(), QString());
    QTRY_COMPARE(QToolTip::text(), QStringLiteral("500 dB"));
    QTest::keyClick(m_spin, Qt::Key_Return);
    QCOMPARE(m_value->GetValue(), 500.0);
}

void TestVCNumericFloatSpin::pointInEveryLocale()
{
    QLocale::setDefault(QLocale(QLocale::German));
    VCNumericFloatSpin spin(nullptr, nullptr, true);
    QLocale::setDefault(QLocale::system());
    spin.setAdditionalPrecision(1);
    spin.SetNumericValue(m_value.get());
    m_value->SetValue(2.5, nullptr);
    QCOMPARE(spin.cleanText(), QStringLiteral("2.5"));
    QCOMPARE(spin.valueFromText(QStringLiteral("3,5")), 3.5);
    QCOMPARE(spin.valueFromText(QStringLiteral("3.5")), 3.5);
}

void TestVCNumericFloatSpin::buttonsThatDoNothingGo()
{
    QCOMPARE(m_spin->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    const QColor writable = m_spin->palette().color(QPalette::Base);
    m_spin->setProperty("readOnly", true);
    QCOMPARE(m_spin->buttonSymbols(), QAbstractSpinBox::NoButtons);
    QCOMPARE(m_spin->palette().color(QPalette::Base), m_spin->palette().color(QPalette::Window));
    m_spin->setProperty("readOnly", false);
    QCOMPARE(m_spin->buttonSymbols(), QAbstractSpinBox::UpDownArrows);
    QCOMPARE(m_spin->palette().color(QPalette::Base), writable);
    m_spin->disableStep(true);
    QCOMPARE(m_spin->buttonSymbols(), QAbstractSpinBox::NoButtons);
}

void TestVCNumericFloatSpin::listenerMayDeleteWhileRefreshed()
{
    for (const bool byLimits : {false, true}) {
        QPointer<VCNumericFloatSpin> spin = new VCNumericFloatSpin(nullptr, nullptr, true);
        spin->SetNumericValue(m_value.get());
        connect(spin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [&spin] { delete spin; });
        if (byLimits)
            m_value->SetMinMax(400.0, 500.0, 1.0, nullptr);
        else
            m_value->SetValue(77.0, nullptr);
        QVERIFY(!spin);
    }
}

void TestVCNumericFloatSpin::unboundWorks()
{
    m_spin->SetNumericValue(nullptr);
    QCOMPARE(m_value->GetObserverCount(), 0);
    QVERIFY(m_spin->isEnabled());
    QTest::keyClick(m_spin, Qt::Key_Up);
    type(QStringLiteral("3"));
    QTest::keyClick(m_spin, Qt::Key_Escape);
    QCOMPARE(m_spin->value(), 11.0);
    QTest::keyClick(m_spin, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_spin->value(), 10.0);
    QCOMPARE(m_value->GetValue(), 10.0);
}

void TestVCNumericFloatSpin::listenerMayDelete()
{
    RecordingObserver observer;
    observer.watch(m_value.get());
    observer.onUpdate = [this](Observable*, TChangeCode) {
        delete m_spin;
        m_spin = nullptr;
    };
    m_spin->stepBy(1);
    QVERIFY(!m_spin);
    QCOMPARE(m_value->GetValue(), 11.0);
}

QTEST_MAIN(TestVCNumericFloatSpin)
#include "tst_vcnumericfloatspin.moc"
