#include <layout/markup.h>

#include <QImage>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <QUrl>

/// A document that counts what it is asked to load.
class CountingDocument : public QTextDocument
{
public:
    int loaded = 0;

protected:
    QVariant loadResource(int, const QUrl&) override
    {
        ++loaded;
        return QByteArray();
    }
};

class tst_Markup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void harmlessTextStaysAsItIs_data();
    void harmlessTextStaysAsItIs();
    void nothingIsLoaded_data();
    void nothingIsLoaded();
    void beyondTheBoundsIsPlain_data();
    void beyondTheBoundsIsPlain();
    void whatIsLeftStaysRich();
    void plainIsPlain();
    void changesBetweenTheTwo();
    void fragments_data();
    void fragments();
};

void tst_Markup::harmlessTextStaysAsItIs_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QString();
    QTest::newRow("plain") << QStringLiteral("Bandwidth [kHz]");
    QTest::newRow("ampersand") << QStringLiteral("A & B");
    QTest::newRow("less") << QStringLiteral("SNR < 3 dB");
    QTest::newRow("bold") << QStringLiteral("<b>Bandwidth</b>");
    QTest::newRow("entities") << QStringLiteral("a &lt; b &amp; c");
    QTest::newRow("colour") << QStringLiteral("<font color=\"#999999\" size=+1>grey</font>");
    QTest::newRow("style") << QStringLiteral("<span style='color:#123456; font-size:12pt'>x</span>");
    QTest::newRow("own sheet") << QStringLiteral("<style>b { color: red }</style><b>x</b>");
    QTest::newRow("table") << QStringLiteral(
        "<table border=1 width=\"100%\"><tr><td colspan=2>x</td></tr></table>");
    QTest::newRow("link") << QStringLiteral("<a href=\"http://example.org:8080/99999999?a=1&b=2\">page</a>");
    QTest::newRow("line") << QStringLiteral("first<br/>second<hr />");
    QTest::newRow("unknown tag") << QStringLiteral("<html><frequency>5</frequency>");
    QTest::newRow("paragraphs") << QStringLiteral("<p>a").repeated(100);
}

void tst_Markup::harmlessTextStaysAsItIs()
{
    QFETCH(QString, text);
    QLabel label;
    Markup::show(&label, text);
    QCOMPARE(label.text(), text);
    QCOMPARE(label.textFormat(), Qt::AutoText);
    QCOMPARE(Markup::toolTip(text), text);
}

void tst_Markup::nothingIsLoaded_data()
{
    QTest::addColumn<QString>("text");

    // %1 is a file.
    QTest::newRow("image") << QStringLiteral("<b>x</b><img src=\"%1\">y");
    QTest::newRow("image alone") << QStringLiteral("<img src=\"%1\">");
    QTest::newRow("bare value") << QStringLiteral("<b>x</b><img src=%1>");
    QTest::newRow("capitals") << QStringLiteral("<b>x</b><IMG SRC='%1'/>");
    QTest::newRow("lines between") << QStringLiteral("<b>x</b><img\n\tsrc\n=\n\"%1\"\n>");
    QTest::newRow("blank before the name") << QStringLiteral("<b>x</b>< img src=\"%1\">");
    QTest::newRow("name in quotes") << QStringLiteral("<b>x</b><\"img\" src=\"%1\">");
    QTest::newRow("name with an entity") << QStringLiteral("<b>x</b><im&#103; src=\"%1\">");
    QTest::newRow("attribute with an entity") << QStringLiteral("<body b&#97;ckground=\"%1\">x");
    QTest::newRow("not closed") << QStringLiteral("<b>x</b><img src=\"%1\"");
    QTest::newRow("image in a list") << QStringLiteral("<ul><li><p><img src=\"%1\"></ul>");
    QTest::newRow("behind a comment") << QStringLiteral("<b>x</b><!-- > --><img src=\"%1\">");
    QTest::newRow("behind a false comment") << QStringLiteral("<b>x</b><!- > <img src=\"%1\">");
    QTest::newRow("behind a declaration") << QStringLiteral("<?xml version='1.0'?><img src=\"%1\">");
    QTest::newRow("in a comment that does not end") << QStringLiteral("<b>x</b><!-- <img src=\"%1\">");
    QTest::newRow("background") << QStringLiteral("<body background=\"%1\">x</body>");
    QTest::newRow("background of a cell") << QStringLiteral("<table><tr><td background='%1'>x</table>");
    QTest::newRow("style") << QStringLiteral("<p style=\"background-image: url(%1)\">x</p>");
    QTest::newRow("style in capitals") << QStringLiteral("<p STYLE='background: URL(\"%1\")'>x</p>");
    QTest::newRow("style with an escape") << QStringLiteral("<p style='background-image: u\\72l(%1)'>x</p>");
    QTest::newRow("style with an entity")
        << QStringLiteral("<p style='background-image: u&#114;l(%1)'>x</p>");
    QTest::newRow("sheet") << QStringLiteral("<style>p { background-image: url(%1) }</style><p>x</p>");
    QTest::newRow("sheet that imports") << QStringLiteral("<style>@import url(%1);</style><p>x</p>");
    QTest::newRow("sheet by link") << QStringLiteral(
        "<link rel=stylesheet type=text/css href=\"%1\"><p>x</p>");
    QTest::newRow("marker of a list") << QStringLiteral("<ul style='list-style-image: url(%1)'><li>x</ul>");
    QTest::newRow("value with an angle") << QStringLiteral("<b title='>'>x</b><img alt=\">\" src=\"%1\">");
    QTest::newRow("open quote") << QStringLiteral("<b title='>x</b><img src=\"%1\">");
}

void tst_Markup::nothingIsLoaded()
{
    QFETCH(QString, text);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture.png"));
    QVERIFY(QImage(5, 5, QImage::Format_RGB32).save(path));
    for (const QString& file :
         {path, QUrl::fromLocalFile(path).toString(), QStringLiteral("data:image/png;base64,iVBORw0KGgo=")}) {
        QLabel label;
        Markup::show(&label, text.arg(file));
        for (const QString& shown : {label.text(), Markup::toolTip(text.arg(file)),
                                     QStringLiteral("<html>") + Markup::fragment(text.arg(file))}) {
            CountingDocument document;
            document.setHtml(shown);
            document.size();
            QVERIFY2(document.loaded == 0, qPrintable(shown));
            QVERIFY2(!document.toPlainText().contains(QChar(QChar::ObjectReplacementCharacter)),
                     qPrintable(shown));
        }
    }
}

void tst_Markup::beyondTheBoundsIsPlain_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("long") << QStringLiteral("<b>x</b>") + QString(200000, QLatin1Char('y'));
    QTest::newRow("many tags") << QStringLiteral("<b>x</b>").repeated(1000);
    QTest::newRow("many comments") << QStringLiteral("<b>x</b>") + QStringLiteral("<!---->").repeated(1000);
    QTest::newRow("many lesses") << QStringLiteral("<b>x</b>") + QStringLiteral("< ").repeated(1000);
    QTest::newRow("deep") << QStringLiteral("<ul>").repeated(100) + QStringLiteral("x");
    QTest::newRow("tables in tables") << QStringLiteral("<table><tr><td>").repeated(24);
    QTest::newRow("wide table") << QStringLiteral("<table width=2000000000><tr><td>x</table>");
    QTest::newRow("wide table, with exponent") << QStringLiteral("<table width=\"2e9\"><tr><td>x</table>");
    QTest::newRow("wide table, with entity") << QStringLiteral("<table width=\"&#50;000000000\"><tr><td>x");
    QTest::newRow("percent") << QStringLiteral("<table width='90000000%'><tr><td>x</table>");
    QTest::newRow("padding") << QStringLiteral("<table cellpadding=500000000><tr><td>x</table>");
    QTest::newRow("border") << QStringLiteral("<TABLE BORDER=500000000><tr><td>x</table>");
    QTest::newRow("span") << QStringLiteral("<table><tr><td colspan=100000000>x</table>");
    QTest::newRow("rows") << QStringLiteral("<table><tr><td rowspan=100000000>x</table>");
    QTest::newRow("font") << QStringLiteral("<span style='font-size: 100000000pt'>x</span>");
    QTest::newRow("margin") << QStringLiteral("<p style='margin: 0 -900000000px'>x</p>");
    QTest::newRow("sheet") << QStringLiteral("<style>p { margin: 900000000px }</style><p>x</p>");
    QTest::newRow("line") << QStringLiteral("<hr width=90000000>x");
    QTest::newRow("in sum") << QStringLiteral("<p style='margin: 900px'>x").repeated(20);
}

void tst_Markup::beyondTheBoundsIsPlain()
{
    QFETCH(QString, text);
    QVERIFY(Qt::mightBeRichText(text));
    QLabel label;
    Markup::show(&label, text);
    QCOMPARE(label.text(), text);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    const QString toolTip = Markup::toolTip(text);
    QVERIFY(Qt::mightBeRichText(toolTip));
    QTextDocument document;
    document.setHtml(toolTip);
    QVERIFY(document.toPlainText().startsWith(text.left(30)));
    document.setHtml(QStringLiteral("<html>") + Markup::fragment(text));
    QVERIFY(document.toPlainText().trimmed().startsWith(text.left(30)));
}

void tst_Markup::whatIsLeftStaysRich()
{
    const QString text = QStringLiteral("<img src=x>a &amp; b");
    QLabel label;
    Markup::show(&label, text);
    QCOMPARE(label.text(), QStringLiteral("a &amp; b"));
    QCOMPARE(label.textFormat(), Qt::RichText);
    QCOMPARE(Markup::toolTip(text), QStringLiteral("<html>a &amp; b"));
    QCOMPARE(Markup::toolTip(QStringLiteral("<img src=x>")), QString());
    Markup::show(&label, QStringLiteral("<p background=x align=left>a</p>"));
    QCOMPARE(label.text(), QStringLiteral("<p align=left>a</p>"));
}

void tst_Markup::plainIsPlain()
{
    QLabel label;
    const QString text = QStringLiteral("<b>x</b><img src=x>");
    Markup::showPlain(&label, text);
    QCOMPARE(label.text(), text);
    QCOMPARE(label.textFormat(), Qt::PlainText);
    QLabel plain;
    plain.setTextFormat(Qt::PlainText);
    plain.setText(text);
    QCOMPARE(label.sizeHint(), plain.sizeHint());
    QTextDocument document;
    document.setHtml(Markup::plainToolTip(text));
    QCOMPARE(document.toPlainText(), text);
    QCOMPARE(Markup::plainToolTip(QStringLiteral("A & B")), QStringLiteral("A & B"));
}

void tst_Markup::changesBetweenTheTwo()
{
    QLabel label;
    const QString text = QStringLiteral("<b>x</b>");
    QLabel rich(text);
    for (int i = 0; i < 2; ++i) {
        Markup::showPlain(&label, text);
        QVERIFY(label.sizeHint() != rich.sizeHint());
        Markup::show(&label, text);
        QCOMPARE(label.sizeHint(), rich.sizeHint());
    }
}

void tst_Markup::fragments_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("fragment");

    QTest::newRow("plain") << "Level [dB]"
                           << "Level [dB]";
    QTest::newRow("rich") << "<b>Level</b>"
                          << "<b>Level</b>";
    QTest::newRow("ampersand") << "A & B"
                               << "A & B";
    QTest::newRow("no tag") << "SNR < 3 dB"
                            << "SNR &lt; 3 dB";
    QTest::newRow("image behind what looks plain") << "a\n<img src=x>b"
                                                   << "a\nb";
}

void tst_Markup::fragments()
{
    QFETCH(QString, text);
    QTEST(Markup::fragment(text), "fragment");
}

QTEST_MAIN(tst_Markup)
#include "tst_markup.moc"
