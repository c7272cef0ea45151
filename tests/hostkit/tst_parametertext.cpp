#include <hostkit/parametertext.h>

#include <QTest>

using namespace hostkit;

class TestParameterText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leaves_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<QString>("leaves");
        QTest::newRow("groups") << "<P><a>1</a><g><b unit=\"Hz\">2</b><h><c>3</c></h></g></P>"
                                << "a=1 g/b=2 g/h/c=3";
        QTest::newRow("items of a list") << "<P><l><i index=\"0\">1</i><i index=\"1\">2</i></l></P>"
                                         << "l/i[0]=1 l/i[1]=2";
        QTest::newRow("empty text") << "<P><a/></P>"
                                    << "a=";
        QTest::newRow("escapes") << "<P><a>&lt;&amp;</a></P>"
                                 << "a=<&";
        QTest::newRow("damaged") << "<P><a>1</a><b>2"
                                 << "a=1";
        QTest::newRow("nothing") << ""
                                 << "";
    }
    void leaves()
    {
        QFETCH(QString, xml);
        QStringList found;
        const QList<Parameter> parameters = parametersOf(xml);
        for (const Parameter& parameter : parameters)
            found.append(parameter.path + QLatin1Char('=') + parameter.text);
        QTEST(found.join(QLatin1Char(' ')), "leaves");
    }

    void writtenAndReadIsTheSame()
    {
        const QList<Parameter> parameters{{QStringLiteral("a"), QStringLiteral("<1>")},
                                          {QStringLiteral("g/b"), QStringLiteral("2")},
                                          {QStringLiteral("g/h/c"), QStringLiteral("3")},
                                          {QStringLiteral("g/d[0]"), QStringLiteral("4")},
                                          {QStringLiteral("g/d[1]"), QString()}};
        const QString xml = parameterXml(QStringLiteral("<Root type=\"T\"/>"), parameters);
        QVERIFY2(xml.startsWith(QLatin1String("<Root type=\"T\">")), qPrintable(xml));
        QCOMPARE(xml.count(QLatin1String("<g>")), 1);
        const QList<Parameter> again = parametersOf(xml);
        QCOMPARE(again.size(), parameters.size());
        for (int i = 0; i < again.size(); ++i) {
            QCOMPARE(again.at(i).path, parameters.at(i).path);
            QCOMPARE(again.at(i).text, parameters.at(i).text);
        }
    }
};

QTEST_APPLESS_MAIN(TestParameterText)

#include "tst_parametertext.moc"
