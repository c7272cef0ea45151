#include "enginetest.h"

#include <zorvaparser/zorvaenum.h>

#include <QXmlStreamReader>

using Orvane::ZorvaEnum;
using Orvane::ZorvaEnumValue;

namespace {

ZorvaEnum detectors()
{
    ZorvaEnum enumeration(QStringLiteral("Detector"));
    enumeration.AppendEnumValue(QStringLiteral("Average"), QStringLiteral("AVG"), QStringLiteral("1"));
    enumeration.AppendEnumValue(QStringLiteral("Peak"), QStringLiteral("PEAK"), QStringLiteral("2"));
    enumeration.AppendEnumValue(QStringLiteral("Sample"), QStringLiteral("SMP"), QStringLiteral("fast"));
    return enumeration;
}

QStringList textsOf(const ZorvaEnumValue& value)
{
    return {value.GetDisplayName(), value.GetEnumIdentifier(), value.GetValue()};
}

const QStringList noTexts{QString(), QString(), QString()};

ZorvaEnum parsedEnum(const QString& xml)
{
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    ZorvaEnum enumeration;
    enumeration.ParseZORVA(reader);
    return enumeration;
}

} // namespace

class tst_zorvaenum : public EngineTest
{
    Q_OBJECT

private Q_SLOTS:
    void newValueIsEmpty()
    {
        QCOMPARE(textsOf(ZorvaEnumValue()), noTexts);
        const ZorvaEnumValue value(QStringLiteral("d"), QStringLiteral("i"), QStringLiteral("v"));
        QCOMPARE(textsOf(value),
                 (QStringList{QStringLiteral("d"), QStringLiteral("i"), QStringLiteral("v")}));
    }

    void valueAsNumber_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("expected");
        QTest::newRow("number") << "2" << 2.0;
        QTest::newRow("exponent") << "1e3" << 1000.0;
        QTest::newRow("word") << "fast" << 7.5;
        QTest::newRow("empty") << "" << 7.5;
        QTest::newRow("number with unit") << "2 dB" << 7.5;
    }

    void valueAsNumber()
    {
        QFETCH(QString, text);
        QFETCH(double, expected);
        QCOMPARE(ZorvaEnumValue(QString(), QString(), text).GetDoubleValue(7.5), expected);
    }

    void missedLookupGivesFirstEntry()
    {
        const ZorvaEnum enumeration = detectors();
        bool found = true;
        QCOMPARE(enumeration.FindValue(QStringLiteral("9"), &found).GetDisplayName(),
                 QStringLiteral("Average"));
        QVERIFY(!found);
        QCOMPARE(enumeration.FindValue(QStringLiteral("9"), nullptr).GetDisplayName(),
                 QStringLiteral("Average"));
        QCOMPARE(enumeration.FindName(QStringLiteral("Quasi")).GetDisplayName(), QStringLiteral("Average"));
    }

    void lookupFindsByNameAndValue()
    {
        const ZorvaEnum enumeration = detectors();
        bool found = false;
        QCOMPARE(enumeration.FindValue(QStringLiteral("2"), &found).GetDisplayName(), QStringLiteral("Peak"));
        QVERIFY(found);
        QCOMPARE(enumeration.FindName(QStringLiteral("Sample")).GetValue(), QStringLiteral("fast"));
        QCOMPARE(enumeration.firstIndexOfName(QStringLiteral("Peak")), 1);
        QCOMPARE(enumeration.firstIndexOfValue(QStringLiteral("fast")), 2);
    }

    void lookupIsExactAndIgnoresIdentifiers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("other case") << "peak";
        QTest::newRow("identifier") << "PEAK";
        QTest::newRow("blank behind") << "Peak ";
        QTest::newRow("equal number, other text") << "2.0";
        QTest::newRow("empty") << "";
    }

    void lookupIsExactAndIgnoresIdentifiers()
    {
        QFETCH(QString, text);
        const ZorvaEnum enumeration = detectors();
        QCOMPARE(enumeration.firstIndexOfName(text), -1);
        QCOMPARE(enumeration.firstIndexOfValue(text), -1);
    }

    void lookupInEmptyEnumerationGivesEmptyValue()
    {
        const ZorvaEnum enumeration;
        bool found = true;
        QCOMPARE(textsOf(enumeration.FindValue(QStringLiteral("1"), &found)), noTexts);
        QVERIFY(!found);
        QCOMPARE(textsOf(enumeration.FindName(QStringLiteral("Peak"))), noTexts);
    }

    void indexOutOfRangeGivesEmptyValue_data()
    {
        QTest::addColumn<int>("index");
        QTest::newRow("negative") << -1;
        QTest::newRow("count") << 3;
        QTest::newRow("huge") << std::numeric_limits<int>::max();
        QTest::newRow("lowest") << std::numeric_limits<int>::min();
    }

    void indexOutOfRangeGivesEmptyValue()
    {
        QFETCH(int, index);
        QCOMPARE(textsOf(detectors().GetValueAt(index)), noTexts);
    }

    void firstOfEqualsWins()
    {
        ZorvaEnum enumeration = detectors();
        enumeration.AppendEnumValue(QStringLiteral("Peak"), QStringLiteral("LATER"), QStringLiteral("1"));
        QCOMPARE(enumeration.GetValueCount(), 4);
        QCOMPARE(enumeration.firstIndexOfName(QStringLiteral("Peak")), 1);
        QCOMPARE(enumeration.firstIndexOfValue(QStringLiteral("1")), 0);
        QCOMPARE(enumeration.FindName(QStringLiteral("Peak")).GetEnumIdentifier(), QStringLiteral("PEAK"));
    }

    void clearingKeepsTheName()
    {
        ZorvaEnum enumeration = detectors();
        enumeration.ClearValues();
        QCOMPARE(enumeration.GetName(), QStringLiteral("Detector"));
        QCOMPARE(enumeration.GetValueCount(), 0);
        QCOMPARE(enumeration.firstIndexOfName(QStringLiteral("Peak")), -1);
        QCOMPARE(enumeration.firstIndexOfValue(QStringLiteral("2")), -1);
        enumeration.AppendEnumValue(QStringLiteral("Peak"), QString(), QStringLiteral("5"));
        QCOMPARE(enumeration.firstIndexOfName(QStringLiteral("Peak")), 0);
    }

    void entriesAreParsedInOrder()
    {
        const ZorvaEnum enumeration = parsedEnum(QStringLiteral(
            "<Enum name=\"E\"><!-- c --><EnumValue><Value>2</Value><DisplayName>two</DisplayName></EnumValue>"
            "<Other><EnumValue><Value>no</Value></EnumValue></Other>text"
            "<EnumValue><EnumIdentifier>ONE</EnumIdentifier><Unknown><Value>9</Value></Unknown>"
            "<Value>0</Value><Value>1</Value></EnumValue><EnumValue/></Enum>"));
        QCOMPARE(enumeration.GetName(), QStringLiteral("E"));
        QCOMPARE(enumeration.GetValueCount(), 3);
        QCOMPARE(textsOf(enumeration.GetValueAt(0)),
                 (QStringList{QStringLiteral("two"), QString(), QStringLiteral("2")}));
        QCOMPARE(textsOf(enumeration.GetValueAt(1)),
                 (QStringList{QString(), QStringLiteral("ONE"), QStringLiteral("1")}));
        QCOMPARE(textsOf(enumeration.GetValueAt(2)), noTexts);
    }

    void valueTextStaysAsWritten()
    {
        const ZorvaEnum enumeration =
            parsedEnum(QStringLiteral("<Enum><EnumValue><DisplayName> a &lt;b </DisplayName><Value> "
                                      "007{{CR}}</Value></EnumValue></Enum>"));
        QCOMPARE(enumeration.GetName(), QString());
        QCOMPARE(enumeration.GetValueAt(0).GetDisplayName(), QStringLiteral(" a <b "));
        QCOMPARE(enumeration.GetValueAt(0).GetValue(), QStringLiteral(" 007{{CR}}"));
    }

    void nestedElementInTextEndsTheParse()
    {
        const FormPointer form = parsed(rootXml(
            QStringLiteral("<Enums><Enum name=\"A\"><EnumValue><Value>1</Value></EnumValue>"
                           "<EnumValue><DisplayName>x<b/></DisplayName><Value>2</Value></EnumValue></Enum>"
                           "<Enum name=\"B\"/></Enums>")));
        QCOMPARE(form->GetEnum(QStringLiteral("A"))->GetValueCount(), 2);
        QCOMPARE(form->GetEnum(QStringLiteral("A"))->GetValueAt(1).GetValue(), QString());
        QVERIFY(form->GetEnum(QStringLiteral("B")) == form->GetEmptyEnum());
    }

    void formGivesItsOneEmptyEnumerationOnAMiss()
    {
        const FormPointer form = parsed(rootXml(QStringLiteral("<Enums><Enum name=\"E\"/></Enums>")));
        QVERIFY(form->GetEnum(QStringLiteral("e")));
        QCOMPARE(form->GetEnum(QStringLiteral("e"))->GetValueCount(), 0);
        QVERIFY(form->GetEnum(QStringLiteral("e")) == form->GetEmptyEnum());
        // One without values is no miss.
        QVERIFY(form->GetEnum(QStringLiteral("E")) != form->GetEmptyEnum());
        QCOMPARE(form->GetEnum(QStringLiteral("E"))->GetValueCount(), 0);
    }

    void laterEnumerationOfANameReplacesTheEarlier()
    {
        const QString enums = enumXml("E", {{"one", "ONE", "1"}}) + enumXml("E", {{"two", "TWO", "2"}});
        const FormPointer form = parsed(formXml(QString(), enums));
        QCOMPARE(form->GetEnum(QStringLiteral("E"))->GetValueCount(), 1);
        QCOMPARE(form->GetEnum(QStringLiteral("E"))->GetValueAt(0).GetValue(), QStringLiteral("2"));
        QCOMPARE(evaluated(form.data(), QStringLiteral("E.TWO + '/' + E.ONE")),
                 QStringLiteral("2/undefined"));
    }

    void namelessEnumerationIsKeptUnderTheEmptyName()
    {
        const FormPointer form =
            parsed(rootXml(QStringLiteral("<Enums><Enum><EnumValue/></Enum><Other/></Enums>")));
        QCOMPARE(form->GetEnum(QString())->GetValueCount(), 1);
        QVERIFY(form->GetEnum(QString()) != form->GetEmptyEnum());
    }

    void scriptSeesIdentifiersAsStrings()
    {
        const FormPointer form = parsed(formXml(QString(), enumXml("E", {{"one", "ONE", "1"}})));
        QCOMPARE(evaluated(form.data(), QStringLiteral("typeof E.ONE + E.ONE")), QStringLiteral("string1"));
    }

    void scriptKeepsItsOwnCopy()
    {
        const FormPointer form = parsed(formXml(QString(), enumXml("E", {{"one", "ONE", "1"}})));
        form->GetEnum(QStringLiteral("E"))->ClearValues();
        form->GetEnum(QStringLiteral("E"))
            ->AppendEnumValue(QStringLiteral("n"), QStringLiteral("NEW"), QStringLiteral("5"));
        QCOMPARE(evaluated(form.data(), QStringLiteral("E.ONE + '/' + E.NEW")),
                 QStringLiteral("1/undefined"));
    }

    void enumerationOutlivesItsForm()
    {
        FormPointer form = parsed(formXml(QString(), enumXml("E", {{"one", "ONE", "1"}})));
        const QExplicitlySharedDataPointer<ZorvaEnum> enumeration = form->GetEnum(QStringLiteral("E"));
        const QExplicitlySharedDataPointer<ZorvaEnum> miss = form->GetEnum(QStringLiteral("none"));
        form.reset();
        QCOMPARE(enumeration->GetValueAt(0).GetDisplayName(), QStringLiteral("one"));
        QCOMPARE(miss->GetValueCount(), 0);
    }
};

QTEST_MAIN(tst_zorvaenum)
#include "tst_zorvaenum.moc"
