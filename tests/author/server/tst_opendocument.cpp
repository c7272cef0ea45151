#include <author/server/opendocument.h>

#include <QRandomGenerator>
#include <QTest>

using namespace Orvane::Author;

Q_DECLARE_METATYPE(EditorRange)

/// Positions of an editor, and changes that come in pieces.
class TestOpenDocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void positions_data();
    void positions();
    void changes_data();
    void changes();
    void anyChangesAreLikeTheWholeText();
    void theEncodingIsTheDeclaredOne_data();
    void theEncodingIsTheDeclaredOne();
};

namespace {

// A musical clef and an emoji: two UTF-16 units each.
const QString clef = QString::fromUtf8("\xf0\x9d\x84\x9e");
const QString smile = QString::fromUtf8("\xf0\x9f\x98\x80");

OpenDocument documentOf(const QString& text)
{
    return OpenDocument(QStringLiteral("file:///form.zorva"), text, 1);
}

} // namespace

void TestOpenDocument::positions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("character");
    QTest::addColumn<int>("offset");
    const QString lines = QStringLiteral("ab\ncd\r\nef\rgh");
    QTest::newRow("begin") << lines << 0 << 0 << 0;
    QTest::newRow("behind a line feed") << lines << 1 << 1 << 4;
    QTest::newRow("behind both") << lines << 2 << 0 << 7;
    QTest::newRow("behind a carriage return") << lines << 3 << 2 << 12;
    QTest::newRow("beyond the line") << lines << 1 << 99 << 5;
    QTest::newRow("beyond the text") << lines << 99 << 0 << 12;
    QTest::newRow("empty text") << QString() << 0 << 5 << 0;
    QTest::newRow("letters of two units count twice") << (clef + QStringLiteral("x")) << 0 << 2 << 2;
    QTest::newRow("between the units of a letter") << (clef + smile) << 0 << 3 << 2;
    QTest::newRow("behind the last letter of two") << (clef + smile) << 0 << 4 << 4;
    QTest::newRow("byte order mark") << (QString(QChar(0xfeff)) + QStringLiteral("abc")) << 0 << 2 << 1;
}

void TestOpenDocument::positions()
{
    QFETCH(QString, text);
    QFETCH(int, line);
    QFETCH(int, character);
    QFETCH(int, offset);
    const OpenDocument document = documentOf(text);
    QCOMPARE(document.offset({line, character}), offset);
    const EditorPosition back = document.position(offset);
    QCOMPARE(document.offset(back), offset);
}

void TestOpenDocument::changes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<EditorRange>("range");
    QTest::addColumn<QString>("inserted");
    QTest::addColumn<QString>("changed");
    const auto text = [](const char* words) { return QString::fromUtf8(words); };
    QTest::newRow("insert") << text("ab\ncd") << EditorRange{{1, 1}, {1, 1}} << text("x") << text("ab\ncxd");
    QTest::newRow("remove a line end")
        << text("ab\ncd") << EditorRange{{0, 2}, {1, 0}} << text("") << text("abcd");
    QTest::newRow("over lines") << text("ab\ncd\nef") << EditorRange{{0, 1}, {2, 1}} << text("\n\n")
                                << text("a\n\nf");
    QTest::newRow("end before begin")
        << text("abcd") << EditorRange{{0, 3}, {0, 1}} << text("-") << text("a-d");
    QTest::newRow("behind a letter of two units")
        << (clef + text("b")) << EditorRange{{0, 2}, {0, 3}} << text("c") << (clef + text("c"));
    QTest::newRow("a letter of two units") << (text("a") + clef + text("b")) << EditorRange{{0, 1}, {0, 3}}
                                           << smile << (text("a") + smile + text("b"));
    QTest::newRow("at the end") << text("a\n") << EditorRange{{1, 0}, {1, 0}} << text("b") << text("a\nb");
    QTest::newRow("nowhere") << text("a") << EditorRange{{7, 0}, {9, 0}} << text("b") << text("ab");
}

void TestOpenDocument::changes()
{
    QFETCH(QString, text);
    QFETCH(EditorRange, range);
    QFETCH(QString, inserted);
    QFETCH(QString, changed);
    OpenDocument document = documentOf(text);
    document.change(range, inserted);
    QCOMPARE(document.text(), changed);
}

void TestOpenDocument::anyChangesAreLikeTheWholeText()
{
    QRandomGenerator random(7);
    const QStringList pieces{QStringLiteral("\n"),
                             QStringLiteral("\r"),
                             QStringLiteral("\r\n"),
                             QStringLiteral("x"),
                             clef,
                             QString(),
                             QStringLiteral("<a>\n</a>\r")};
    OpenDocument document = documentOf(QStringLiteral("one\r\ntwo\nthree\rfour"));
    QString text = document.text();
    for (int i = 0; i < 2000; ++i) {
        const int begin = document.offset(document.position(random.bounded(text.size() + 1)));
        const int end = document.offset(document.position(qMin(text.size(), begin + random.bounded(4))));
        const QString piece = pieces.at(random.bounded(pieces.size()));
        const EditorRange range = document.range({begin, end});
        document.change(range, piece);
        text.replace(qMin(begin, end), qAbs(end - begin), piece);
        QCOMPARE(document.text(), text);
        const OpenDocument whole = documentOf(text);
        for (int line = 0; line < 12; ++line)
            QCOMPARE(document.offset({line, 0}), whole.offset({line, 0}));
        if (text.size() > 60) {
            document.setText(QStringLiteral("again\r\n"));
            text = document.text();
        }
    }
}

void TestOpenDocument::theEncodingIsTheDeclaredOne_data()
{
    QTest::addColumn<QString>("text");
    const QString declared = QStringLiteral("<?xml version=\"1.0\" encoding=\"%1\"?><a>\u00b5</a>");
    QTest::newRow("none") << QStringLiteral("<a>\u00b5</a>");
    for (const char* const name : {"UTF-8", "ISO-8859-1", "UTF-16", "windows-1252", "unheard-of"})
        QTest::newRow(name) << declared.arg(QLatin1String(name));
}

void TestOpenDocument::theEncodingIsTheDeclaredOne()
{
    QFETCH(QString, text);
    const OpenDocument document = documentOf(text);
    QCOMPARE(document.text(), text);
    QCOMPARE(document.subject().reading().brokenAt() < 0, !text.contains(QStringLiteral("unheard-of")));
}

QTEST_APPLESS_MAIN(TestOpenDocument)
#include "tst_opendocument.moc"
