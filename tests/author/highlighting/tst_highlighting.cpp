#include <author/kinds/kindtable.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

using namespace Orvane::Author;

namespace {

QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The items of each list of the definition, by its name.
QMap<QString, QStringList> definedLists()
{
    QMap<QString, QStringList> lists;
    QString current;
    QXmlStreamReader reader(fileText(QStringLiteral(ZORVA_HIGHLIGHTING)));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("list"))
            current = reader.attributes().value(QLatin1String("name")).toString();
        else if (reader.name() == QLatin1String("item"))
            lists[current].append(reader.readElementText());
    }
    return lists;
}

/// True if a trace names the format: names stand in inverse letters below the text.
bool names(const QString& trace, const QString& format)
{
    return trace.contains(QStringLiteral("\x1b[7m") + format + QLatin1Char('\x1b'));
}

} // namespace

/// The definition of KSyntaxHighlighting for forms.
class TestHighlighting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void listsAreThoseOfTheTable();
    void formsAreFound();
    void formats_data();
    void formats();
    void theScriptIsJavaScript();
    void nothingIsWrongInAnExample_data();
    void nothingIsWrongInAnExample();

private:
    QString highlighted(const QString& text, const QStringList& options, const char* name = "form.zorva");

    QTemporaryDir m_folder;
};

void TestHighlighting::initTestCase()
{
    const QString syntax = m_folder.filePath(QStringLiteral("org.kde.syntax-highlighting/syntax"));
    QVERIFY(QDir().mkpath(syntax));
    QVERIFY(QFile::copy(QStringLiteral(ZORVA_HIGHLIGHTING), syntax + QStringLiteral("/zorva.xml")));
}

QString TestHighlighting::highlighted(const QString& text, const QStringList& options, const char* name)
{
    QFile file(m_folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly))
        return QString();
    file.write(text.toUtf8());
    file.close();
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_DIRS"), m_folder.path());
    environment.insert(QStringLiteral("XDG_DATA_HOME"), m_folder.path());
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("kate-syntax-highlighter"), options + QStringList{file.fileName()});
    return process.waitForFinished(60000) ? QString::fromUtf8(process.readAllStandardOutput()) : QString();
}

void TestHighlighting::listsAreThoseOfTheTable()
{
    const KindTable& kinds = KindTable::instance();
    const QMap<QString, QStringList> lists = definedLists();
    QCOMPARE(lists.value(QStringLiteral("elements")), namesOf(kinds.elements()));
    QCOMPARE(lists.value(QStringLiteral("types")), namesOf(kinds.valueTypes()));
    QCOMPARE(lists.value(QStringLiteral("classes")), namesOf(kinds.classes()));
}

// Without being told: by the ending.
void TestHighlighting::formsAreFound()
{
    const QString text = QStringLiteral("<KVParamGui/>\n");
    QCOMPARE(highlighted(text, {}), highlighted(text, {QStringLiteral("-s"), QStringLiteral("Zorva Form")}));
    QVERIFY(highlighted(text, {}).contains(QStringLiteral("KVParamGui")));
}

void TestHighlighting::formats_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("formats");
    const auto row = [](const char* title, const char* text, const char* formats) {
        QTest::newRow(title) << QString::fromUtf8(text)
                             << QString::fromUtf8(formats).split(QLatin1Char('|'), Qt::SkipEmptyParts);
    };
    row("an element of the language", "<Sheet>", "Bracket|Element");
    row("a type", "<Bool>true</Bool>", "Type|Normal Text");
    row("another element", "<Sheeet>", "Other Element");
    row("a class", "<Widget class=\"SpinBox\">", "Attribute|Class");
    row("another class", "<Widget class=\"Spinbox\">", "Attribute|Value");
    row("a comment", "<!-- words -->", "Comment");
    row("a comment that allows", "<!-- zorva: allow nameless why -->", "Permission");
    row("a reference", "<String>&amp;</String>", "Entity");
    row("a lonely ampersand", "<String>a & b</String>", "Error");
    row("an escape", "<Script>{{CR}}{{LF}}</Script>", "Escape");
    row("the script", "<Script><![CDATA[ var a; ]]></Script>", "CDATA|Keyword");
    row("behind the script", "<Script>var a;</Script> <Sheet>", "Element");
}

void TestHighlighting::formats()
{
    QFETCH(QString, text);
    QFETCH(QStringList, formats);
    const QString trace =
        highlighted(text, {QStringLiteral("-f"), QStringLiteral("ansi"), QStringLiteral("--syntax-trace"),
                           QStringLiteral("format"), QStringLiteral("-s"), QStringLiteral("Zorva Form")});
    for (const QString& format : formats)
        QVERIFY2(names(trace, format), qPrintable(trace));
    QCOMPARE(names(trace, QStringLiteral("Error")), formats.contains(QStringLiteral("Error")));
}

// Line by line as if it stood in a file of its own.
void TestHighlighting::theScriptIsJavaScript()
{
    const QString form = fileText(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"));
    const QString script =
        form.section(QStringLiteral("<![CDATA[\n"), 1).section(QStringLiteral("\n  ]]>"), 0, 0);
    const QStringList inForm = highlighted(form, {}).split(QLatin1Char('\n'));
    const QStringList alone =
        highlighted(script + QLatin1Char('\n'), {}, "script.js").split(QLatin1Char('\n'));
    const int first = form.left(form.indexOf(QStringLiteral("<![CDATA[\n"))).count(QLatin1Char('\n')) + 1;
    const int count = script.count(QLatin1Char('\n')) + 1;
    const auto firstLine = [](const QStringList& html) {
        return html.indexOf(QRegularExpression(QStringLiteral("<pre>.*|.*<pre>"))) + 1;
    };
    QVERIFY(count > 100);
    QVERIFY(alone.join(QLatin1Char('\n')).contains(QStringLiteral("<span")));
    for (int line = 0; line < count; ++line)
        QCOMPARE(inForm.value(firstLine(inForm) + first + line), alone.value(firstLine(alone) + line));
}

void TestHighlighting::nothingIsWrongInAnExample_data()
{
    QTest::addColumn<QString>("path");
    for (const char* const name : {"receiver.zorva", "gallery.zorva", "minimal.zorva"})
        QTest::newRow(name) << QDir(QStringLiteral(ZORVA_EXAMPLES_DIR)).filePath(QLatin1String(name));
}

void TestHighlighting::nothingIsWrongInAnExample()
{
    QFETCH(QString, path);
    const QString trace =
        highlighted(fileText(path), {QStringLiteral("-f"), QStringLiteral("ansi"),
                                     QStringLiteral("--syntax-trace"), QStringLiteral("format")});
    QVERIFY(names(trace, QStringLiteral("Element")));
    QVERIFY(!names(trace, QStringLiteral("Error")));
    QVERIFY(!names(trace, QStringLiteral("Other Element")));
}

QTEST_GUILESS_MAIN(TestHighlighting)
#include "tst_highlighting.moc"
