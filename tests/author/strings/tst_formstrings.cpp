#include <author/files/wholefile.h>
#include <author/kinds/kindtable.h>
#include <author/strings/formstrings.h>

#include <formtext.h>

#include <QTest>

using namespace Orvane::Author;

namespace {

QStringList textsOf(const QString& description)
{
    QStringList texts;
    for (const FormString& string : formStrings(description.toUtf8()).strings)
        texts << string.context + QLatin1Char('|') + string.source;
    texts.sort();
    return texts;
}

QStringList sorted(const char* texts)
{
    QStringList list = QString::fromUtf8(texts).split(QLatin1Char(','));
    list.sort();
    return list;
}

} // namespace

/// What forms ask translators for.
class TestFormStrings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void linesOfTheDescription();
    void allThatTheTableCallsTranslated();
    void receiver();
    void noForm();
};

void TestFormStrings::texts_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QStringList>("expected");
    const FormProperty caption("labelText", "Caption");
    const auto row = [](const char* name, const QString& description, const char* expected) {
        QTest::newRow(name) << description << sorted(expected);
    };
    row("caption", formXml(rowXml("CheckBox", "a", {caption})), "a|Caption");
    row("the same caption in two rows",
        formXml(rowXml("CheckBox", "a", {caption}) + rowXml("SpinBox", "b", {caption})),
        "a|Caption,b|Caption");
    row("headline, with what its tool tip says",
        formXml(widgetXml("Headline", "h", {{"text", "Head"}, {"visible", true}})),
        "h|Head,h|Hide %1,h|Show %1");
    row("choices",
        formXml(rowXml("ComboBox", "c", {{"enumName", "Modes"}}),
                enumXml("Modes", {{"Wide", "WIDE", "1"}, {"Narrow", "NARROW", "2"}})),
        "Modes|Wide,Modes|Narrow");
    row("hidden row", formXml(widgetXml("CheckBox", "a", {caption, {"visible", false}})), "a|Caption");
    row("numbers that a script computes",
        formXml(rowXml("Label", "l", {{"text", "-"}}), QString(),
                QStringLiteral("l.setText(6 * 7 + ' Hz');")),
        "l|-");
    row("words that a script says at its start",
        formXml(rowXml("Label", "l", {{"text", "-"}}), QString(), QStringLiteral("l.setText('Ready');")),
        "l|-,l|Ready");
    row("words that a script says later",
        formXml(rowXml("Label", "l", {{"text", "-"}}) + rowXml("CheckBox", "c", {caption}), QString(),
                QStringLiteral("c.toggled.connect(function(on) { if (on) l.setText(\"Busy\"); else "
                               "c.labelText = 'Free'; c.setToolTip('no context'); no.setText('row'); });")),
        "l|-,l|Busy,c|Caption,c|Free");
    row("letters beyond ASCII", formXml(rowXml("Label", "l", {{"text", "Lautstärke µ"}})), "l|Lautstärke µ");
}

void TestFormStrings::texts()
{
    QFETCH(QString, description);
    QFETCH(QStringList, expected);
    QCOMPARE(textsOf(description), expected);
}

void TestFormStrings::linesOfTheDescription()
{
    const FormStrings strings =
        formStrings("<KVParamGui>\n<Sheet name='s'>\n<Widget name='a' class='Label'>\n"
                    "<Property name='labelText'><String>Same</String></Property>\n"
                    "<Property name='text'><String>Same</String></Property>\n"
                    "</Widget></Sheet></KVParamGui>");
    QCOMPARE(strings.strings.size(), 1);
    QVector<int> lines = strings.strings.first().lines;
    std::sort(lines.begin(), lines.end());
    QCOMPARE(lines, QVector<int>({4, 5}));
}

// The table says which properties the user sees in his language; the engine asks for these and no others.
void TestFormStrings::allThatTheTableCallsTranslated()
{
    for (const ControlClass& kind : KindTable::instance().classes()) {
        QList<FormProperty> properties;
        QStringList expected;
        for (const Property& property : kind.properties) {
            if (property.type != QLatin1String("String") || property.name.endsWith(QLatin1Char('*')) ||
                !property.refers.isEmpty() || !property.choices.isEmpty())
                continue;
            const QString text = QStringLiteral("Text of ") + property.name;
            properties << FormProperty(property.name.toLatin1().constData(), text);
            if (property.translated && !property.late && !property.inert)
                expected << QStringLiteral("a|") + text;
        }
        if (kind.control == ControlClass::Headline)
            expected << QStringLiteral("a|Hide %1") << QStringLiteral("a|Show %1");
        expected.sort();
        QStringList found = textsOf(formXml(rowXml(kind.name.toLatin1().constData(), "a", properties)));
        QVERIFY2(found == expected, qPrintable(QStringLiteral("%1: %2 instead of %3")
                                                   .arg(kind.name, found.join(QLatin1Char(',')),
                                                        expected.join(QLatin1Char(',')))));
    }
}

void TestFormStrings::receiver()
{
    const FileContent form = readWhole(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    const FormStrings strings = formStrings(form.bytes);
    QVERIFY(strings.strings.size() > 80);
    for (const FormString& string : strings.strings) {
        const bool isOwn =
            string.source == QLatin1String("Hide %1") || string.source == QLatin1String("Show %1");
        QVERIFY2(isOwn == string.lines.isEmpty(), qPrintable(string.context + string.source));
    }
}

void TestFormStrings::noForm()
{
    QVERIFY(!formStrings("<Other/>").hasForm);
    QVERIFY(formStrings("<KVParamGui/>").hasForm);
    QVERIFY(formStrings("<KVParamGui/>").strings.isEmpty());
}

QTEST_MAIN(TestFormStrings)
#include "tst_formstrings.moc"
