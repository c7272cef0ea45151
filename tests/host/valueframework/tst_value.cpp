#include <recordingobserver.h>

#include <valueframework/value.h>
#include <valueframework/valuenumeric.h>

#include <QTest>

#include <memory>
#include <type_traits>

using namespace values;

// The types that hosts name in full.
static_assert(
    std::is_same<ValueBool, Value<bool, FormatBool<bool>, StreamFormat<bool, FormatBool<bool>>>>::value, "");
static_assert(
    std::is_same<ValueString,
                 Value<QString, FormatString<QString>, StreamFormat<QString, FormatString<QString>>>>::value,
    "");

class TestValue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void beginsAsZero_data();
    void beginsAsZero();
    void typesHaveNumbersAndNames_data();
    void typesHaveNumbersAndNames();
    void settingTellsOfContent();
    void equalWritesAreSilent();
    void textIsReadAndWritten_data();
    void textIsReadAndWritten();
    void assignAndCompare();
    void assignGoesByTextBetweenTypes();
    void nestedWritesEndInside();
};

namespace {

using ValuePointer = std::shared_ptr<ValueBase>;

template <typename T>
void row(const char* name, int type, const char* typeName, const char* zero)
{
    QTest::newRow(name) << ValuePointer(new T(QStringLiteral("v"))) << type << typeName << zero;
}

void addTypeRows()
{
    QTest::addColumn<ValuePointer>("value");
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QString>("zero");
    row<ValueBool>("bool", 1, "bool", "false");
    row<ValueString>("string", 2, "string", "");
    row<ValueInt>("int", 6, "int", "0");
    row<ValueInt64>("int64", 7, "int64", "0");
    row<ValueDouble>("double", 8, "double", "0");
    row<NumericInt>("numeric int", 6, "int", "0");
    row<NumericInt64>("numeric int64", 7, "int64", "0");
    row<NumericDouble>("numeric double", 8, "double", "0");
}

} // namespace

Q_DECLARE_METATYPE(ValuePointer)

void TestValue::beginsAsZero_data()
{
    addTypeRows();
}

void TestValue::beginsAsZero()
{
    QFETCH(ValuePointer, value);
    QFETCH(QString, zero);
    QCOMPARE(value->GetStringValue(), zero);
    QCOMPARE(value->GetName(), QStringLiteral("v"));
    QCOMPARE(value->GetState(), ValueState::Normal);
}

void TestValue::typesHaveNumbersAndNames_data()
{
    addTypeRows();
}

void TestValue::typesHaveNumbersAndNames()
{
    QFETCH(ValuePointer, value);
    QFETCH(int, type);
    QFETCH(QString, typeName);
    QCOMPARE(static_cast<int>(value->GetType()), type);
    QCOMPARE(value->GetTypeName(), typeName);
}

void TestValue::settingTellsOfContent()
{
    ValueString value(QStringLiteral("v"));
    RecordingObserver originator, other;
    originator.watch(&value);
    other.watch(&value);
    QVERIFY(value.SetValue(QStringLiteral("new"), &originator));
    QCOMPARE(value.GetValue(), QStringLiteral("new"));
    QCOMPARE(other.codes(), QList<TChangeCode>{ChangeCode::Content});
    QVERIFY(originator.codes().isEmpty());
    value.SetValue(QStringLiteral("newer"), nullptr);
    QCOMPARE(originator.codes(), QList<TChangeCode>{ChangeCode::Content});
}

void TestValue::equalWritesAreSilent()
{
    ValueBool value(QStringLiteral("v"));
    RecordingObserver observer;
    observer.watch(&value);
    QVERIFY(!value.SetValue(false, nullptr));
    QVERIFY(value.SetStringValue(QStringLiteral("0"), nullptr));
    QVERIFY(observer.codes().isEmpty());
}

void TestValue::textIsReadAndWritten_data()
{
    QTest::addColumn<ValuePointer>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<QString>("after");
    const auto make = [](auto* raw, const char* before) {
        raw->SetStringValue(QLatin1String(before), nullptr);
        return ValuePointer(raw);
    };
    const QString name = QStringLiteral("v");
    QTest::newRow("bool") << make(new ValueBool(name), "") << "true" << true << "true";
    QTest::newRow("bool, empty") << make(new ValueBool(name), "true") << "" << true << "false";
    QTest::newRow("bool, unreadable") << make(new ValueBool(name), "true") << "x" << false << "true";
    QTest::newRow("string") << make(new ValueString(name), "") << " a " << true << " a ";
    QTest::newRow("string, empty") << make(new ValueString(name), "a") << "" << true << "";
    QTest::newRow("int") << make(new ValueInt(name), "") << "1e2" << true << "100";
    QTest::newRow("int, empty") << make(new ValueInt(name), "5") << "" << true << "0";
    QTest::newRow("int, unreadable") << make(new ValueInt(name), "5") << "x" << false << "5";
    QTest::newRow("double") << make(new ValueDouble(name), "") << "2.65e+10" << true << "26500000000";
    QTest::newRow("double, unreadable") << make(new ValueDouble(name), "5") << "nan" << false << "5";
}

void TestValue::textIsReadAndWritten()
{
    QFETCH(ValuePointer, value);
    QFETCH(QString, text);
    QFETCH(bool, readable);
    QFETCH(QString, after);
    const bool changes = value->GetStringValue() != after;
    RecordingObserver observer;
    observer.watch(value.get());
    QCOMPARE(value->SetStringValue(text, nullptr), readable);
    QCOMPARE(value->GetStringValue(), after);
    QCOMPARE(observer.codes().size(), changes ? 1 : 0);
}

void TestValue::assignAndCompare()
{
    ValueString from(QStringLiteral("from")), to(QStringLiteral("to"));
    from.SetValue(QStringLiteral("text"), nullptr);
    QVERIFY(!to.Compare(&from));
    QVERIFY(!to.Compare(nullptr));
    RecordingObserver observer;
    observer.watch(&to);
    QVERIFY(to.Assign(from));
    QVERIFY(to.Compare(&from));
    QCOMPARE(to.GetName(), QStringLiteral("to"));
    QCOMPARE(observer.codes(), QList<TChangeCode>{ChangeCode::Content});
    QVERIFY(to.Assign(to));
}

void TestValue::assignGoesByTextBetweenTypes()
{
    ValueString text(QStringLiteral("text"));
    ValueInt number(QStringLiteral("number"));
    text.SetValue(QStringLiteral("42"), nullptr);
    QVERIFY(number.Assign(text));
    QCOMPARE(number.GetValue(), 42);
    QVERIFY(!number.Compare(&text));
    text.SetValue(QStringLiteral("many"), nullptr);
    QVERIFY(!number.Assign(text));
    QCOMPARE(number.GetValue(), 42);
}

void TestValue::nestedWritesEndInside()
{
    ValueInt value(QStringLiteral("v"));
    QList<int> seen;
    RecordingObserver corrector, reader;
    corrector.watch(&value);
    reader.watch(&value);
    corrector.onUpdate = [&](Observable*, TChangeCode) { value.SetValue(10, &corrector); };
    reader.onUpdate = [&](Observable*, TChangeCode) { seen << value.GetValue(); };
    value.SetValue(5, nullptr);
    QCOMPARE(seen, (QList<int>{10, 10}));
    QCOMPARE(corrector.codes().size(), 1);
}

QTEST_APPLESS_MAIN(TestValue)
#include "tst_value.moc"
