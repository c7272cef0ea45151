#include <shell/xmlfile.h>

#include <QTemporaryDir>
#include <QtTest>

class TestXmlFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void encodings_data();
    void encodings();
    void mistakesInXml_data();
    void mistakesInXml();
    void filesThatCannotBeRead();
};

void TestXmlFile::encodings_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("wrong");
    const auto row = [](const char* name, const QByteArray& bytes, const char* text, const char* wrong) {
        QTest::newRow(name) << bytes << QString::fromUtf8(text) << QString::fromLatin1(wrong);
    };
    row("ASCII", "<a/>", "<a/>", "");
    row("UTF-8", "<a>\xc3\xb6</a>", "<a>\xc3\xb6</a>", "");
    row("UTF-8 with a mark", "\xef\xbb\xbf<a>\xc3\xb6</a>", "<a>\xc3\xb6</a>", "");
    row("declared Latin-1", "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xf6</a>",
        "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xc3\xb6</a>", "");
    row("UTF-16", QByteArray::fromHex("fffe3c0061002f003e00"), "<a/>", "");
    row("Latin-1 without a word",
        "<a>\n  <b>Gr\xf6\xdf"
        "e</b></a>",
        "<a>\n  <b>Gr", "line 2, column 8: wrong encoding, this is not UTF-8");
    row("in the first byte", "\xff<a/>", "", "line 1, column 1: wrong encoding, this is not UTF-8");
    row("behind letters of several bytes", "<a>\xc3\xb6\xc3\xb6\xff</a>", "<a>\xc3\xb6\xc3\xb6",
        "line 1, column 6: wrong encoding, this is not UTF-8");
    row("cut off in a letter", "<a>\xc3", "<a>", "line 1, column 4: wrong encoding, this is not UTF-8");
    row("declared UTF-8", "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xf6</a>",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>",
        "line 2, column 4: wrong encoding, this is not UTF-8 as declared");
    row("unknown", "<?xml version='1.0' encoding='Klingon'?><a/>", "",
        "line 1, column 1: the encoding Klingon that it declares is unknown");
}

void TestXmlFile::encodings()
{
    QFETCH(QByteArray, bytes);
    const XmlFile file = readXml(bytes);
    QTEST(file.text, "text");
    QTEST(file.wrongEncoding, "wrong");
}

void TestXmlFile::mistakesInXml_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("begin");
    QTest::newRow("none") << QByteArray("<a><b/></a>") << QString();
    QTest::newRow("wrong end") << QByteArray("<a>\n<b></a>") << QStringLiteral("line 2, column ");
    QTest::newRow("cut off") << QByteArray("<a>\n\n<b>") << QStringLiteral("line 3, column ");
    QTest::newRow("empty") << QByteArray() << QStringLiteral("line 1, column 0: ");
    QTest::newRow("no XML") << QByteArray("words") << QStringLiteral("line 1, column ");
}

void TestXmlFile::mistakesInXml()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, begin);
    const XmlFile file = readXml(bytes);
    QCOMPARE(file.wrongEncoding, QString());
    QCOMPARE(file.wrongXml.isEmpty(), begin.isEmpty());
    QVERIFY2(file.wrongXml.startsWith(begin), qPrintable(file.wrongXml));
}

void TestXmlFile::filesThatCannotBeRead()
{
    const QTemporaryDir folder;
    QCOMPARE(readXmlFile(folder.filePath(QStringLiteral("missing"))).text, QString());
    QFile file(folder.filePath(QStringLiteral("there")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<a/>");
    file.close();
    QCOMPARE(readXmlFile(file.fileName()).text, QStringLiteral("<a/>"));
}

QTEST_GUILESS_MAIN(TestXmlFile)
#include "tst_xmlfile.moc"
