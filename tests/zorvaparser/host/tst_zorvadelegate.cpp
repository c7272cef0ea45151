#include "probedelegate.h"

#include <formtext.h>
#include <layout/floatgrouplayout.h>
#include <leftovers.h>
#include <messageguard.h>
#include <recordingobserver.h>

#include <valueframework/tree.h>
#include <vkbase/errorhandler.h>
#include <zorvaparser/zorvaenum.h>
#include <zorvaparser/zorvasheet.h>

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTranslator>
#include <QXmlStreamWriter>

#include <cmath>
#include <limits>
#include <memory>

using Orvane::ZorvaDelegate;

namespace {

using Items = QList<QVariant>;

/// Counts the properties it is sent, equal ones too.
class CountingTarget : public QObject
{
public:
    QStringList sent;

    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange)
            sent << QString::fromLatin1(static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName());
        return QObject::event(event);
    }
};

/// Declares "visible" and counts each write, also of an equal value.
class VisibleTarget : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool visible READ isVisible WRITE setVisible)
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled)

public:
    bool isVisible() const { return visible; }
    void setVisible(bool flag)
    {
        visible = flag;
        ++visibleWrites;
    }
    bool isEnabled() const { return enabled; }
    void setEnabled(bool flag)
    {
        enabled = flag;
        ++enabledWrites;
    }

    int visibleWrites = 0;
    int enabledWrites = 0;

private:
    bool visible = true;
    bool enabled = true;
};

/// A number that writes down which of its setters were called.
class RecordingNumber : public values::IValueNumeric
{
public:
    QStringList calls;
    IObserver* originator = nullptr;

    values::ValueBase* AsValueBase() override { return nullptr; }
    const values::ValueBase* AsValueBase() const override { return nullptr; }

protected:
    double minAsDouble() const override { return 0.0; }
    double maxAsDouble() const override { return 0.0; }
    double stepAsDouble() const override { return 0.0; }
    double valueAsDouble() const override { return 0.0; }
    bool setMinFromDouble(double min, IObserver* from) override { return note("min", min, from); }
    bool setMaxFromDouble(double max, IObserver* from) override { return note("max", max, from); }
    bool setStepFromDouble(double step, IObserver* from) override { return note("step", step, from); }
    bool setValueFromDouble(double value, IObserver* from) override { return note("value", value, from); }

private:
    bool note(const char* what, double number, IObserver* from)
    {
        calls << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(number);
        originator = from;
        return true;
    }
};

/// Puts a bracket round what it translates, and says in which context.
class BracketTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override
    {
        return QStringLiteral("[%1|%2]").arg(QString::fromLatin1(context), QString::fromUtf8(source));
    }
};

/// Before the row hears of its first change, writes one of its properties.
class Interjector : public QObject
{
public:
    Interjector(ZorvaDelegate* row, const char* name, bool asPlainObject)
        : m_row(row)
        , m_name(name)
        , m_asPlainObject(asPlainObject)
    {
        row->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::DynamicPropertyChange || std::exchange(m_done, true))
            return false;
        if (m_asPlainObject)
            static_cast<QObject*>(m_row)->setProperty(m_name, 2);
        else
            m_row->setProperty(m_name, 2);
        return false;
    }

private:
    ZorvaDelegate* m_row;
    const char* m_name;
    bool m_asPlainObject;
    bool m_done = false;
};

QString propertyXml(const char* name, const char* type, const char* text)
{
    return QStringLiteral("<Property name=\"%1\"><%2>%3</%2></Property>")
        .arg(QLatin1String(name), QLatin1String(type), QLatin1String(text));
}

QString toolTipOf(ProbeDelegate& delegate, void (ProbeDelegate::*setToolTip)(QWidget*))
{
    QWidget control;
    (delegate.*setToolTip)(&control);
    return control.toolTip();
}

void setProperties(QObject& object, const QVariantMap& properties)
{
    for (auto property = properties.cbegin(); property != properties.cend(); ++property)
        object.setProperty(property.key().toLatin1().constData(), property.value());
}

} // namespace

class TestZorvaDelegate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard = std::make_unique<MessageGuard>(); }
    void cleanup()
    {
        guard.reset();
        QCOMPARE(leftovers(), QString());
    }

    // State after construction, meta-object
    void startsEmptyAndWithFourDefinedProperties();
    void slotsAndSignalsKeepTheirOrder();

    // Descriptions
    void everyTypeButBoolIsText_data();
    void everyTypeButBoolIsText();
    void boolIsTrueOnlyForTrue_data();
    void boolIsTrueOnlyForTrue();
    void propertyWithoutTypeEndsTheParse();
    void strayElementEndsTheParse();
    void childrenBehindTheFirstAreIgnored();
    void commentsAreIgnored();
    void customPropertiesStandBetweenProperties();
    void customToolTipIsMirrored();
    void customDuplicatesAreReplaced();
    void endOfParseTakesTheCachedItems();
    void nestedCustomBlocksKeepTheStackFlat();
    void parsedPropertiesRunTheFunnelAtOnce();
    void applyModeFromText_data();
    void applyModeFromText();
    void setApplyModeStores();

    // Getters
    void gettersConvertTexts_data();
    void gettersConvertTexts();
    void getBoolJudgesUnconvertibleText_data();
    void getBoolJudgesUnconvertibleText();
    void getStringFallsBackForEmpty();
    void floatingNumbersOutOfRangeFallBack_data();
    void floatingNumbersOutOfRangeFallBack();
    void isEnabledOfAnAbsentPropertyIsFalse();

    // Changing and forwarding
    void changePropertyComparesVariants_data();
    void changePropertyComparesVariants();
    void funnelHearsWhatTheRowHolds_data();
    void funnelHearsWhatTheRowHolds();
    void equalWriteIsNotTakenForTheNextChange();
    void internalNamesBypassTheFunnel_data();
    void internalNamesBypassTheFunnel();
    void slotsSetProperties();
    void setLabelTextOfEqualTextIsSilent();
    void defineIsUniqueAndCaseSensitive();
    void propagateAllSkipsWhatIsNotSet();
    void propagateOneObeysItsRules();
    void visibleIsSentEvenWhenEqual();
    void nullTargetsAreIgnored();

    // Holding back
    void heldBackShowsTheGivenValueAndKeepsItsOwn();
    void heldBackWithoutAValueStopsForwarding();
    void holdingBackAnUndefinedNameDoesNothing();
    void enablingAnUnsetPropertySendsTheEvent();
    void enablingRestoresWhatTheScriptSetMeanwhile_data();
    void enablingRestoresWhatTheScriptSetMeanwhile();
    void enableInputTwiceAppliesOnce();
    void setGroupVisibleAppliesOnce();
    void setGroupVisibleRestoresVisible_data();
    void setGroupVisibleRestoresVisible();

    // Custom properties
    void setCustomPropertyTellsOfDifferences();
    void customPropertiesBypassTheFunnel();

    // Lists
    void listValueColumnIsNotChecked_data();
    void listValueColumnIsNotChecked();
    void setListValueReportsChanges();
    void resizeList_data();
    void resizeList();
    void resizeListRefusesMoreThanFits();

    // Label and translation
    void labelOnlyForACaption();
    void labelIsHiddenUnlessVisible_data();
    void labelIsHiddenUnlessVisible();
    void labelFollowsTextAndVisible();
    void labelStaysHiddenWhileVisibleIsHeldBack();
    void labelMayDieFirst();
    void textsAreTranslatedInTheRowsContext();

    // Modified chain
    void setModifiedNeedsParameterXml();
    void setModifiedReachesAnActiveSheet_data();
    void setModifiedReachesAnActiveSheet();
    void changesByCodeLeaveNoMark();
    void aDelegateWithoutARowCanBeMarked();

    // XML and value-tree names
    void xmlPathAndTags_data();
    void xmlPathAndTags();
    void aSecondParseAddsTheTagAgain();
    void addXmlTagIgnoresCase();
    void valueTreePath_data();
    void valueTreePath();

    // Values
    void booleanValue();
    void textValue();
    void numbersTakeLimitsBeforeTheirContent();
    void indexIsAppendedToTheName_data();
    void indexIsAppendedToTheName();
    void aTakenPlaceRefusesAllButTexts();
    void pathsWithoutANodeGiveUnnamedValues();
    void valuesTranslateInTheRowsContext();
    void selectionTakesTheEnumeration();
    void selectionOfAnUnknownTextTakesTheFirst();
    void selectionOfAnEmptyEnumerationIsBlank();
    void selectionNeedsAnEnumeration();

    // Limits
    void limitsAreConvertedOnce();
    void limitsKeepTheirMarkers();
    void aLimitLikeItsMarkerIsInValueUnits();
    void theStepIgnoresTheOffset();
    void changedLimitsReenterOnce();
    void defaultsAreSetTheFirstTime();
    void aFactorOfZeroEnds();
    void limitsOfNoValueStayAsTheyAre();

    // Display and tool tips
    void displayTransformations_data();
    void displayTransformations();
    void formatsNumbers_data();
    void formatsNumbers();
    void doubleToolTip_data();
    void doubleToolTip();
    void intToolTip_data();
    void intToolTip();
    void int64ToolTip_data();
    void int64ToolTip();
    void toolTipOfNoControl();
    void unitAttributeOnlyForAUnit_data();
    void unitAttributeOnlyForAUnit();

    // Base behaviour
    void baseOperationsDoNothing();
    void takenPlaceIsTracedOnRequest_data();
    void takenPlaceIsTracedOnRequest();
    void emptyResyncIsTracedOnRequest_data();
    void emptyResyncIsTracedOnRequest();

private:
    std::unique_ptr<MessageGuard> guard;
};

void TestZorvaDelegate::startsEmptyAndWithFourDefinedProperties()
{
    const ProbeRow row;
    QCOMPARE(row.delegate.defined(), (QStringList{QStringLiteral("enabled"), QStringLiteral("readOnly"),
                                                  QStringLiteral("visible"), QStringLiteral("toolTip")}));
    QCOMPARE(row.delegate.storedApplyMode(), 0);
    QVERIFY(row.delegate.customs().isEmpty());
    QVERIFY(!row.delegate.caption());
    QVERIFY(row.delegate.dynamicPropertyNames().isEmpty());
    ProbeDelegate free(nullptr);
    QVERIFY(free.isGroupVisible());
    QVERIFY(!free.isModified());
    QVERIFY(!free.isEnabled());
}

void TestZorvaDelegate::slotsAndSignalsKeepTheirOrder()
{
    const QMetaObject& meta = ZorvaDelegate::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods << QString::fromLatin1(meta.method(i).methodSignature());
    const QStringList expected{QStringLiteral("customPropertyChanged(QString,QVariant)"),
                               QStringLiteral("setApplyMode(eApplyMode)"),
                               QStringLiteral("setEnabled(bool)"),
                               QStringLiteral("setGenerateParameterXml(bool)"),
                               QStringLiteral("setReadOnly(bool)"),
                               QStringLiteral("setVisible(bool)"),
                               QStringLiteral("setLabelText(QString)"),
                               QStringLiteral("setCustomProperty(QString,QVariant)"),
                               QStringLiteral("setGroupVisible(bool)"),
                               QStringLiteral("setFocus()"),
                               QStringLiteral("setModified(bool)"),
                               QStringLiteral("resetModified()"),
                               QStringLiteral("forceFinishEditing()"),
                               QStringLiteral("customProperty(QString)")};
    QCOMPARE(methods, expected);
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void TestZorvaDelegate::everyTypeButBoolIsText_data()
{
    QTest::addColumn<QString>("type");
    QTest::newRow("Int") << QStringLiteral("Int");
    QTest::newRow("Int64") << QStringLiteral("Int64");
    QTest::newRow("UInt64") << QStringLiteral("UInt64");
    QTest::newRow("Double") << QStringLiteral("Double");
    QTest::newRow("String") << QStringLiteral("String");
    QTest::newRow("unknown") << QStringLiteral("Integer");
    QTest::newRow("Bool in another case") << QStringLiteral("bool");
}

void TestZorvaDelegate::everyTypeButBoolIsText()
{
    QFETCH(QString, type);
    ProbeRow row;
    row.delegate.parse(propertyXml("x", type.toLatin1().constData(), "12"));
    const QVariant value = row.delegate.property("x");
    QCOMPARE(value.userType(), int(QMetaType::QString));
    QCOMPARE(value.toString(), QStringLiteral("12"));
    QCOMPARE(row.delegate.GetInt(QStringLiteral("x"), 0), 12);
}

void TestZorvaDelegate::boolIsTrueOnlyForTrue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    QTest::newRow("true") << QStringLiteral("true") << true;
    QTest::newRow("False") << QStringLiteral("false") << false;
    QTest::newRow("capitals") << QStringLiteral("TRUE") << false;
    QTest::newRow("capital") << QStringLiteral("True") << false;
    QTest::newRow("digit") << QStringLiteral("1") << false;
    QTest::newRow("blank behind") << QStringLiteral("true ") << false;
    QTest::newRow("empty") << QString() << false;
}

void TestZorvaDelegate::boolIsTrueOnlyForTrue()
{
    QFETCH(QString, text);
    QFETCH(bool, expected);
    ProbeRow row;
    row.delegate.parse(propertyXml("x", "Bool", text.toLatin1().constData()));
    QCOMPARE(row.delegate.property("x").userType(), int(QMetaType::Bool));
    QCOMPARE(row.delegate.property("x").toBool(), expected);
}

void TestZorvaDelegate::propertyWithoutTypeEndsTheParse()
{
    ProbeRow row;
    row.delegate.parse(propertyXml("generateParameterXml", "Bool", "true") +
                       propertyXml("parameterXmlTag", "String", "a/b") +
                       propertyXml("applyMode", "String", "ekNormalApplyMode") +
                       QStringLiteral("<Property name=\"broken\"/>") + propertyXml("late", "String", "x"));
    QVERIFY(!row.delegate.property("broken").isValid());
    QVERIFY(!row.delegate.property("late").isValid());
    QCOMPARE(row.delegate.GetXmlPath(), QStringLiteral("a/b"));
    QCOMPARE(row.delegate.storedApplyMode(), int(Orvane::ekNormalApplyMode));
    row.delegate.setModified(false);
    QVERIFY(row.delegate.isModified());
}

void TestZorvaDelegate::strayElementEndsTheParse()
{
    ProbeRow row;
    row.delegate.parse(QStringLiteral("<Properties>") + propertyXml("inside", "String", "x") +
                       QStringLiteral("</Properties>") + propertyXml("behind", "String", "x"));
    QCOMPARE(row.delegate.property("inside").toString(), QStringLiteral("x"));
    QVERIFY(!row.delegate.property("behind").isValid());
}

void TestZorvaDelegate::childrenBehindTheFirstAreIgnored()
{
    ProbeRow row;
    row.delegate.parse(
        QStringLiteral("<Property name=\"x\"><String>first</String><Bool>true</Bool></Property>") +
        propertyXml("y", "String", "next"));
    QCOMPARE(row.delegate.property("x").toString(), QStringLiteral("first"));
    QCOMPARE(row.delegate.property("y").toString(), QStringLiteral("next"));
}

void TestZorvaDelegate::commentsAreIgnored()
{
    ProbeRow row;
    row.delegate.parse(QStringLiteral("<!-- a -->") + propertyXml("x", "String", "1") +
                       QStringLiteral("text<!-- b --><?p q?>") + propertyXml("y", "String", "2"));
    QCOMPARE(row.delegate.property("y").toString(), QStringLiteral("2"));
}

void TestZorvaDelegate::customPropertiesStandBetweenProperties()
{
    ProbeRow row;
    row.delegate.parse(propertyXml("before", "String", "1") + QStringLiteral("<CustomProperties>") +
                       propertyXml("custom", "Bool", "true") + QStringLiteral("</CustomProperties>") +
                       propertyXml("after", "String", "2"));
    QCOMPARE(row.delegate.property("before").toString(), QStringLiteral("1"));
    QCOMPARE(row.delegate.property("after").toString(), QStringLiteral("2"));
    QCOMPARE(row.delegate.customProperty(QStringLiteral("custom")), QVariant(true));
    QVERIFY(!row.delegate.property("custom").isValid());
}

void TestZorvaDelegate::customToolTipIsMirrored()
{
    ProbeRow row;
    row.delegate.parse(QStringLiteral("<CustomProperties>") + propertyXml("toolTip", "String", "hint") +
                       QStringLiteral("</CustomProperties>"));
    QCOMPARE(row.delegate.customProperty(QStringLiteral("toolTip")).toString(), QStringLiteral("hint"));
    QCOMPARE(row.delegate.property("toolTip").toString(), QStringLiteral("hint"));
}

void TestZorvaDelegate::customDuplicatesAreReplaced()
{
    ProbeRow row;
    row.delegate.parse(QStringLiteral("<CustomProperties>") + propertyXml("x", "String", "1") +
                       propertyXml("x", "String", "2") + QStringLiteral("</CustomProperties>"));
    QCOMPARE(row.delegate.customs().size(), 1);
    QCOMPARE(row.delegate.customProperty(QStringLiteral("x")).toString(), QStringLiteral("2"));
}

void TestZorvaDelegate::endOfParseTakesTheCachedItems()
{
    ProbeRow row;
    row.delegate.parse(propertyXml("generateParameterXml", "Bool", "true"));
    row.delegate.setModified(true);
    QVERIFY(row.delegate.isModified());
    QCOMPARE(row.delegate.GetXmlTagName(), QStringLiteral("row"));

    ProbeRow custom;
    QXmlStreamReader reader(QStringLiteral("<CustomProperties>%1</CustomProperties>")
                                .arg(propertyXml("parameterXmlTag", "String", "tag")));
    reader.readNextStartElement();
    custom.delegate.ParseProperties(reader, true);
    QVERIFY(custom.delegate.GetXmlPath().isEmpty());
}

void TestZorvaDelegate::nestedCustomBlocksKeepTheStackFlat()
{
    const int depth = 200000;
    ProbeRow row;
    row.delegate.parse(QStringLiteral("<CustomProperties>").repeated(depth) +
                       QStringLiteral("</CustomProperties>").repeated(depth) +
                       propertyXml("after", "String", "x"));
    QCOMPARE(row.delegate.property("after").toString(), QStringLiteral("x"));
}

void TestZorvaDelegate::parsedPropertiesRunTheFunnelAtOnce()
{
    ProbeRow row;
    row.delegate.parse(propertyXml("b", "String", "1") + propertyXml("a", "String", "2"));
    QCOMPARE(row.delegate.takeChangedNames(), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
}

void TestZorvaDelegate::applyModeFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("mode");
    QTest::newRow("instant") << QStringLiteral("ekInstantApplyMode") << 1;
    QTest::newRow("normal") << QStringLiteral("ekNormalApplyMode") << 2;
    QTest::newRow("number") << QStringLiteral("1") << 0;
    QTest::newRow("other case") << QStringLiteral("ekinstantapplymode") << 0;
    QTest::newRow("empty") << QString() << 0;
}

void TestZorvaDelegate::applyModeFromText()
{
    QFETCH(QString, text);
    QFETCH(int, mode);
    ProbeRow row;
    row.delegate.parse(propertyXml("applyMode", "String", text.toLatin1().constData()));
    QCOMPARE(row.delegate.storedApplyMode(), mode);
}

void TestZorvaDelegate::setApplyModeStores()
{
    ProbeRow row;
    row.delegate.setApplyMode(Orvane::ekInstantApplyMode);
    QCOMPARE(row.delegate.storedApplyMode(), 1);
    QVERIFY(row.delegate.takeChanges().isEmpty());
}

void TestZorvaDelegate::gettersConvertTexts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("asInt");
    QTest::addColumn<qint64>("asInt64");
    QTest::addColumn<quint64>("asUInt64");
    QTest::addColumn<double>("asDouble");
    const QVariant absent;
    QTest::newRow("absent") << absent << -7 << qint64(-7) << quint64(7) << -7.5;
    QTest::newRow("whole") << QVariant(QStringLiteral("12")) << 12 << qint64(12) << quint64(12) << 12.0;
    QTest::newRow("broken number") << QVariant(QStringLiteral("1.5")) << -7 << qint64(-7) << quint64(7)
                                   << 1.5;
    QTest::newRow("word") << QVariant(QStringLiteral("x")) << -7 << qint64(-7) << quint64(7) << -7.5;
    QTest::newRow("empty") << QVariant(QStringLiteral("")) << -7 << qint64(-7) << quint64(7) << -7.5;
    QTest::newRow("negative") << QVariant(QStringLiteral("-3")) << -3 << qint64(-3) << quint64(7) << -3.0;
    // A text is read as 64 bits, and what does not fit is cut off.
    QTest::newRow("more than 32 bits") << QVariant(QStringLiteral("3000000000")) << -1294967296
                                       << qint64(3000000000) << quint64(3000000000) << 3e9;
}

void TestZorvaDelegate::gettersConvertTexts()
{
    QFETCH(QVariant, value);
    QFETCH(int, asInt);
    QFETCH(qint64, asInt64);
    QFETCH(quint64, asUInt64);
    QFETCH(double, asDouble);
    ProbeRow row;
    row.delegate.setProperty("x", value);
    QCOMPARE(row.delegate.GetInt(QStringLiteral("x"), -7), asInt);
    QCOMPARE(row.delegate.GetInt64(QStringLiteral("x"), -7), asInt64);
    QCOMPARE(row.delegate.GetUInt64(QStringLiteral("x"), 7), asUInt64);
    QCOMPARE(row.delegate.GetDouble(QStringLiteral("x"), -7.5), asDouble);
}

void TestZorvaDelegate::getBoolJudgesUnconvertibleText_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("fallback");
    QTest::addColumn<bool>("expected");
    QTest::newRow("absent, true") << QVariant() << true << true;
    QTest::newRow("absent, false") << QVariant() << false << false;
    QTest::newRow("null text") << QVariant(QString()) << true << true;
    QTest::newRow("word") << QVariant(QStringLiteral("no")) << false << true;
    QTest::newRow("false as text") << QVariant(QStringLiteral("false")) << true << false;
    QTest::newRow("zero as text") << QVariant(QStringLiteral("0")) << true << false;
    QTest::newRow("empty text") << QVariant(QStringLiteral("")) << true << false;
    QTest::newRow("number") << QVariant(2) << false << true;
}

void TestZorvaDelegate::getBoolJudgesUnconvertibleText()
{
    QFETCH(QVariant, value);
    QFETCH(bool, fallback);
    QFETCH(bool, expected);
    ProbeRow row;
    row.delegate.setProperty("x", value);
    QCOMPARE(row.delegate.GetBool(QStringLiteral("x"), fallback), expected);
}

void TestZorvaDelegate::getStringFallsBackForEmpty()
{
    ProbeRow row;
    const QString name = QStringLiteral("x");
    QCOMPARE(row.delegate.GetString(name, QStringLiteral("d")), QStringLiteral("d"));
    row.delegate.setProperty("x", QStringLiteral(""));
    QCOMPARE(row.delegate.GetString(name, QStringLiteral("d")), QStringLiteral("d"));
    row.delegate.setProperty("x", 5);
    QCOMPARE(row.delegate.GetString(name, QStringLiteral("d")), QStringLiteral("5"));
    row.delegate.setProperty("x", 26500000000.0);
    QCOMPARE(row.delegate.GetString(name, QStringLiteral("d")), QStringLiteral("26500000000"));
}

void TestZorvaDelegate::floatingNumbersOutOfRangeFallBack_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("asInt");
    QTest::addColumn<qint64>("asInt64");
    QTest::addColumn<quint64>("asUInt64");
    QTest::newRow("rounds") << 1.5 << 2 << qint64(2) << quint64(2);
    QTest::newRow("beyond int") << 3e9 << 7 << qint64(3000000000) << quint64(3000000000);
    QTest::newRow("beyond 64 bits") << 1e19 << 7 << qint64(7) << quint64(10000000000000000000ULL);
    QTest::newRow("beyond all") << 1e308 << 7 << qint64(7) << quint64(7);
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 7 << qint64(7) << quint64(7);
    QTest::newRow("negative") << -2.0 << -2 << qint64(-2) << quint64(7);
    QTest::newRow("negative half") << -2.5 << -2 << qint64(-2) << quint64(7);
    QTest::newRow("just below a half") << 0.49999999999999994 << 0 << qint64(0) << quint64(0);
    QTest::newRow("odd above 2^52") << 4503599627370497.0 << 7 << qint64(4503599627370497)
                                    << quint64(4503599627370497);
    QTest::newRow("odd below 2^53") << 9007199254740991.0 << 7 << qint64(9007199254740991)
                                    << quint64(9007199254740991);
    QTest::newRow("odd below -2^52") << -4503599627370497.0 << 7 << qint64(-4503599627370497) << quint64(7);
}

void TestZorvaDelegate::floatingNumbersOutOfRangeFallBack()
{
    QFETCH(double, number);
    QFETCH(int, asInt);
    QFETCH(qint64, asInt64);
    QFETCH(quint64, asUInt64);
    ProbeRow row;
    row.delegate.setProperty("x", number);
    QCOMPARE(row.delegate.GetInt(QStringLiteral("x"), 7), asInt);
    QCOMPARE(row.delegate.GetInt64(QStringLiteral("x"), 7), asInt64);
    QCOMPARE(row.delegate.GetUInt64(QStringLiteral("x"), 7), asUInt64);
}

void TestZorvaDelegate::isEnabledOfAnAbsentPropertyIsFalse()
{
    ProbeRow row;
    QVERIFY(!row.delegate.isEnabled());
    row.delegate.setEnabled(true);
    QVERIFY(row.delegate.isEnabled());
}

void TestZorvaDelegate::changePropertyComparesVariants_data()
{
    QTest::addColumn<QVariant>("held");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("changes");
    const QVariant text5(QStringLiteral("5"));
    QTest::newRow("equal") << QVariant(5) << QVariant(5) << false;
    QTest::newRow("text held, number given") << text5 << QVariant(5) << false;
    QTest::newRow("number held, text given") << QVariant(5) << text5 << false;
    QTest::newRow("different") << text5 << QVariant(6) << true;
    // The held one is converted to the type of the new one.
    QTest::newRow("text held, fraction given") << QVariant(QStringLiteral("5.0")) << QVariant(5.0) << false;
    QTest::newRow("fraction held, text given") << QVariant(5.0) << QVariant(QStringLiteral("5.0")) << true;
    QTest::newRow("word held, true given") << QVariant(QStringLiteral("no")) << QVariant(true) << false;
    QTest::newRow("true held, word given") << QVariant(true) << QVariant(QStringLiteral("no")) << true;
    QTest::newRow("absent, given") << QVariant() << QVariant(0) << true;
    QTest::newRow("both absent") << QVariant() << QVariant() << false;
}

void TestZorvaDelegate::changePropertyComparesVariants()
{
    QFETCH(QVariant, held);
    QFETCH(QVariant, value);
    QFETCH(bool, changes);
    ProbeRow row;
    row.delegate.setProperty("x", held);
    row.delegate.takeChanges();
    QCOMPARE(row.delegate.ChangeProperty(QStringLiteral("x"), value), changes);
    QCOMPARE(row.delegate.takeChanges().size(), changes ? 1 : 0);
    const QVariant expected = changes ? value : held;
    QCOMPARE(row.delegate.property("x").userType(), expected.userType());
    QCOMPARE(row.delegate.property("x"), expected);
}

void TestZorvaDelegate::funnelHearsWhatTheRowHolds_data()
{
    QTest::addColumn<bool>("asPlainObject");
    QTest::addColumn<QByteArray>("between");
    QTest::addColumn<bool>("betweenAsPlainObject");
    for (const bool plain : {false, true}) {
        for (const char* const between : {"", "a", "b"}) {
            for (const bool betweenPlain : {false, true})
                QTest::addRow("%s, %s by %s between", plain ? "object" : "row", between,
                              betweenPlain ? "object" : "row")
                    << plain << QByteArray(between) << betweenPlain;
        }
    }
}

void TestZorvaDelegate::funnelHearsWhatTheRowHolds()
{
    QFETCH(bool, asPlainObject);
    QFETCH(QByteArray, between);
    QFETCH(bool, betweenAsPlainObject);
    ProbeRow row;
    std::unique_ptr<Interjector> interjector;
    if (!between.isEmpty())
        interjector = std::make_unique<Interjector>(&row.delegate, between.constData(), betweenAsPlainObject);
    row.delegate.takeChanges();
    if (asPlainObject)
        static_cast<QObject&>(row.delegate).setProperty("a", 1);
    else
        row.delegate.setProperty("a", 1);
    QVariantMap heard;
    for (const ProbeDelegate::Change& change : row.delegate.takeChanges())
        heard.insert(change.name, change.value);
    QVariantMap held{{QStringLiteral("a"), row.delegate.property("a")}};
    if (between == "b")
        held.insert(QStringLiteral("b"), 2);
    QCOMPARE(heard, held);
    // Nothing is left of that write for the next one.
    QDynamicPropertyChangeEvent again("a");
    row.delegate.QObject::setProperty("_q_quiet", 3);
    QCoreApplication::sendEvent(&row.delegate, &again);
    QCOMPARE(row.delegate.takeChanges().last().value, row.delegate.property("a"));
}

void TestZorvaDelegate::equalWriteIsNotTakenForTheNextChange()
{
    ProbeRow row;
    ProbeRow other;
    row.delegate.setProperty("a", 1);
    row.delegate.takeChanges();
    // An equal value is no change, and must not be taken for that of the other row.
    row.delegate.setProperty("a", 1);
    other.delegate.takeChanges();
    static_cast<QObject&>(other.delegate).setProperty("a", 5);
    const QList<ProbeDelegate::Change> heard = other.delegate.takeChanges();
    QCOMPARE(heard.size(), 1);
    QCOMPARE(heard.first().value, QVariant(5));
    QVERIFY(row.delegate.takeChanges().isEmpty());
}

void TestZorvaDelegate::internalNamesBypassTheFunnel_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("seen");
    QTest::newRow("Qt's own") << QByteArray("_q_x") << false;
    QTest::newRow("other case") << QByteArray("_Q_x") << true;
    QTest::newRow("marker") << QByteArray("q_internalLastMinimum") << true;
    QTest::newRow("Latin-1") << QByteArray("gr\xfc\xdf") << true;
}

void TestZorvaDelegate::internalNamesBypassTheFunnel()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, seen);
    ProbeRow row;
    row.delegate.setProperty(name.constData(), 1);
    QCOMPARE(row.delegate.takeChangedNames(), seen ? QStringList{QString::fromLatin1(name)} : QStringList());
    QCOMPARE(row.delegate.GetInt(QString::fromLatin1(name), 0), 1);
}

void TestZorvaDelegate::slotsSetProperties()
{
    ProbeRow row;
    row.delegate.setEnabled(true);
    row.delegate.setReadOnly(true);
    row.delegate.setVisible(true);
    row.delegate.setGenerateParameterXml(true);
    row.delegate.setLabelText(QStringLiteral("text"));
    QCOMPARE(row.delegate.takeChangedNames(),
             (QStringList{QStringLiteral("enabled"), QStringLiteral("readOnly"), QStringLiteral("visible"),
                          QStringLiteral("generateParameterXml"), QStringLiteral("labelText")}));
    QCOMPARE(row.delegate.property("readOnly"), QVariant(true));
    row.delegate.setModified(true);
    QVERIFY(row.delegate.isModified());
    // A text that equals the flag by value is replaced by the flag all the same.
    row.delegate.setProperty("visible", QStringLiteral("true"));
    row.delegate.setVisible(true);
    QCOMPARE(row.delegate.property("visible").userType(), int(QMetaType::Bool));
}

void TestZorvaDelegate::setLabelTextOfEqualTextIsSilent()
{
    ProbeRow row;
    row.delegate.setLabelText(QStringLiteral("text"));
    row.delegate.takeChanges();
    row.delegate.setLabelText(QStringLiteral("text"));
    QVERIFY(row.delegate.takeChanges().isEmpty());
}

void TestZorvaDelegate::defineIsUniqueAndCaseSensitive()
{
    ProbeRow row;
    const int before = row.delegate.defined().size();
    row.delegate.DefineProperty(QStringLiteral("visible"));
    QCOMPARE(row.delegate.defined().size(), before);
    row.delegate.DefineProperty(QStringLiteral("Visible"));
    QCOMPARE(row.delegate.defined().size(), before + 1);
    row.delegate.UndefineProperty(QStringLiteral("visible"));
    QVERIFY(!row.delegate.defined().contains(QStringLiteral("visible")));
    QVERIFY(row.delegate.defined().contains(QStringLiteral("Visible")));
    row.delegate.UndefineProperty(QStringLiteral("unknown"));
    QCOMPARE(row.delegate.defined().size(), before);
}

void TestZorvaDelegate::propagateAllSkipsWhatIsNotSet()
{
    ProbeRow row;
    CountingTarget target;
    row.delegate.setProperty("toolTip", QStringLiteral("hint"));
    row.delegate.setProperty("enabled", true);
    row.delegate.setProperty("readOnly", QVariant(QString()));
    row.delegate.setProperty("other", 1);
    row.delegate.PropagateProperties(&target);
    QCOMPARE(target.sent, (QStringList{QStringLiteral("enabled"), QStringLiteral("toolTip")}));
}

void TestZorvaDelegate::propagateOneObeysItsRules()
{
    ProbeRow row;
    VisibleTarget target;
    CountingTarget other;
    row.delegate.PropagateProperty(QStringLiteral("enabled"), &other);
    QVERIFY(other.sent.isEmpty());
    row.delegate.setProperty("enabled", QStringLiteral("true"));
    row.delegate.PropagateProperty(QStringLiteral("enabled"), &target);
    QCOMPARE(target.enabledWrites, 0);
    row.delegate.setProperty("enabled", false);
    row.delegate.PropagateProperty(QStringLiteral("enabled"), &target);
    QCOMPARE(target.enabledWrites, 1);
    QVERIFY(!target.isEnabled());
    row.delegate.UndefineProperty(QStringLiteral("enabled"));
    row.delegate.setProperty("enabled", true);
    row.delegate.PropagateProperty(QStringLiteral("enabled"), &target);
    QCOMPARE(target.enabledWrites, 1);
}

void TestZorvaDelegate::visibleIsSentEvenWhenEqual()
{
    ProbeRow row;
    VisibleTarget target;
    row.delegate.setVisible(true);
    row.delegate.PropagateProperty(QStringLiteral("visible"), &target);
    row.delegate.PropagateProperty(QStringLiteral("visible"), &target);
    QCOMPARE(target.visibleWrites, 2);
    row.delegate.UndefineProperty(QStringLiteral("visible"));
    row.delegate.PropagateProperty(QStringLiteral("visible"), &target);
    QCOMPARE(target.visibleWrites, 2);
}

void TestZorvaDelegate::nullTargetsAreIgnored()
{
    ProbeRow row;
    row.delegate.setVisible(true);
    row.delegate.PropagateProperties(nullptr);
    row.delegate.PropagateProperty(QStringLiteral("visible"), nullptr);
    QVERIFY(row.delegate.property("visible").toBool());
}

void TestZorvaDelegate::heldBackShowsTheGivenValueAndKeepsItsOwn()
{
    ProbeRow row;
    VisibleTarget target;
    row.delegate.control = &target;
    row.delegate.setEnabled(true);
    QVariant off(false);
    row.delegate.EnableProperty(QStringLiteral("enabled"), false, &off);
    QVERIFY(!target.isEnabled());
    QVERIFY(row.delegate.isEnabled());
    QVERIFY(!row.delegate.defined().contains(QStringLiteral("enabled")));
    row.delegate.EnableProperty(QStringLiteral("enabled"), true, &off);
    QVERIFY(target.isEnabled());
}

void TestZorvaDelegate::heldBackWithoutAValueStopsForwarding()
{
    ProbeRow row;
    VisibleTarget target;
    row.delegate.control = &target;
    row.delegate.setEnabled(true);
    row.delegate.EnableProperty(QStringLiteral("enabled"), false, nullptr);
    row.delegate.setEnabled(false);
    QVERIFY(target.isEnabled());
    row.delegate.EnableProperty(QStringLiteral("enabled"), true, nullptr);
    QVERIFY(!target.isEnabled());
}

void TestZorvaDelegate::holdingBackAnUndefinedNameDoesNothing()
{
    ProbeRow row;
    row.delegate.setProperty("other", 1);
    row.delegate.takeChanges();
    QVariant look(2);
    row.delegate.EnableProperty(QStringLiteral("other"), false, &look);
    QVERIFY(row.delegate.takeChanges().isEmpty());
    QCOMPARE(row.delegate.property("other"), QVariant(1));
}

void TestZorvaDelegate::enablingAnUnsetPropertySendsTheEvent()
{
    ProbeRow row;
    row.delegate.EnableProperty(QStringLiteral("fresh"), true, nullptr);
    const QList<ProbeDelegate::Change> changes = row.delegate.takeChanges();
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.first().name, QStringLiteral("fresh"));
    QVERIFY(!changes.first().value.isValid());
    QVERIFY(!row.delegate.property("fresh").isValid());
    QVERIFY(row.delegate.defined().contains(QStringLiteral("fresh")));
}

void TestZorvaDelegate::enablingRestoresWhatTheScriptSetMeanwhile_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("meanwhile");
    QTest::newRow("off on") << false << true;
    QTest::newRow("on off") << true << false;
    QTest::newRow("on on") << true << true;
}

void TestZorvaDelegate::enablingRestoresWhatTheScriptSetMeanwhile()
{
    QFETCH(bool, before);
    QFETCH(bool, meanwhile);
    ProbeRow row;
    VisibleTarget target;
    row.delegate.control = &target;
    row.delegate.setEnabled(before);
    row.delegate.EnableInput(false, false);
    QVERIFY(!target.isEnabled());
    row.delegate.setEnabled(meanwhile);
    QVERIFY(!target.isEnabled());
    row.delegate.EnableInput(true, true);
    QCOMPARE(target.isEnabled(), meanwhile);
}

void TestZorvaDelegate::enableInputTwiceAppliesOnce()
{
    ProbeRow row;
    VisibleTarget target;
    row.delegate.control = &target;
    row.delegate.setEnabled(true);
    row.delegate.EnableInput(false, false);
    const int writes = target.enabledWrites;
    row.delegate.EnableInput(false, false);
    QCOMPARE(target.enabledWrites, writes);
    QVERIFY(row.delegate.isEnabled());
}

void TestZorvaDelegate::setGroupVisibleAppliesOnce()
{
    ProbeRow row;
    VisibleTarget target;
    row.delegate.control = &target;
    row.delegate.setVisible(true);
    row.delegate.takeChanges();
    row.delegate.setGroupVisible(true);
    QVERIFY(row.delegate.takeChanges().isEmpty());
    row.delegate.setGroupVisible(false);
    QVERIFY(!row.delegate.takeChanges().isEmpty());
    QVERIFY(!row.delegate.isGroupVisible());
    QVERIFY(!target.isVisible());
    row.delegate.setGroupVisible(false);
    QVERIFY(row.delegate.takeChanges().isEmpty());
    QVERIFY(row.delegate.property("visible").toBool());
}

void TestZorvaDelegate::setGroupVisibleRestoresVisible_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("meanwhile");
    QTest::newRow("shown meanwhile") << false << true;
    QTest::newRow("hidden meanwhile") << true << false;
}

void TestZorvaDelegate::setGroupVisibleRestoresVisible()
{
    QFETCH(bool, before);
    QFETCH(bool, meanwhile);
    ProbeRow row;
    VisibleTarget target;
    row.delegate.control = &target;
    row.delegate.setVisible(before);
    row.delegate.setGroupVisible(false);
    row.delegate.setVisible(meanwhile);
    QVERIFY(!target.isVisible());
    row.delegate.setGroupVisible(true);
    QCOMPARE(target.isVisible(), meanwhile);
}

void TestZorvaDelegate::setCustomPropertyTellsOfDifferences()
{
    ProbeRow row;
    QSignalSpy spy(&row.delegate, &ZorvaDelegate::customPropertyChanged);
    const QString name = QStringLiteral("x");
    row.delegate.setCustomProperty(name, 5);
    QCOMPARE(spy.takeFirst(), (QList<QVariant>{name, 5}));
    row.delegate.setCustomProperty(name, 5);
    row.delegate.setCustomProperty(name, QStringLiteral("5"));
    QCOMPARE(spy.count(), 0);
    QCOMPARE(row.delegate.customProperty(name).userType(), int(QMetaType::Int));
    row.delegate.setCustomProperty(QStringLiteral("none"), QVariant());
    QCOMPARE(spy.count(), 0);
    QVERIFY(!row.delegate.customs().contains(QStringLiteral("none")));
}

void TestZorvaDelegate::customPropertiesBypassTheFunnel()
{
    ProbeRow row;
    CountingTarget target;
    row.delegate.control = &target;
    row.delegate.setCustomProperty(QStringLiteral("toolTip"), QStringLiteral("hint"));
    QVERIFY(row.delegate.takeChanges().isEmpty());
    QVERIFY(target.sent.isEmpty());
    QVERIFY(!row.delegate.property("toolTip").isValid());
}

void TestZorvaDelegate::listValueColumnIsNotChecked_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("first") << 0 << 0 << QVariant(1);
    QTest::newRow("last") << 1 << 2 << QVariant(6);
    QTest::newRow("column reads on in the next row") << 0 << 4 << QVariant(5);
    QTest::newRow("behind the end") << 1 << 3 << QVariant();
    QTest::newRow("negative row") << -1 << 5 << QVariant();
    QTest::newRow("negative column") << 1 << -1 << QVariant();
    QTest::newRow("row out of range") << std::numeric_limits<int>::max() << 2 << QVariant();
}

void TestZorvaDelegate::listValueColumnIsNotChecked()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QVariant, expected);
    const Items list{1, 2, 3, 4, 5, 6};
    QCOMPARE(ProbeDelegate::GetListValue(list, row, column, 3), expected);
}

void TestZorvaDelegate::setListValueReportsChanges()
{
    Items list{1, 2, 3, 4};
    QVERIFY(ProbeDelegate::SetListValue(list, 9, 1, 0, 2));
    QCOMPARE(list, (Items{1, 2, 9, 4}));
    QVERIFY(!ProbeDelegate::SetListValue(list, 9, 1, 0, 2));
    QVERIFY(!ProbeDelegate::SetListValue(list, QStringLiteral("9"), 1, 0, 2));
    QVERIFY(ProbeDelegate::SetListValue(list, 8, 0, 3, 2));
    QCOMPARE(list, (Items{1, 2, 9, 8}));
    QVERIFY(!ProbeDelegate::SetListValue(list, 7, -1, 0, 2));
    QVERIFY(!ProbeDelegate::SetListValue(list, 7, 0, -1, 2));
    QVERIFY(!ProbeDelegate::SetListValue(list, 7, 2, 0, 2));
    QCOMPARE(list, (Items{1, 2, 9, 8}));
}

void TestZorvaDelegate::resizeList_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("oldColumns");
    QTest::addColumn<bool>("changes");
    QTest::addColumn<Items>("expected");
    const Items list{1, 2, 3, 4, 5, 6};
    const QVariant none;
    QTest::newRow("same shape") << 2 << 3 << 3 << false << list;
    QTest::newRow("same number of cells") << 3 << 2 << 3 << false << list;
    QTest::newRow("more rows") << 3 << 3 << 3 << true << Items{1, 2, 3, 4, 5, 6, none, none, none};
    QTest::newRow("fewer rows") << 1 << 3 << 3 << true << Items{1, 2, 3};
    QTest::newRow("fewer columns") << 2 << 2 << 3 << true << Items{1, 2, 4, 5};
    QTest::newRow("new column reads the next row") << 2 << 4 << 3 << true << Items{1, 2, 3, 4, 4, 5, 6, none};
    QTest::newRow("nothing left") << 0 << 3 << 3 << true << Items{};
    QTest::newRow("negative rows") << -1 << 3 << 3 << false << list;
    QTest::newRow("negative columns") << 2 << -3 << 3 << false << list;
    QTest::newRow("negative old columns") << 1 << 3 << -3 << false << list;
}

void TestZorvaDelegate::resizeList()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(int, oldColumns);
    QFETCH(bool, changes);
    QFETCH(Items, expected);
    Items list{1, 2, 3, 4, 5, 6};
    QCOMPARE(ProbeDelegate::ResizeList(list, rows, columns, oldColumns), changes);
    QCOMPARE(list, expected);
}

void TestZorvaDelegate::resizeListRefusesMoreThanFits()
{
    Items list{1};
    const int huge = std::numeric_limits<int>::max();
    QVERIFY(!ProbeDelegate::ResizeList(list, huge, huge, 1));
    QCOMPARE(list, Items{1});
}

void TestZorvaDelegate::labelOnlyForACaption()
{
    ProbeRow row;
    QWidget window;
    FloatGroupLayout layout(&window);
    row.delegate.CreateGUI(&layout);
    QVERIFY(!row.delegate.caption());
    QVERIFY(window.findChildren<QLabel*>().isEmpty());
    row.delegate.setVisible(true);
    row.delegate.setLabelText(QStringLiteral("Level"));
    QVERIFY(!row.delegate.caption());
    row.delegate.CreateGUI(&layout);
    QVERIFY(row.delegate.caption());
    QCOMPARE(row.delegate.caption()->objectName(), QStringLiteral("labelrow"));
    QCOMPARE(row.delegate.caption()->text(), QStringLiteral("Level"));
}

void TestZorvaDelegate::labelIsHiddenUnlessVisible_data()
{
    QTest::addColumn<QVariant>("visible");
    QTest::addColumn<bool>("hidden");
    QTest::newRow("absent") << QVariant() << true;
    QTest::newRow("false") << QVariant(false) << true;
    QTest::newRow("true") << QVariant(true) << false;
}

void TestZorvaDelegate::labelIsHiddenUnlessVisible()
{
    QFETCH(QVariant, visible);
    QFETCH(bool, hidden);
    ProbeRow row;
    QWidget window;
    FloatGroupLayout layout(&window);
    row.delegate.setLabelText(QStringLiteral("Level"));
    row.delegate.setProperty("visible", visible);
    row.delegate.CreateGUI(&layout);
    QCOMPARE(row.delegate.caption()->isHidden(), hidden);
}

void TestZorvaDelegate::labelFollowsTextAndVisible()
{
    ProbeRow row;
    QWidget window;
    FloatGroupLayout layout(&window);
    row.delegate.setLabelText(QStringLiteral("Level"));
    row.delegate.setVisible(true);
    row.delegate.CreateGUI(&layout);
    row.delegate.setLabelText(QStringLiteral("Gain"));
    QCOMPARE(row.delegate.caption()->text(), QStringLiteral("Gain"));
    row.delegate.setVisible(false);
    QVERIFY(row.delegate.caption()->isHidden());
    row.delegate.UndefineProperty(QStringLiteral("visible"));
    row.delegate.setVisible(true);
    QVERIFY(row.delegate.caption()->isHidden());
}

void TestZorvaDelegate::labelStaysHiddenWhileVisibleIsHeldBack()
{
    ProbeRow row;
    QWidget window;
    FloatGroupLayout layout(&window);
    row.delegate.setLabelText(QStringLiteral("Level"));
    row.delegate.setVisible(true);
    row.delegate.CreateGUI(&layout);
    row.delegate.setGroupVisible(false);
    QVERIFY(row.delegate.caption()->isHidden());
    row.delegate.setVisible(true);
    QVERIFY(row.delegate.caption()->isHidden());
    row.delegate.setGroupVisible(true);
    QVERIFY(!row.delegate.caption()->isHidden());
}

void TestZorvaDelegate::labelMayDieFirst()
{
    ProbeRow row;
    {
        QWidget window;
        FloatGroupLayout layout(&window);
        row.delegate.setLabelText(QStringLiteral("Level"));
        row.delegate.CreateGUI(&layout);
    }
    row.delegate.setLabelText(QStringLiteral("Gain"));
    row.delegate.setVisible(true);
    QVERIFY(!row.delegate.caption());
}

void TestZorvaDelegate::textsAreTranslatedInTheRowsContext()
{
    BracketTranslator translator;
    QCoreApplication::installTranslator(&translator);
    ProbeRow row;
    QWidget window;
    FloatGroupLayout layout(&window);
    row.delegate.setLabelText(QStringLiteral("L\u00e4nge"));
    row.delegate.CreateGUI(&layout);
    const QString expected = QStringLiteral("[row|L\u00e4nge]");
    const QString caption = row.delegate.caption()->text();
    const QString translated = row.delegate.GetTranslated(QStringLiteral("labelText"));
    const QString absent = row.delegate.GetTranslated(QStringLiteral("absent"));
    row.delegate.setLabelText(QStringLiteral("x"));
    const QString changed = row.delegate.caption()->text();
    QCoreApplication::removeTranslator(&translator);
    QCOMPARE(caption, expected);
    QCOMPARE(translated, expected);
    QCOMPARE(changed, QStringLiteral("[row|x]"));
    QVERIFY(absent.isEmpty());
}

void TestZorvaDelegate::setModifiedNeedsParameterXml()
{
    ProbeRow row;
    row.delegate.setModified(true);
    QVERIFY(!row.delegate.isModified());
    QVERIFY(!row.formular.GetSheet().isModified());
    row.delegate.setGenerateParameterXml(true);
    row.delegate.setModified(true);
    QVERIFY(row.delegate.isModified());
    row.delegate.resetModified();
    QVERIFY(!row.delegate.isModified());
    QVERIFY(row.formular.GetSheet().isModified());
    row.delegate.setGenerateParameterXml(false);
    row.delegate.setModified(true);
    QVERIFY(!row.delegate.isModified());
}

void TestZorvaDelegate::setModifiedReachesAnActiveSheet_data()
{
    QTest::addColumn<bool>("active");
    QTest::newRow("active") << true;
    QTest::newRow("inactive") << false;
}

void TestZorvaDelegate::setModifiedReachesAnActiveSheet()
{
    QFETCH(bool, active);
    ProbeRow row;
    QSignalSpy spy(&row.formular, &Orvane::ZorvaFormular::si_parametersModified);
    row.formular.GetSheet().setActive(active);
    row.delegate.setGenerateParameterXml(true);
    row.delegate.setModified(true);
    QVERIFY(row.delegate.isModified());
    QCOMPARE(row.formular.GetSheet().isModified(), active);
    QCOMPARE(spy.count(), active ? 1 : 0);
}

void TestZorvaDelegate::changesByCodeLeaveNoMark()
{
    ProbeRow row;
    row.delegate.setGenerateParameterXml(true);
    row.delegate.ChangeProperty(QStringLiteral("value"), 5);
    row.delegate.setLabelText(QStringLiteral("x"));
    QVERIFY(!row.delegate.isModified());
}

void TestZorvaDelegate::aDelegateWithoutARowCanBeMarked()
{
    ProbeDelegate free(nullptr);
    free.setGenerateParameterXml(true);
    free.setModified(true);
    QVERIFY(free.isModified());
}

void TestZorvaDelegate::xmlPathAndTags_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("xmlPath");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QStringList>("allTags");
    const auto add = [](const char* path, const char* xmlPath, const char* tag, const QStringList& tags) {
        QTest::newRow(path) << QString::fromLatin1(path) << QString::fromLatin1(xmlPath)
                            << QString::fromLatin1(tag) << tags;
    };
    add("", "row", "row", {});
    add("A", "A", "A", {QStringLiteral("A")});
    add("A/B", "A/B", "B", {QStringLiteral("B")});
    add("A/B/C", "A/B/C", "C", {QStringLiteral("C")});
    add("/A", "/A", "A", {QStringLiteral("A")});
    add("A/", "A/", "", {QStringLiteral("")});
}

void TestZorvaDelegate::xmlPathAndTags()
{
    QFETCH(QString, path);
    QFETCH(QString, xmlPath);
    QFETCH(QString, tag);
    QFETCH(QStringList, allTags);
    ProbeRow row;
    row.delegate.SetXmlPath(path);
    QCOMPARE(row.delegate.GetXmlPath(), xmlPath);
    QCOMPARE(row.delegate.GetXmlTagName(), tag);
    QCOMPARE(row.delegate.GetAllTags(), allTags);
    QVERIFY(!row.delegate.HasSeveralXmlTags());
}

void TestZorvaDelegate::aSecondParseAddsTheTagAgain()
{
    ProbeRow row;
    row.delegate.parse(propertyXml("parameterXmlTag", "String", "A/B"));
    row.delegate.parse(QString());
    QCOMPARE(row.delegate.GetAllTags(), (QStringList{QStringLiteral("B"), QStringLiteral("B")}));
    QVERIFY(row.delegate.HasSeveralXmlTags());
    row.delegate.parse(propertyXml("parameterXmlTag", "String", "C"));
    QCOMPARE(row.delegate.GetXmlTagName(), QStringLiteral("C"));
    QVERIFY(row.delegate.ContainsXmlTag(QStringLiteral("B")));
}

void TestZorvaDelegate::addXmlTagIgnoresCase()
{
    ProbeRow row;
    row.delegate.AddXmlTag(QStringLiteral("Start"));
    row.delegate.AddXmlTag(QStringLiteral("START"));
    QCOMPARE(row.delegate.GetAllTags(), QStringList{QStringLiteral("Start")});
    QVERIFY(row.delegate.ContainsXmlTag(QStringLiteral("start")));
    QVERIFY(!row.delegate.ContainsXmlTag(QStringLiteral("stop")));
    row.delegate.AddXmlTag(QStringLiteral("Stop"));
    QVERIFY(row.delegate.HasSeveralXmlTags());
}

void TestZorvaDelegate::valueTreePath_data()
{
    QTest::addColumn<QString>("sheetPath");
    QTest::addColumn<QString>("xmlPath");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("node");
    QTest::addColumn<QString>("name");
    const auto add = [](const char* title, const char* sheetPath, const char* xmlPath, const char* path,
                        const char* node, const char* name) {
        QTest::newRow(title) << QString::fromLatin1(sheetPath) << QString::fromLatin1(xmlPath)
                             << QString::fromLatin1(path) << QString::fromLatin1(node)
                             << QString::fromLatin1(name);
    };
    add("plain", "/form", "tag", "/form/tag", "/form", "tag");
    add("trailing slash", "/form/", "tag", "/form/tag", "/form", "tag");
    add("two parts", "/form", "a/b", "/form/a/b", "/form/a", "b");
    add("empty path", "", "tag", "tag", nullptr, nullptr);
    add("empty path, two parts", "", "a/b", "a/b", "a", "b");
    add("root", "/", "tag", "/tag", nullptr, nullptr);
    add("no slash in front", "form", "tag", "form/tag", "form", "tag");
    add("trailing slash in the tag", "/form", "a/", "/form/a/", "/form/a", "");
}

void TestZorvaDelegate::valueTreePath()
{
    QFETCH(QString, sheetPath);
    QFETCH(QString, xmlPath);
    QFETCH(QString, path);
    QFETCH(QString, node);
    QFETCH(QString, name);
    ProbeRow row;
    row.delegate.SetXmlPath(xmlPath);
    row.delegate.SetVTPath(sheetPath);
    QCOMPARE(row.delegate.GetVTPath(), path);
    QCOMPARE(row.delegate.GetVTNodePath(), node);
    QCOMPARE(row.delegate.GetVTName(), name);
    QCOMPARE(row.delegate.GetVTNodePath().isNull(), node.isNull());
}

void TestZorvaDelegate::booleanValue()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("g/flag"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    row.delegate.setProperty("checked", QStringLiteral("true"));
    const std::unique_ptr<values::ValueBool> value(
        row.delegate.CreateValueBoolean(QStringLiteral("checked")));
    QVERIFY(value);
    QCOMPARE(values::Tree::Instance()->GetValue(QStringLiteral("/form/g/flag")), value.get());
    QVERIFY(value->GetValue());
    QCOMPARE(value->GetState(), ValueState::Normal);
}

void TestZorvaDelegate::textValue()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("text"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    row.delegate.setProperty("text", 12);
    const std::unique_ptr<values::ValueString> value(row.delegate.CreateValueString(QStringLiteral("text")));
    QCOMPARE(value->GetValue(), QStringLiteral("12"));
    QCOMPARE(value->GetPathName(), QStringLiteral("/form/text"));
}

void TestZorvaDelegate::numbersTakeLimitsBeforeTheirContent()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("n"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    setProperties(row.delegate, {{QStringLiteral("minimum"), 10},
                                 {QStringLiteral("maximum"), 20},
                                 {QStringLiteral("value"), QStringLiteral("99")}});
    {
        const std::unique_ptr<values::NumericInt> value(
            row.delegate.CreateValueNumericInt(QStringLiteral("value"), -1));
        QCOMPARE(value->GetMin(), 10);
        QCOMPARE(value->GetMax(), 20);
        QCOMPARE(value->GetStep(), 1);
        QCOMPARE(value->GetValue(), 20);
        // The property keeps what was given.
        QCOMPARE(row.delegate.GetInt(QStringLiteral("value"), 0), 99);
    }
    ProbeRow real;
    real.delegate.SetXmlPath(QStringLiteral("n"));
    real.delegate.SetVTPath(QStringLiteral("/form"));
    real.delegate.setProperty("minimum", QStringLiteral("0.5"));
    const std::unique_ptr<values::NumericDouble> value(
        real.delegate.CreateValueNumericFloat(QStringLiteral("value"), -1));
    QCOMPARE(value->GetValue(), 0.5);
    QCOMPARE(value->GetMax(), 1e308);
}

void TestZorvaDelegate::indexIsAppendedToTheName_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << -1 << QStringLiteral("N");
    QTest::newRow("first") << 0 << QStringLiteral("N_0");
    QTest::newRow("later") << 3 << QStringLiteral("N_3");
}

void TestZorvaDelegate::indexIsAppendedToTheName()
{
    QFETCH(int, index);
    QFETCH(QString, name);
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("N"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    const std::unique_ptr<values::NumericDouble> real(
        row.delegate.CreateValueNumericFloat(QStringLiteral("value"), index));
    QCOMPARE(real->GetName(), name);
    row.delegate.SetVTPath(QStringLiteral("/other"));
    const std::unique_ptr<values::NumericInt> whole(
        row.delegate.CreateValueNumericInt(QStringLiteral("value"), index));
    QCOMPARE(whole->GetName(), name);
}

void TestZorvaDelegate::aTakenPlaceRefusesAllButTexts()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("x"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    const QString property = QStringLiteral("value");
    const std::unique_ptr<values::ValueBool> first(row.delegate.CreateValueBoolean(property));
    QVERIFY(!row.delegate.CreateValueBoolean(property));
    QVERIFY(!row.delegate.CreateValueNumericInt(property, -1));
    QVERIFY(!row.delegate.CreateValueNumericFloat(property, -1));
    const std::unique_ptr<values::ValueString> text(row.delegate.CreateValueString(property));
    QVERIFY(text);
    QVERIFY(text->GetPathName().isEmpty());
    QCOMPARE(values::Tree::Instance()->GetValueCount(), 1);

    const QExplicitlySharedDataPointer<Orvane::ZorvaEnum> list(new Orvane::ZorvaEnum(QStringLiteral("E")));
    const std::unique_ptr<values::ValueSelection> selection(
        row.delegate.CreateValueSelection(property, list));
    QVERIFY(selection);
    QVERIFY(!row.delegate.CreateValueSelection(property, list));
}

void TestZorvaDelegate::pathsWithoutANodeGiveUnnamedValues()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("x"));
    row.delegate.SetVTPath(QStringLiteral("/"));
    const QString property = QStringLiteral("value");
    const std::unique_ptr<values::ValueBool> first(row.delegate.CreateValueBoolean(property));
    const std::unique_ptr<values::ValueBool> second(row.delegate.CreateValueBoolean(property));
    QVERIFY(first && second);
    QVERIFY(first->GetName().isEmpty());
    QCOMPARE(values::Tree::Instance()->GetValueCount(), 2);
}

void TestZorvaDelegate::valuesTranslateInTheRowsContext()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("x"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    const std::unique_ptr<values::ValueBool> value(row.delegate.CreateValueBoolean(QStringLiteral("value")));
    QCOMPARE(value->GetTranslationNamespace(), QByteArray("row"));
}

namespace {

QExplicitlySharedDataPointer<Orvane::ZorvaEnum> threeModes()
{
    const QExplicitlySharedDataPointer<Orvane::ZorvaEnum> modes(
        new Orvane::ZorvaEnum(QStringLiteral("Modes")));
    modes->AppendEnumValue(QStringLiteral("Slow"), QStringLiteral("MODE_SLOW"), QStringLiteral("2.5"));
    modes->AppendEnumValue(QStringLiteral("Fast"), QStringLiteral("MODE_FAST"), QStringLiteral("fast"));
    modes->AppendEnumValue(QStringLiteral("Off"), QStringLiteral("MODE_OFF"), QStringLiteral("0"));
    return modes;
}

} // namespace

void TestZorvaDelegate::selectionTakesTheEnumeration()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("mode"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    row.delegate.setProperty("currentValue", QStringLiteral("fast"));
    const std::unique_ptr<values::ValueSelection> value(
        row.delegate.CreateValueSelection(QStringLiteral("currentValue"), threeModes()));
    QCOMPARE(value->GetPathName(), QStringLiteral("/form/mode_Modes"));
    QCOMPARE(value->GetItemCount(), 3L);
    QCOMPARE(value->GetItemIndex(0)->GetValue(), 2.5);
    // No number of its own: the position.
    QCOMPARE(value->GetItemIndex(1)->GetValue(), 1.0);
    QCOMPARE(value->GetItemIndex(0)->GetKey(), 1L);
    QCOMPARE(value->GetItemIndex(2)->GetKey(), 3L);
    QCOMPARE(value->GetStringValue(), QStringLiteral("Fast"));
    QCOMPARE(row.delegate.property("currentValue").toString(), QStringLiteral("fast"));
}

void TestZorvaDelegate::selectionOfAnUnknownTextTakesTheFirst()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("mode"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    row.delegate.setProperty("currentValue", QStringLiteral("unheard of"));
    const std::unique_ptr<values::ValueSelection> value(
        row.delegate.CreateValueSelection(QStringLiteral("currentValue"), threeModes()));
    QCOMPARE(value->GetStringValue(), QStringLiteral("Slow"));
    QCOMPARE(row.delegate.property("currentValue").toString(), QStringLiteral("2.5"));
}

void TestZorvaDelegate::selectionOfAnEmptyEnumerationIsBlank()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("mode"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    const std::unique_ptr<values::ValueSelection> value(row.delegate.CreateValueSelection(
        QStringLiteral("currentValue"), row.formular.GetEnum(QStringLiteral("unknown"))));
    QCOMPARE(value->GetName(), QStringLiteral("mode_"));
    QCOMPARE(value->GetItemCount(), 0L);
    QCOMPARE(value->GetStringValue(), QString());
}

void TestZorvaDelegate::selectionNeedsAnEnumeration()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("mode"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    QVERIFY(!row.delegate.CreateValueSelection(QStringLiteral("currentValue"),
                                               QExplicitlySharedDataPointer<Orvane::ZorvaEnum>()));
    QVERIFY(row.delegate.takeChanges().isEmpty());
}

void TestZorvaDelegate::limitsAreConvertedOnce()
{
    ProbeRow row;
    RecordingNumber number;
    setProperties(row.delegate, {{QStringLiteral("displayScalingFactor"), 2},
                                 {QStringLiteral("displayAdditiveOffset"), 10},
                                 {QStringLiteral("minimum"), QStringLiteral("30")},
                                 {QStringLiteral("maximum"), QStringLiteral("50")},
                                 {QStringLiteral("singleStep"), QStringLiteral("4")}});
    row.delegate.ConfigureValueNumeric(&number);
    QCOMPARE(number.calls,
             (QStringList{QStringLiteral("min 10"), QStringLiteral("max 20"), QStringLiteral("step 2")}));
    QCOMPARE(number.originator, static_cast<IObserver*>(&row.delegate));
    number.calls.clear();
    row.delegate.ConfigureValueNumeric(&number);
    QVERIFY(number.calls.isEmpty());
}

void TestZorvaDelegate::limitsKeepTheirMarkers()
{
    ProbeRow row;
    RecordingNumber number;
    row.delegate.setProperty("displayScalingFactor", 1000);
    row.delegate.setProperty("minimum", 5000);
    row.delegate.ConfigureValueNumeric(&number);
    QCOMPARE(row.delegate.property("minimum").toDouble(), 5.0);
    QCOMPARE(row.delegate.property("q_internalLastMinimum").toDouble(), 5.0);
    number.calls.clear();
    row.delegate.setProperty("minimum", 5000);
    row.delegate.ConfigureValueNumeric(&number);
    QCOMPARE(row.delegate.property("minimum").toDouble(), 5.0);
    QCOMPARE(number.calls, QStringList{QStringLiteral("min 5")});
}

void TestZorvaDelegate::aLimitLikeItsMarkerIsInValueUnits()
{
    ProbeRow row;
    RecordingNumber number;
    row.delegate.setProperty("displayScalingFactor", 1000);
    row.delegate.setProperty("minimum", 5000);
    row.delegate.ConfigureValueNumeric(&number);
    number.calls.clear();
    row.delegate.setProperty("minimum", QStringLiteral("5"));
    row.delegate.ConfigureValueNumeric(&number);
    QVERIFY(number.calls.isEmpty());
    QCOMPARE(row.delegate.property("minimum").toString(), QStringLiteral("5"));
}

void TestZorvaDelegate::theStepIgnoresTheOffset()
{
    ProbeRow row;
    RecordingNumber number;
    setProperties(row.delegate, {{QStringLiteral("displayScalingFactor"), 2},
                                 {QStringLiteral("displayAdditiveOffset"), 100},
                                 {QStringLiteral("singleStep"), 10}});
    row.delegate.ConfigureValueNumeric(&number);
    QCOMPARE(row.delegate.property("singleStep").toDouble(), 5.0);
    QCOMPARE(number.calls.last(), QStringLiteral("step 5"));
}

void TestZorvaDelegate::changedLimitsReenterOnce()
{
    ProbeRow row;
    RecordingNumber number;
    setProperties(row.delegate, {{QStringLiteral("displayScalingFactor"), 10},
                                 {QStringLiteral("minimum"), 10},
                                 {QStringLiteral("maximum"), 100}});
    row.delegate.ConfigureValueNumeric(&number);
    row.delegate.numeric = &number;
    number.calls.clear();
    row.delegate.takeChanges();
    row.delegate.setProperty("maximum", 500);
    QCOMPARE(number.calls, QStringList{QStringLiteral("max 50")});
    QCOMPARE(row.delegate.property("maximum").toDouble(), 50.0);
    // Marker before property: a run in between finds nothing to do.
    QCOMPARE(row.delegate.takeChangedNames(),
             (QStringList{QStringLiteral("maximum"), QStringLiteral("q_internalLastMaximum"),
                          QStringLiteral("maximum")}));
}

void TestZorvaDelegate::defaultsAreSetTheFirstTime()
{
    ProbeRow row;
    RecordingNumber number;
    row.delegate.ConfigureValueNumeric(&number);
    QCOMPARE(number.calls, (QStringList{QStringLiteral("min -1e+308"), QStringLiteral("max 1e+308"),
                                        QStringLiteral("step 1")}));
    QCOMPARE(row.delegate.property("minimum").toDouble(), -1e308);
}

void TestZorvaDelegate::aFactorOfZeroEnds()
{
    ProbeRow row;
    values::NumericDouble number{QString()};
    setProperties(row.delegate, {{QStringLiteral("displayScalingFactor"), 0},
                                 {QStringLiteral("minimum"), 0},
                                 {QStringLiteral("maximum"), 1}});
    row.delegate.numeric = &number;
    row.delegate.ConfigureValueNumeric(&number);
    QVERIFY(std::isnan(row.delegate.property("minimum").toDouble()));
    QVERIFY(std::isinf(row.delegate.property("maximum").toDouble()));
    row.delegate.takeChanges();
    row.delegate.ConfigureValueNumeric(&number);
    QVERIFY(row.delegate.takeChanges().isEmpty());
}

void TestZorvaDelegate::limitsOfNoValueStayAsTheyAre()
{
    ProbeRow row;
    row.delegate.setProperty("displayScalingFactor", 10);
    row.delegate.setProperty("minimum", 50);
    row.delegate.ConfigureValueNumeric(nullptr);
    QCOMPARE(row.delegate.property("minimum"), QVariant(50));
}

void TestZorvaDelegate::displayTransformations_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<double>("offset");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("display");
    QTest::newRow("both") << 2.0 << 3.0 << 10.0 << 23.0;
    QTest::newRow("neither") << 1.0 << 0.0 << 10.0 << 10.0;
    QTest::newRow("negative") << -0.5 << 1.0 << 4.0 << -1.0;
}

void TestZorvaDelegate::displayTransformations()
{
    QFETCH(double, factor);
    QFETCH(double, offset);
    QFETCH(double, value);
    QFETCH(double, display);
    ProbeRow row;
    QCOMPARE(row.delegate.displayTransformation(value), value);
    row.delegate.setProperty("displayScalingFactor", factor);
    row.delegate.setProperty("displayAdditiveOffset", QString::number(offset));
    QCOMPARE(row.delegate.displayTransformation(value), display);
    QCOMPARE(row.delegate.reverseDisplayTransformation(display), value);
    QCOMPARE(ZorvaDelegate::displayTransformation(value, factor, offset), display);
    QCOMPARE(ZorvaDelegate::reverseDisplayTransformation(display, factor, offset), value);
    QVERIFY(std::isinf(ZorvaDelegate::reverseDisplayTransformation(1.0, 0.0, 0.0)));
    QVERIFY(std::isnan(ZorvaDelegate::reverseDisplayTransformation(1.0, 0.0, 1.0)));
}

void TestZorvaDelegate::formatsNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("text");
    const auto add = [](double number, int decimals, const char* suffix, const char* text) {
        QTest::addRow("%s", text) << number << decimals << QString::fromLatin1(suffix)
                                  << QString::fromLatin1(text);
    };
    add(3.14159, 2, "", "3.14");
    add(3.10, 2, "", "3.1");
    add(3.00, 2, "", "3");
    add(120.0, 0, "", "120");
    add(100.0, 2, "", "100");
    add(0.0, 3, " V", "0 V");
    add(1.5, 3, "%", "1.5%");
    add(-0.25, 4, " dB", "-0.25 dB");
}

void TestZorvaDelegate::formatsNumbers()
{
    QFETCH(double, number);
    QFETCH(int, decimals);
    QFETCH(QString, suffix);
    QFETCH(QString, text);
    ProbeRow row;
    QCOMPARE(row.delegate.formatString(number, decimals, suffix), text);
}

namespace {

/// The range tool tips: properties and what they show.
void toolTipColumns()
{
    QTest::addColumn<QVariantMap>("properties");
    QTest::addColumn<QString>("text");
}

void addToolTip(const char* title, const QVariantMap& properties, const QString& text)
{
    QTest::newRow(title) << properties << text;
}

const QString minimumKey = QStringLiteral("minimum");
const QString maximumKey = QStringLiteral("maximum");
const QString labelKey = QStringLiteral("labelText");
const QString scaleKey = QStringLiteral("unitScale");
const QString decimalsKey = QStringLiteral("decimals");
const QString factorKey = QStringLiteral("displayScalingFactor");

} // namespace

void TestZorvaDelegate::doubleToolTip_data()
{
    toolTipColumns();
    addToolTip("nothing", {}, QStringLiteral("<html>"));
    addToolTip("caption alone", {{labelKey, QStringLiteral("Level")}}, QStringLiteral("<html>Level"));
    addToolTip("sentinel as minimum", {{minimumKey, -1e308}}, QStringLiteral("<html>"));
    addToolTip("both", {{labelKey, QStringLiteral("Level")}, {minimumKey, 1}, {maximumKey, 2}},
               QStringLiteral("<html>Level<br>1...2"));
    addToolTip("only minimum", {{minimumKey, 1}}, QStringLiteral("<html><br>1..."));
    addToolTip("only maximum", {{maximumKey, QStringLiteral("2.75")}, {decimalsKey, 1}},
               QStringLiteral("<html><br>...2.8"));
    addToolTip("scaled, zeros stay",
               {{minimumKey, 1000}, {maximumKey, 5000}, {scaleKey, 1000}, {decimalsKey, 3}},
               QStringLiteral("<html><br>1.000...5.000"));
    addToolTip("displayed", {{minimumKey, 1}, {maximumKey, 2}, {factorKey, 10}},
               QStringLiteral("<html><br>10...20"));
    addToolTip("unreadable", {{minimumKey, QStringLiteral("x")}}, QStringLiteral("<html>"));
    addToolTip("scaled default shows", {{maximumKey, 5000}, {scaleKey, 1000}},
               QStringLiteral("<html><br>%1...5").arg(QString::number(-1e308 / 1000, 'f', 0)));
}

void TestZorvaDelegate::doubleToolTip()
{
    QFETCH(QVariantMap, properties);
    QFETCH(QString, text);
    ProbeRow row;
    setProperties(row.delegate, properties);
    QCOMPARE(toolTipOf(row.delegate, &ProbeDelegate::SetDoubleTooltip), text);
}

void TestZorvaDelegate::intToolTip_data()
{
    toolTipColumns();
    addToolTip("nothing", {}, QStringLiteral("<html>"));
    addToolTip("both", {{minimumKey, -5}, {maximumKey, 5}}, QStringLiteral("<html><br>-5...5"));
    addToolTip("cut toward zero", {{minimumKey, 1}, {maximumKey, -1}, {scaleKey, 2}},
               QStringLiteral("<html><br>0...0"));
    addToolTip("only maximum", {{maximumKey, 7}}, QStringLiteral("<html><br>...7"));
    addToolTip("out of range", {{maximumKey, 2147483647}, {factorKey, 2}},
               QStringLiteral("<html><br>...-2147483648"));
    addToolTip("scaled defaults show", {{scaleKey, 2}}, QStringLiteral("<html><br>-1073741824...1073741823"));
    addToolTip("scale of zero", {{minimumKey, 1}, {maximumKey, 2}, {scaleKey, 0}},
               QStringLiteral("<html><br>...-2147483648"));
}

void TestZorvaDelegate::intToolTip()
{
    QFETCH(QVariantMap, properties);
    QFETCH(QString, text);
    ProbeRow row;
    setProperties(row.delegate, properties);
    QCOMPARE(toolTipOf(row.delegate, &ProbeDelegate::SetIntTooltip), text);
}

void TestZorvaDelegate::int64ToolTip_data()
{
    toolTipColumns();
    addToolTip("nothing but the odd upper bound", {}, QStringLiteral("<html><br>...-9223372036854775808"));
    addToolTip("minimum and the odd upper bound", {{minimumKey, 0}},
               QStringLiteral("<html><br>0...-9223372036854775808"));
    addToolTip("both", {{minimumKey, QStringLiteral("20000")}, {maximumKey, QStringLiteral("3000000000")}},
               QStringLiteral("<html><br>20000...3000000000"));
    addToolTip("scaled", {{minimumKey, 1500}, {maximumKey, 2500}, {scaleKey, 1000}},
               QStringLiteral("<html><br>1...2"));
    addToolTip("precision of a double", {{minimumKey, Q_INT64_C(9007199254740993)}, {maximumKey, 1}},
               QStringLiteral("<html><br>9007199254740992...1"));
}

void TestZorvaDelegate::int64ToolTip()
{
    QFETCH(QVariantMap, properties);
    QFETCH(QString, text);
    ProbeRow row;
    setProperties(row.delegate, properties);
    QCOMPARE(toolTipOf(row.delegate, &ProbeDelegate::SetInt64Tooltip), text);
}

void TestZorvaDelegate::toolTipOfNoControl()
{
    ProbeRow row;
    row.delegate.setProperty("minimum", 1);
    row.delegate.SetDoubleTooltip(nullptr);
    row.delegate.SetIntTooltip(nullptr);
    row.delegate.SetInt64Tooltip(nullptr);
    QVERIFY(!row.delegate.property("toolTip").isValid());
}

void TestZorvaDelegate::unitAttributeOnlyForAUnit_data()
{
    QTest::addColumn<QVariant>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("absent") << QVariant() << QStringLiteral("<x/>");
    QTest::newRow("empty") << QVariant(QStringLiteral("")) << QStringLiteral("<x/>");
    QTest::newRow("unit") << QVariant(QStringLiteral("kHz")) << QStringLiteral("<x unit=\"kHz\"/>");
}

void TestZorvaDelegate::unitAttributeOnlyForAUnit()
{
    QFETCH(QVariant, unit);
    QFETCH(QString, text);
    ProbeRow row;
    row.delegate.setProperty("unit", unit);
    QString written;
    QXmlStreamWriter writer(&written);
    writer.writeStartElement(QStringLiteral("x"));
    row.delegate.WriteUnitAttribute(writer);
    writer.writeEndElement();
    QCOMPARE(written, text);
}

void TestZorvaDelegate::baseOperationsDoNothing()
{
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("x"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    row.delegate.CreateValueTree();
    QVERIFY(values::Tree::Instance()->IsEmpty());
    QVERIFY(!row.delegate.GetVTValue());
    QString written;
    QXmlStreamWriter writer(&written);
    row.delegate.setGenerateParameterXml(true);
    row.delegate.GetXml(writer);
    QVERIFY(written.isEmpty());
    QXmlStreamReader reader(QStringLiteral("<x>5</x>"));
    reader.readNextStartElement();
    row.delegate.ReadXml(reader);
    QVERIFY(reader.isStartElement());
    row.delegate.setFocus();
    row.delegate.forceFinishEditing();
    row.delegate.Update(nullptr, ChangeCode::Content);
    QVERIFY(!row.delegate.isModified());
}

void TestZorvaDelegate::emptyResyncIsTracedOnRequest_data()
{
    QTest::addColumn<int>("mask");
    QTest::addColumn<bool>("traced");
    QTest::newRow("errors only") << ErrorHandler::TraceErrors << false;
    QTest::newRow("notes") << ErrorHandler::TraceNotes << true;
}

void TestZorvaDelegate::takenPlaceIsTracedOnRequest_data()
{
    emptyResyncIsTracedOnRequest_data();
}

void TestZorvaDelegate::takenPlaceIsTracedOnRequest()
{
    QFETCH(int, mask);
    QFETCH(bool, traced);
    const int before = ErrorHandler::Instance().GetTraceMask();
    ErrorHandler::Instance().SetTraceMask(mask);
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("x"));
    row.delegate.SetVTPath(QStringLiteral("/form"));
    const QString property = QStringLiteral("value");
    const std::unique_ptr<values::ValueBool> first(row.delegate.CreateValueBoolean(property));
    if (traced) {
        guard->expect(QStringLiteral("A value is refused: its place /form/x is taken"));
        guard->expect(QStringLiteral("The place /form/x in the value tree is taken"));
    }
    QVERIFY(!row.delegate.CreateValueBoolean(property));
    ErrorHandler::Instance().SetTraceMask(before);
}

void TestZorvaDelegate::emptyResyncIsTracedOnRequest()
{
    QFETCH(int, mask);
    QFETCH(bool, traced);
    const int before = ErrorHandler::Instance().GetTraceMask();
    ErrorHandler::Instance().SetTraceMask(mask);
    ProbeRow row;
    row.delegate.SetXmlPath(QStringLiteral("a/level"));
    if (traced)
        guard->expect(QStringLiteral("ResyncValueTree empty implementation for level"));
    row.delegate.ResyncValueTree();
    ErrorHandler::Instance().SetTraceMask(before);
}

QTEST_MAIN(TestZorvaDelegate)
#include "tst_zorvadelegate.moc"
