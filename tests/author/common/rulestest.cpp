#include "rulestest.h"

void RulesTest::add(const char* what, const QString& description, const char* places, const char* effects)
{
    QTest::newRow(what) << description << QString::fromLatin1(places) << QString::fromLatin1(effects);
}

void RulesTest::whole(const char* what, const char* text, const char* places, const char* effects)
{
    add(what, QString::fromUtf8(text), places, effects);
}

void RulesTest::rows(const char* what, const char* text, const char* places, const char* effects)
{
    add(what, formOf(text), places, effects);
}

void RulesTest::rules_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("places");
    QTest::addColumn<QString>("effects");
    addCases();
}

void RulesTest::rules()
{
    QFETCH(QString, text);
    QFETCH(QString, places);
    QFETCH(QString, effects);
    QCOMPARE(placesIn(text), places);
    QCOMPARE(effectsIn(text), effects);
}
