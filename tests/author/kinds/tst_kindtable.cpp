#include <author/kinds/kindtable.h>

#include <QTest>

using namespace Orvane::Author;

/// The reader: what the table says is found by name, with what all rows have joined in.
class TestKindTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void classesAreFoundByExactName();
    void propertiesIncludeTheSharedOnes();
    void inertForOneClassAlone();
    void anOpenNameFindsItsFamily();
    void overloadsAreFoundTogether();
    void anUnknownClassIsACaption();
    void elementsKnowParentsAndAttributes();
    void everyPropertyHasAKnownType();
    void everyNeedIsAProperty();
    void reservedNames();
};

void TestKindTable::classesAreFoundByExactName()
{
    const ControlClass* const spinBox = KindTable::instance().findClass(QStringLiteral("SpinBox"));
    QVERIFY(spinBox);
    QCOMPARE(spinBox->name, QStringLiteral("SpinBox"));
    QCOMPARE(spinBox->delegate, QStringLiteral("ZorvaSpinBox"));
    QVERIFY(spinBox->isInput());
    QVERIFY(spinBox->isExported());
    QVERIFY(!KindTable::instance().findClass(QStringLiteral("spinBox")));
    QVERIFY(!KindTable::instance().findClass(QString()));
}

void TestKindTable::propertiesIncludeTheSharedOnes()
{
    const ControlClass& edit = *KindTable::instance().findClass(QStringLiteral("BandwidthEdit"));
    const Property* const own = edit.findProperty(QStringLiteral("unitScale"));
    QVERIFY(own && !own->shared);
    QCOMPARE(own->type, QStringLiteral("UInt64"));
    QVERIFY(own->isNumber());
    const Property* const shared = edit.findProperty(QStringLiteral("labelText"));
    QVERIFY(shared && shared->shared && shared->translated);
    QVERIFY(!shared->isNumber());
    QVERIFY(!edit.findProperty(QStringLiteral("labeltext")));
}

void TestKindTable::inertForOneClassAlone()
{
    const KindTable& table = KindTable::instance();
    const QString toolTip = QStringLiteral("toolTip");
    QVERIFY(table.findClass(QStringLiteral("HiddenParameter"))->findProperty(toolTip)->inert);
    QVERIFY(!table.findClass(QStringLiteral("ComboBox"))->findProperty(toolTip)->inert);
}

void TestKindTable::anOpenNameFindsItsFamily()
{
    const ControlClass& sheet = KindTable::instance().sheet();
    QVERIFY(sheet.findProperty(QStringLiteral("Attribute_edition")));
    QVERIFY(sheet.findCustomProperty(QStringLiteral("Attribute_edition")));
    QVERIFY(!sheet.findProperty(QStringLiteral("attribute_edition")));
    QVERIFY(!sheet.findProperty(QStringLiteral("labelText")));
}

void TestKindTable::overloadsAreFoundTogether()
{
    const ControlClass& edit = *KindTable::instance().findClass(QStringLiteral("BandwidthEdit"));
    const QList<const Method*> scales = edit.findMethods(QStringLiteral("setUnitScale"));
    QCOMPARE(scales.size(), 2);
    QCOMPARE(scales.at(0)->signature(), QStringLiteral("setUnitScale(QString)"));
    QCOMPARE(scales.at(1)->call(), QStringLiteral("setUnitScale(value)"));
    QCOMPARE(edit.findMethods(QStringLiteral("setVisible")).size(), 1);
    QVERIFY(edit.findMethods(QStringLiteral("setText")).isEmpty());
}

void TestKindTable::anUnknownClassIsACaption()
{
    const ControlClass& unknown = KindTable::instance().unknownClass();
    QVERIFY(unknown.name.isEmpty());
    QVERIFY(unknown.findProperty(QStringLiteral("labelText")));
    QVERIFY(!unknown.isExported());
    QCOMPARE(unknown.control, ControlClass::NoControl);
}

void TestKindTable::elementsKnowParentsAndAttributes()
{
    const KindTable& table = KindTable::instance();
    const Element* const widget = table.findElement(QStringLiteral("Widget"));
    QVERIFY(widget);
    QCOMPARE(widget->parents, QStringList(QStringLiteral("Sheet")));
    QVERIFY(widget->findAttribute(QStringLiteral("class")));
    QVERIFY(!widget->findAttribute(QStringLiteral("kind")));
    QVERIFY(!table.findElement(QStringLiteral("Int")));
    QVERIFY(table.isValueType(QStringLiteral("Int")));
    for (const Element& element : table.elements()) {
        for (const QString& child : element.children) {
            if (child == QLatin1String("*"))
                continue;
            QVERIFY2(table.findElement(child), qPrintable(child));
            QVERIFY2(table.findElement(child)->parents.contains(element.name), qPrintable(child));
        }
    }
}

void TestKindTable::everyPropertyHasAKnownType()
{
    const KindTable& table = KindTable::instance();
    for (const ControlClass& controlClass : table.classes()) {
        for (const Property& property : controlClass.properties + controlClass.customProperties) {
            QVERIFY2(table.isValueType(property.type), qPrintable(controlClass.name + property.name));
            QVERIFY2(!property.effect.isEmpty(), qPrintable(controlClass.name + property.name));
        }
    }
}

void TestKindTable::everyNeedIsAProperty()
{
    for (const ControlClass& controlClass : KindTable::instance().classes()) {
        QStringList needs = controlClass.needs;
        for (const Property& property : controlClass.properties)
            needs += property.needs;
        for (const QString& need : qAsConst(needs))
            QVERIFY2(controlClass.findProperty(need), qPrintable(controlClass.name + need));
    }
}

void TestKindTable::reservedNames()
{
    const KindTable& table = KindTable::instance();
    QVERIFY(table.isReservedProperty(QStringLiteral("_q_anything")));
    QVERIFY(table.isReservedProperty(QStringLiteral("objectName")));
    QVERIFY(!table.isReservedProperty(QStringLiteral("value")));
    QVERIFY(table.script().globals().contains(QStringLiteral("print")));
}

QTEST_APPLESS_MAIN(TestKindTable)
#include "tst_kindtable.moc"
