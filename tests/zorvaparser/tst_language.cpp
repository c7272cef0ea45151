#include "enginetest.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTranslator>

namespace {

/// Speaks a language in which every text begins with its own letter and its context.
class Speaking : public QTranslator
{
public:
    explicit Speaking(char letter)
        : m_letter(letter)
    {
        QCoreApplication::installTranslator(this);
    }
    ~Speaking() override { QCoreApplication::removeTranslator(this); }
    Speaking(const Speaking&) = delete;
    Speaking& operator=(const Speaking&) = delete;

    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        return QStringLiteral("%1 %2: %3")
            .arg(QLatin1Char(m_letter))
            .arg(QLatin1String(context), QString::fromUtf8(text));
    }

private:
    char m_letter;
};

const QString rows = rowXml("Headline", "group", {{"text", "Levels"}}) +
                     rowXml("CheckBox", "box", {{"labelText", "Attenuation"}}) +
                     rowXml("PushButton", "button", {{"text", "Calibrate"}}) +
                     rowXml("Label", "text", {{"text", "Slow"}, {"labelText", "Speed"}}) +
                     rowXml("CheckBox", "bare", {});

QString captionOf(const FormFixture& form, const char* row)
{
    const auto* const caption =
        form.control<QLabel>(qPrintable(QStringLiteral("label") + QLatin1String(row)));
    return caption ? caption->text() : QString();
}

} // namespace

/// What is shown follows the language while a form lives.
class TestLanguage : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void textsFollow_data();
    void textsFollow();
    void scriptsTextsFollow();
    void formWithoutWindowIsUntouched();

private:
    static QString textOf(const FormFixture& form, const QString& place);
};

QString TestLanguage::textOf(const FormFixture& form, const QString& place)
{
    if (place == QLatin1String("caption"))
        return captionOf(form, "box");
    if (place == QLatin1String("caption of a label"))
        return captionOf(form, "text");
    if (place == QLatin1String("label"))
        return form.control<QLabel>("text")->text();
    if (place == QLatin1String("button"))
        return form.control<QPushButton>("button")->text();
    if (place == QLatin1String("tool tip of a button"))
        return form.control<QPushButton>("button")->toolTip();
    if (place == QLatin1String("headline"))
        return form.control<QGroupBox>("group")->title();
    if (place == QLatin1String("tool tip of a headline"))
        return form.control<QGroupBox>("group")->toolTip();
    return form.control<QAbstractButton>(qPrintable(place))->text();
}

void TestLanguage::textsFollow_data()
{
    QTest::addColumn<QString>("plain");
    QTest::addColumn<QString>("translated");
    QTest::newRow("caption") << "Attenuation"
                             << "b box: Attenuation";
    QTest::newRow("caption of a label") << "Speed"
                                        << "b text: Speed";
    QTest::newRow("label") << "Slow"
                           << "b text: Slow";
    QTest::newRow("button") << "Calibrate"
                            << "b button: Calibrate";
    QTest::newRow("tool tip of a button") << "Calibrate"
                                          << "b button: Calibrate";
    QTest::newRow("headline") << "Levels"
                              << "b group: Levels";
    QTest::newRow("tool tip of a headline") << "Hide Levels"
                                            << "b group: Hide Levels";
    QTest::newRow("applyButton") << "Apply"
                                 << "b Orvane::ZorvaSheetUi: Apply";
    QTest::newRow("autoApply") << "Auto Apply"
                               << "b Orvane::ZorvaSheetUi: Auto Apply";
}

void TestLanguage::textsFollow()
{
    QFETCH(QString, plain);
    QFETCH(QString, translated);
    const QString place = QString::fromLatin1(QTest::currentDataTag());
    FormFixture form(rows);
    QCOMPARE(textOf(form, place), plain);
    {
        const Speaking first('a');
        const Speaking second('b');
        QCoreApplication::processEvents();
        QCOMPARE(textOf(form, place), translated);
    }
    QCoreApplication::processEvents();
    QCOMPARE(textOf(form, place), plain);
    QVERIFY(captionOf(form, "bare").isEmpty());
    QVERIFY(!form.sheet().isModified());
}

void TestLanguage::scriptsTextsFollow()
{
    FormFixture form(rows, QString(), QStringLiteral("box.setLabelText('Gain'); button.setText('Stop');"));
    form.row("text")->setProperty("text", QStringLiteral("Fast"));
    const Speaking second('b');
    QCoreApplication::processEvents();
    QCOMPARE(captionOf(form, "box"), QStringLiteral("b box: Gain"));
    QCOMPARE(textOf(form, QStringLiteral("button")), QStringLiteral("b button: Stop"));
    QCOMPARE(textOf(form, QStringLiteral("label")), QStringLiteral("b text: Fast"));
}

void TestLanguage::formWithoutWindowIsUntouched()
{
    FormFixture form(rows);
    form.deleteWindow();
    const Speaking second('b');
    QCoreApplication::processEvents();
    QVERIFY(form.row("box"));
}

QTEST_MAIN(TestLanguage)
#include "tst_language.moc"
