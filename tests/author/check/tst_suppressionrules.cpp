#include "checktest.h"

#include <QTest>

class tst_suppressionrules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void comments_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("places");
        const auto row = [](const char* what, const char* rows, const char* places) {
            QTest::newRow(what) << formOf(rows) << QString::fromLatin1(places);
        };
        row("before the element", "<!-- zorva: allow nameless made so -->\n<Widget class=\"Separator\"/>",
            "");
        row("on the line", "<Widget class=\"Separator\"/> <!-- zorva: allow nameless made so -->", "");
        row("for all in the element",
            "<!-- zorva: allow doubled-property kept -->\n<Widget name=\"a\" class=\"Separator\">\n"
            "<Property name=\"toolTip\"><String>1</String></Property>\n"
            "<Property name=\"toolTip\"><String>2</String></Property>\n</Widget>",
            "");
        row("not for the line behind",
            "<Widget name=\"a\" class=\"Separator\"/> <!-- zorva: allow nameless made so -->\n<Widget "
            "class=\"Separator\"/>",
            "unused-allow 3:38, nameless 4:1");
        row("of another rule", "<!-- zorva: allow doubled-property no -->\n<Widget class=\"Separator\"/>",
            "unused-allow 3:1, nameless 4:1");
        row("without a reason", "<!-- zorva: allow nameless -->\n<Widget class=\"Separator\"/>",
            "bad-allow 3:1, nameless 4:1");
        row("of no rule", "<!-- zorva: allow namless yes -->\n<Widget name=\"a\" class=\"Separator\"/>",
            "bad-allow 3:1");
        row("an ordinary comment", "<!-- zorva is fine -->\n<Widget name=\"a\" class=\"Separator\"/>", "");
    }

    void comments()
    {
        QFETCH(QString, text);
        QFETCH(QString, places);
        QCOMPARE(placesIn(text), places);
    }
};

QTEST_MAIN(tst_suppressionrules)
#include "tst_suppressionrules.moc"
