#include <author/files/wholefile.h>
#include <author/manual/grouppictures.h>
#include <author/manual/manualpage.h>
#include <author/parameters/settingsform.h>
#include <author/picture/formstage.h>

#include <formtext.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

Manual manualOfText(const QString& description)
{
    const SettingsForm form(description.toUtf8());
    return form.exists() ? manualOf(form, QStringLiteral("Title")) : Manual();
}

/// "Range: 1 to 2; Step: 1", the default choice in brackets.
QString factsOf(const ManualRow& row)
{
    QStringList facts;
    for (const ManualFact& fact : row.facts) {
        QStringList words = fact.words;
        if (fact.chosen >= 0)
            words[fact.chosen] = QLatin1Char('[') + words.at(fact.chosen) + QLatin1Char(']');
        facts << fact.name + QStringLiteral(": ") + words.join(QLatin1String(", "));
    }
    return facts.join(QLatin1String("; "));
}

FormProperty caption(const char* text)
{
    return FormProperty("labelText", text);
}

QString headline(const char* name, const char* text)
{
    return widgetXml("Headline", name, {{"text", text}, {"visible", true}, {"enabled", true}});
}

} // namespace

/// What the operator's reference says of a form.
class TestManual : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void facts_data();
    void facts();
    void groupsHaveTheirRows();
    void rowsThatNobodySeesAreLeftOut();
    void captions_data();
    void captions();
    void helpIsPlain();
    void textsAreNoMarkup();
    void anchors();
    void aPictureForEachGroup();
    void everyInputOfTheReceiver();
};

void TestManual::facts_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* name, const QString& text, const char* expected) {
        QTest::newRow(name) << text << QString::fromUtf8(expected);
    };
    add("whole number",
        rowXml("SpinBox", "a",
               {{"value", 60}, {"minimum", 0}, {"maximum", 100}, {"singleStep", 5}, {"suffix", " %"}}),
        "Range: 0 % to 100 %; Step: 5 %; Default: 60 %; Parameter: a");
    add("number with decimals",
        rowXml("DoubleSpinBox", "a",
               {{"value", 0.5},
                {"minimum", 0.0},
                {"maximum", 10.0},
                {"singleStep", 0.1},
                {"decimals", 1},
                {"suffix", " s"},
                {"parameterXmlTag", "Scan/Dwell"}}),
        "Range: 0.0 s to 10.0 s; Step: 0.1 s; Default: 0.5 s; Parameter: Scan/Dwell");
    add("shown with factor and offset",
        rowXml("DoubleSpinBox", "a",
               {{"value", 3.0},
                {"minimum", 5.0},
                {"maximum", 105.0},
                {"singleStep", 20.0},
                {"displayScalingFactor", 10.0},
                {"displayAdditiveOffset", 5.0}}),
        "Range: 5 to 105; Step: 20; Default: 35; Parameter: a");
    add("minimum alone", rowXml("SpinBox", "a", {{"minimum", 3}}),
        "Range: from 3; Step: 1; Default: 3; Parameter: a");
    add("maximum alone", rowXml("SpinBox", "a", {{"maximum", 3}}),
        "Range: up to 3; Step: 1; Default: 0; Parameter: a");
    add("no limits", rowXml("SpinBox", "a"), "Step: 1; Default: 0; Parameter: a");
    add("frequency",
        rowXml("FrequencyEdit", "a",
               {{"value", "98500000"},
                {"minimum", "8000"},
                {"maximum", "26500000000"},
                {"singleStep", "25000"}}),
        "Range: 8 kHz to 26.5 GHz; Step: 25 kHz; Default: 98.5 MHz; Parameter: a");
    add("check box", rowXml("CheckBox", "a", {{"checked", true}}),
        "Choices: [on], off; Default: on; Parameter: a");
    add("choices", rowXml("ComboBox", "a", {{"enumName", "Modes"}, {"currentValue", "2"}}),
        "Choices: Wide, [Narrow]; Default: Narrow; Parameter: a");
    add("text", rowXml("LineEdit", "a", {{"text", "words"}, {"maxLength", 24}}),
        "Length: at most 24 characters; Default: words; Parameter: a");
    add("not exported", widgetXml("SpinBox", "a", {{"minimum", 1}, {"maximum", 2}, {"visible", true}}),
        "Range: 1 to 2; Step: 1");
}

void TestManual::facts()
{
    QFETCH(QString, row);
    QFETCH(QString, expected);
    const QString description =
        formXml(row, enumXml("Modes", {{"Wide", "WIDE", "1"}, {"Narrow", "NARROW", "2"}}));
    const Manual manual = manualOfText(description);
    QCOMPARE(manual.groups.size(), 1);
    QCOMPARE(manual.groups.first().rows.size(), 1);
    QCOMPARE(factsOf(manual.groups.first().rows.first()), expected);
}

void TestManual::groupsHaveTheirRows()
{
    const Manual manual = manualOfText(formXml(
        rowXml("CheckBox", "a") + headline("h1", "One") + rowXml("CheckBox", "b") + rowXml("CheckBox", "c") +
        headline("h2", "Empty") + headline("h3", "Three") + rowXml("CheckBox", "d")));
    QStringList words;
    for (const ManualGroup& group : manual.groups)
        words << QStringLiteral("%1 %2").arg(group.title).arg(group.rows.size());
    QCOMPARE(words, QStringList({QStringLiteral(" 1"), QStringLiteral("One 2"), QStringLiteral("Three 1")}));
    QCOMPARE(manual.title, QStringLiteral("Title"));
}

void TestManual::rowsThatNobodySeesAreLeftOut()
{
    const Manual manual = manualOfText(formXml(rowXml("HiddenInt", "a") + widgetXml("Separator", "b") +
                                               widgetXml("FixedSpacer", "c") + widgetXml("Label", "d") +
                                               rowXml("CheckBox", "e")));
    QCOMPARE(manual.groups.size(), 1);
    QCOMPARE(manual.groups.first().rows.size(), 1);
    QCOMPARE(manual.groups.first().rows.first().name, QStringLiteral("e"));
}

void TestManual::captions_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QString>("expected");
    const auto add = [](const char* name, const QString& row, const char* expected) {
        QTest::newRow(name) << row << QString::fromLatin1(expected);
    };
    add("caption", rowXml("CheckBox", "a", {caption("Lock")}), "Lock");
    add("rich caption", rowXml("CheckBox", "a", {caption("<b>Lo</b>ck")}), "Lock");
    add("none", rowXml("CheckBox", "a", {{"parameterXmlTag", "Tuner/Lock"}}), "Lock");
    add("button", rowXml("PushButton", "a", {{"text", "Press"}}), "Press");
    add("button with caption", rowXml("PushButton", "a", {caption("Presets"), {"text", "Air band"}}),
        "Presets: Air band");
    add("label", rowXml("Label", "a", {{"text", "Words"}}), "Words");
    add("label with caption", rowXml("Label", "a", {caption("Resolution"), {"text", "-"}}), "Resolution");
}

void TestManual::captions()
{
    QFETCH(QString, row);
    QFETCH(QString, expected);
    const Manual manual = manualOfText(formXml(row));
    QCOMPARE(manual.groups.first().rows.first().caption, expected);
}

void TestManual::helpIsPlain()
{
    const Manual manual = manualOfText(
        formXml(rowXml("CheckBox", "a", {{"toolTip", "<b>Mutes</b> the audio<br>below the threshold"}})));
    QCOMPARE(manual.groups.first().rows.first().help, QStringLiteral("Mutes the audio below the threshold"));
}

void TestManual::textsAreNoMarkup()
{
    Manual manual;
    manual.title = QStringLiteral("a < b & \"c\"");
    ManualRow row;
    row.caption = QStringLiteral("<script>");
    row.facts.append({QStringLiteral("x"), {QStringLiteral("</td>")}});
    manual.groups.append({QString(), QString(), {row}});
    const QByteArray page = manualPage(manual, QStringLiteral("pt_BR"), {});
    QVERIFY(page.contains("<title>a &lt; b &amp; &quot;c&quot;</title>"));
    QVERIFY(page.contains("<h3>&lt;script&gt;</h3>") && page.contains("<td>&lt;/td&gt;</td>"));
    QVERIFY(page.contains("<html lang=\"pt-BR\">"));
}

void TestManual::anchors()
{
    QCOMPARE(manualAnchor(QStringLiteral("tuningGroup"), 1), QStringLiteral("group-1-tuninggroup"));
    QCOMPARE(manualAnchor(QString::fromUtf8("../Größe"), 2), QStringLiteral("group-2-gre"));
    QCOMPARE(manualAnchor(QString(), 3), QStringLiteral("group-3"));
}

void TestManual::aPictureForEachGroup()
{
    FormStage stage(formXml(rowXml("CheckBox", "a", {caption("C")}) + headline("h1", "One") +
                            rowXml("CheckBox", "b", {caption("C")}) +
                            rowXml("CheckBox", "c", {caption("C")}) + headline("h2", "Two") +
                            rowXml("CheckBox", "d", {caption("C")}))
                        .toUtf8(),
                    FormStage::WithoutBar);
    stage.collapse({QStringLiteral("h1")});
    const QHash<QString, QImage> pictures = groupPictures(stage);
    QCOMPARE(pictures.size(), 3);
    QVERIFY(pictures.value(QStringLiteral("h1")).height() > pictures.value(QStringLiteral("h2")).height());
    QVERIFY(pictures.value(QStringLiteral("h2")).height() > pictures.value(QString()).height());
    for (const QImage& picture : pictures)
        QVERIFY(picture.width() > 20 * pictureScale);
}

void TestManual::everyInputOfTheReceiver()
{
    const FileContent content = readWhole(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    const SettingsForm form(content.bytes);
    const Manual manual = manualOf(form, QString());
    int rows = 0;
    int withPath = 0;
    for (const ManualGroup& group : manual.groups) {
        for (const ManualRow& row : group.rows) {
            QVERIFY(!row.caption.isEmpty());
            withPath += !row.facts.isEmpty() && row.facts.last().kind == ManualFact::Path ? 1 : 0;
            ++rows;
        }
    }
    QCOMPARE(manual.groups.size(), 8);
    QVERIFY(rows > withPath);
    int sent = 0;
    for (int i = 0; i < form.rows().count(); ++i)
        sent += form.sends(i) && form.rows().kind(i).isInput() ? 1 : 0;
    QCOMPARE(withPath, sent);
}

QTEST_MAIN(TestManual)
#include "tst_manual.moc"
