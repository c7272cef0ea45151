#include "formprobe.h"

#include <author/format/formatter.h>
#include <author/templates/templates.h>
#include <zorvaparser/zorvadelegate.h>

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>
#include <QTextCodec>

using namespace Orvane;
using namespace Orvane::Author;

namespace {

QList<QByteArray> cleanForms()
{
    QList<QByteArray> forms;
    for (const QString& name : formTemplateNames())
        forms << formTemplate(name);
    for (const QFileInfo& form :
         QDir(QStringLiteral(ZORVA_EXAMPLES_DIR)).entryInfoList({QStringLiteral("*.zorva")})) {
        QFile file(form.filePath());
        if (file.open(QIODevice::ReadOnly))
            forms << file.readAll();
    }
    return forms;
}

/// What the engine holds of a form: rows with all their properties, enumerations, script, parameter XML.
QStringList liveForm(const QByteArray& text)
{
    FormProbe probe(text);
    QStringList lines = probe.observe();
    ZorvaSheet& sheet = probe.formular().GetSheet();
    for (int i = -1; i < sheet.GetWidgetCount(); ++i) {
        ZorvaDelegate* const row = i < 0 ? sheet.GetDelegate() : sheet.GetWidgetAt(i)->GetDelegate();
        for (const QByteArray& name : row->dynamicPropertyNames())
            lines << QString::fromLatin1(name) + QLatin1Char('=') +
                         row->property(name.constData()).toString();
    }
    lines << probe.formular().GetScript().GetCode();
    const auto globals = probe.formular().GetScriptValues();
    for (auto it = globals.cbegin(); it != globals.cend(); ++it)
        lines << it.key();
    return lines;
}

/// The same document with other blanks between elements, in tags and around comments.
QByteArray shaken(const QByteArray& text, QRandomGenerator& random)
{
    const QByteArray blanks[] = {"",   " ",     "\n",           "\n\n\n",
                                 "\t", " \n  ", "<!-- why -->", "\n<!-- zorva: allow x y -->\n"};
    QByteArray result;
    bool inScript = false;
    for (int i = 0; i < text.size(); ++i) {
        result += text.at(i);
        inScript = inScript || text.mid(i, 7) == "<Script";
        inScript = inScript && text.mid(i, 9) != "</Script>";
        // Between two tags there may be anything; an end tag that follows a text stays where it is.
        const bool between = text.at(i) == '>' && text.mid(i + 1).trimmed().startsWith('<') && i > 60;
        const bool leaf = text.mid(i + 1, 2) == "</" && text.lastIndexOf('<', i) == text.lastIndexOf("<S", i);
        if (between && !inScript && !leaf && random.bounded(4) == 0)
            result += blanks[random.bounded(8)];
    }
    return result;
}

} // namespace

/// Formatting changes the layout of the text and nothing else.
class TestFormatter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void layout_data();
    void layout();
    void examplesAreLaidOutAlready();
    void liveFormStays();
    void shakenFormsComeBack();
    void encodings_data();
    void encodings();
    void refusals_data();
    void refusals();
    void everyPrefixIsRefused();
    void anyBytesDoNoHarm();
};

void TestFormatter::layout_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("one element") << QByteArray("<a/>") << QByteArray("<a/>\n");
    QTest::newRow("indentation") << QByteArray("<a><b><c/></b></a>")
                                 << QByteArray("<a>\n  <b>\n    <c/>\n  </b>\n</a>\n");
    QTest::newRow("property on one line") << QByteArray("<Property name=\"x\" >\n <Int>4</Int>\n</Property>")
                                          << QByteArray("<Property name=\"x\"><Int>4</Int></Property>\n");
    QTest::newRow("blanks in a value stay") << QByteArray("<Property>\n<String> dB </String>\n</Property>")
                                            << QByteArray("<Property><String> dB </String></Property>\n");
    QTest::newRow("a value of blanks stays") << QByteArray("<Property><String>  </String></Property>")
                                             << QByteArray("<Property><String>  </String></Property>\n");
    QTest::newRow("an empty value stays") << QByteArray("<Property><String></String></Property>")
                                          << QByteArray("<Property><String></String></Property>\n");
    QTest::newRow("text of several lines")
        << QByteArray("<Script>\n a\n  b\n</Script>") << QByteArray("<Script>\n a\n  b\n</Script>\n");
    QTest::newRow("cdata") << QByteArray("<r><Script><![CDATA[ <a>\n]]></Script></r>")
                           << QByteArray("<r>\n  <Script><![CDATA[ <a>\n]]></Script>\n</r>\n");
    QTest::newRow("mixed content stays")
        << QByteArray("<a> x <b/>  </a>") << QByteArray("<a> x <b/>  </a>\n");
    QTest::newRow("attributes") << QByteArray("<a  x = \"1  2\"\n y='>'  />")
                                << QByteArray("<a x=\"1  2\" y='>'/>\n");
    QTest::newRow("own comment") << QByteArray("<a>\n<!-- c\n   d -->\n<b/></a>")
                                 << QByteArray("<a>\n  <!-- c\n   d -->\n  <b/>\n</a>\n");
    QTest::newRow("comment behind") << QByteArray("<a>\n<b/>   <!-- c -->\n<d/></a>")
                                    << QByteArray("<a>\n  <b/> <!-- c -->\n  <d/>\n</a>\n");
    QTest::newRow("comment ahead") << QByteArray("<a>\n<!-- c --><b/></a>")
                                   << QByteArray("<a>\n  <!-- c --> <b/>\n</a>\n");
    QTest::newRow("comment in a property")
        << QByteArray("<Property><!-- c -->\n<Int>1</Int></Property>")
        << QByteArray("<Property> <!-- c -->\n  <Int>1</Int>\n</Property>\n");
    QTest::newRow("one blank line stays")
        << QByteArray("<a>\n\n<b/>\n\n\n\n<c/>\n\n</a>") << QByteArray("<a>\n  <b/>\n\n  <c/>\n</a>\n");
    QTest::newRow("line ends") << QByteArray("<a>\r\n<b/></a>") << QByteArray("<a>\r\n  <b/>\r\n</a>\r\n");
    QTest::newRow("prolog")
        << QByteArray("<?xml version=\"1.0\"?><!-- c --><!DOCTYPE a [<!ENTITY e \">\">]><a/>")
        << QByteArray("<?xml version=\"1.0\"?> <!-- c --> <!DOCTYPE a [<!ENTITY e \">\">]>\n<a/>\n");
    QTest::newRow("space is preserved") << QByteArray("<a xml:space=\"preserve\"><b/> </a>")
                                        << QByteArray("<a xml:space=\"preserve\"><b/> </a>\n");
}

void TestFormatter::layout()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const FormattedText once = formatDescription(before);
    QCOMPARE(once.problem, QString());
    QCOMPARE(once.bytes, after);
    QCOMPARE(formatDescription(once.bytes).bytes, after);
}

void TestFormatter::examplesAreLaidOutAlready()
{
    for (const QByteArray& form : cleanForms())
        QCOMPARE(formatDescription(form).bytes, form);
}

void TestFormatter::liveFormStays()
{
    QRandomGenerator random(5);
    for (const QByteArray& form : cleanForms()) {
        const QByteArray other = shaken(form, random);
        const QStringList live = liveForm(other);
        const FormattedText formatted = formatDescription(other);
        QCOMPARE(formatted.problem, QString());
        QVERIFY(formatted.bytes != other);
        QCOMPARE(liveForm(formatted.bytes), live);
    }
}

void TestFormatter::shakenFormsComeBack()
{
    QRandomGenerator random(7);
    const QRegularExpression comment(QStringLiteral("<!-- (?:why|zorva: allow x y) -->"));
    for (int i = 0; i < 60; ++i) {
        const QByteArray form = cleanForms().at(i % 2);
        const QByteArray other = shaken(form, random);
        const FormattedText once = formatDescription(other);
        QCOMPARE(once.problem, QString());
        QCOMPARE(formatDescription(once.bytes).bytes, once.bytes);
        // Every comment and everything else in its order; only blanks differ.
        const auto bare = [](const QByteArray& text) {
            return QString::fromUtf8(text).remove(QRegularExpression(QStringLiteral("\\s")));
        };
        QCOMPARE(bare(once.bytes), bare(other));
        QCOMPARE(QString::fromUtf8(once.bytes).count(comment), QString::fromUtf8(other).count(comment));
    }
}

void TestFormatter::encodings_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto row = [](const char* name, const char* codec, const QByteArray& mark) {
        QTextCodec& c = *QTextCodec::codecForName(codec);
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
        const auto encode = [&](const QString& text) {
            return mark + c.fromUnicode(text.constData(), text.size(), &state);
        };
        const QString head =
            QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?>\n")
                .arg(QString(QLatin1String(codec)).remove(QLatin1String("LE")).remove(QLatin1String("BE")));
        QTest::newRow(name) << encode(head + QStringLiteral("<a><b>µ</b></a>"))
                            << encode(head + QStringLiteral("<a>\n  <b>µ</b>\n</a>\n"));
    };
    row("utf-8", "UTF-8", QByteArray());
    row("utf-8 with a mark", "UTF-8", QByteArray("\xEF\xBB\xBF"));
    row("latin-1", "ISO-8859-1", QByteArray());
    row("utf-16 little", "UTF-16LE", QByteArray("\xFF\xFE"));
    row("utf-16 big", "UTF-16BE", QByteArray("\xFE\xFF"));
}

void TestFormatter::encodings()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const FormattedText formatted = formatDescription(before);
    QCOMPARE(formatted.problem, QString());
    QCOMPARE(formatted.bytes, after);
}

void TestFormatter::refusals_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::newRow("nothing") << QByteArray() << 1;
    QTest::newRow("no xml") << QByteArray("once upon a time") << 1;
    QTest::newRow("unclosed") << QByteArray("<a>\n<b>") << 2;
    QTest::newRow("crossed") << QByteArray("<a>\n<b>\n</a></b>") << 3;
    QTest::newRow("two roots") << QByteArray("<a/>\n<b/>") << 2;
    QTest::newRow("a bare ampersand") << QByteArray("<a>\n & </a>") << 2;
    QTest::newRow("an unknown encoding")
        << QByteArray("<?xml version=\"1.0\" encoding=\"Klingon\"?><a/>") << 1;
    QTest::newRow("bytes of another encoding") << QByteArray("<a>\xE4</a>") << 1;
    QTest::newRow("binary") << QByteArray("\x7F"
                                          "ELF\0\1\2\3",
                                          8)
                            << 1;
}

void TestFormatter::refusals()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    const FormattedText formatted = formatDescription(text);
    QVERIFY(formatted.isRefused());
    QVERIFY(formatted.bytes.isEmpty());
    QCOMPARE(formatted.line, line);
    QVERIFY(formatted.column > 0);
}

void TestFormatter::everyPrefixIsRefused()
{
    const QByteArray whole = formTemplate(QStringLiteral("minimal")).trimmed();
    for (int size = 0; size < whole.size(); ++size)
        QVERIFY2(formatDescription(whole.left(size)).isRefused(), qPrintable(QString::number(size)));
    QVERIFY(!formatDescription(whole).isRefused());
}

void TestFormatter::anyBytesDoNoHarm()
{
    QRandomGenerator random(11);
    for (int i = 0; i < 2000; ++i) {
        QByteArray text = formTemplate(QStringLiteral("minimal"));
        for (int j = random.bounded(5); j >= 0; --j)
            text[random.bounded(text.size())] = "<>/\"'=&;![]-? \n\xC3x"[random.bounded(17)];
        const FormattedText once = formatDescription(text);
        if (!once.isRefused())
            QCOMPARE(formatDescription(once.bytes).bytes, once.bytes);
    }
}

QTEST_MAIN(TestFormatter)
#include "tst_formatter.moc"
