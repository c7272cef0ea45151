#include "enginetest.h"

#include <zorvaparser/zorvascript.h>

#include <QXmlStreamReader>

using Orvane::ZorvaScript;

namespace {

ZorvaScript parsedScript(const QString& xml)
{
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    ZorvaScript script;
    script.ParseZORVA(reader);
    return script;
}

} // namespace

class tst_zorvascript : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void newScriptIsEmpty()
    {
        const ZorvaScript script;
        QCOMPARE(script.GetLanguage(), QString());
        QCOMPARE(script.GetCode(), QString());
    }

    void codeIsTheTextWithItsEscapes_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("code");
        QTest::newRow("plain") << "var a = 1;"
                               << "var a = 1;";
        QTest::newRow("empty") << ""
                               << "";
        QTest::newRow("line end") << "a{{CR}}{{LF}}b"
                                  << "a\r\nb";
        QTest::newRow("several") << "{{LF}}{{LF}}x{{CR}}"
                                 << "\n\nx\r";
        QTest::newRow("lower case stays") << "{{cr}}{{lf}}{{Cr}}"
                                          << "{{cr}}{{lf}}{{Cr}}";
        QTest::newRow("half an escape stays") << "{CR}{{CR}{{TAB}}"
                                              << "{CR}{{CR}{{TAB}}";
        QTest::newRow("escape inside an escape") << "{{L{{CR}}F}}"
                                                 << "{{L\rF}}";
        QTest::newRow("entities") << "a &lt; b &amp;&amp; c"
                                  << "a < b && c";
        QTest::newRow("CDATA") << "<![CDATA[if (a < b) {{LF}}]]>"
                               << "if (a < b) \n";
        QTest::newRow("comment inside") << "a<!-- no -->b"
                                        << "ab";
        QTest::newRow("white space kept") << "  a \n b  "
                                          << "  a \n b  ";
    }

    void codeIsTheTextWithItsEscapes()
    {
        QFETCH(QString, xml);
        QFETCH(QString, code);
        QCOMPARE(parsedScript(QStringLiteral("<Script>%1</Script>").arg(xml)).GetCode(), code);
    }

    void languageIsKept()
    {
        QCOMPARE(parsedScript(QStringLiteral("<Script language=\"other\"/>")).GetLanguage(),
                 QStringLiteral("other"));
        QCOMPARE(parsedScript(QStringLiteral("<Script/>")).GetLanguage(), QString());
    }

    void secondScriptReplacesTheFirst()
    {
        const FormPointer form =
            parsed(rootXml(QStringLiteral("<Script language=\"a\">first</Script><Script>second</Script>")));
        QCOMPARE(form->GetScript().GetCode(), QStringLiteral("second"));
        QCOMPARE(form->GetScript().GetLanguage(), QString());
    }

    void nestedElementEndsTheParse()
    {
        const FormPointer form = parsed(rootXml(QStringLiteral(
            "<Enums><Enum name=\"before\"/></Enums><Script>a<b/>c</Script><Sheet name=\"s\"/>")));
        QVERIFY(form->GetEnum(QStringLiteral("before")) != form->GetEmptyEnum());
        QCOMPARE(form->GetSheet().GetName(), QString());
    }

    void parsingRunsNothing()
    {
        const FormPointer form = parsed(rootXml(QStringLiteral("<Script>ran = true; throw 'no';</Script>")));
        QVERIFY(!form->GetScriptValues().contains(QStringLiteral("ran")));
    }
};

QTEST_MAIN(tst_zorvascript)
#include "tst_zorvascript.moc"
