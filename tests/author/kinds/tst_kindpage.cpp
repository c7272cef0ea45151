#include <author/kinds/kindpage.h>
#include <author/kinds/kindtable.h>

#include <QFile>
#include <QTest>

using namespace Orvane::Author;

namespace {

QString pageText(const QString& name)
{
    QFile file(QStringLiteral(ZORVA_SOURCE_DIR "/docs/") + name);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

/// The tables on the pages come from the table of the language.
class TestKindPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pagesAreFresh_data();
    void pagesAreFresh();
    void everyClassIsTold();
    void aStaleTableIsRenewed();
    void renewingTwiceIsRenewingOnce();
    void problems_data();
    void problems();
};

void TestKindPage::pagesAreFresh_data()
{
    QTest::addColumn<QString>("page");
    for (const char* page : {"control-kinds.md", "form-language.md", "scripting.md"})
        QTest::newRow(page) << QString::fromLatin1(page);
}

void TestKindPage::pagesAreFresh()
{
    QFETCH(QString, page);
    const QString text = pageText(page);
    QVERIFY(text.contains(QStringLiteral("<!-- kinds: ")));
    const KindPage fresh = renewKindPage(text);
    QCOMPARE(fresh.problem, QString());
    QVERIFY2(
        fresh.text == text,
        qPrintable(QStringLiteral("docs/%1 is stale; renew it with: zorva kinds --renew docs/%1").arg(page)));
}

void TestKindPage::everyClassIsTold()
{
    const QStringList told = renewKindPage(pageText(QStringLiteral("control-kinds.md"))).classes;
    for (const ControlClass& controlClass : KindTable::instance().classes())
        QCOMPARE(told.count(controlClass.name), 1);
}

void TestKindPage::aStaleTableIsRenewed()
{
    const KindPage page =
        renewKindPage(QStringLiteral("a\n<!-- kinds: Label -->\n\n| old |\n\n<!-- kinds end -->\nb\n"));
    QCOMPARE(page.classes, QStringList(QStringLiteral("Label")));
    QVERIFY(page.text.startsWith(QStringLiteral("a\n<!-- kinds: Label -->\n\n| Property |")));
    QVERIFY(page.text.endsWith(QStringLiteral("\n<!-- kinds end -->\nb\n")));
    QVERIFY(page.text.contains(QStringLiteral("| `text` | String | empty | the text shown, translated |")));
    QVERIFY(!page.text.contains(QStringLiteral("old")));
}

void TestKindPage::renewingTwiceIsRenewingOnce()
{
    const QString once = renewKindPage(pageText(QStringLiteral("control-kinds.md"))).text;
    QCOMPARE(renewKindPage(once).text, once);
}

void TestKindPage::problems_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("unknown class") << QStringLiteral("<!-- kinds: Labels -->\n<!-- kinds end -->\n");
    QTest::newRow("no end") << QStringLiteral("<!-- kinds: Label -->\n");
    QTest::newRow("no line end") << QStringLiteral("<!-- kinds: Label -->");
}

void TestKindPage::problems()
{
    QFETCH(QString, page);
    const KindPage renewed = renewKindPage(page);
    QVERIFY(!renewed.problem.isEmpty());
    QCOMPARE(renewed.text, page);
}

QTEST_APPLESS_MAIN(TestKindPage)
#include "tst_kindpage.moc"
