#include <zorvaparser/widgets/zorvacheckbox.h>
#include <zorvaparser/widgets/zorvacombobox.h>
#include <zorvaparser/widgets/zorvadoublespinbox.h>
#include <zorvaparser/widgets/zorvadoublespinboxlist.h>
#include <zorvaparser/widgets/zorvaheadline.h>
#include <zorvaparser/widgets/zorvahidden.h>
#include <zorvaparser/widgets/zorvahiddenlist.h>
#include <zorvaparser/widgets/zorvahiddenmap.h>
#include <zorvaparser/widgets/zorvahiddentable.h>
#include <zorvaparser/widgets/zorvaint64spinbox.h>
#include <zorvaparser/widgets/zorvalabel.h>
#include <zorvaparser/widgets/zorvalineedit.h>
#include <zorvaparser/widgets/zorvapushbutton.h>
#include <zorvaparser/widgets/zorvaseparator.h>
#include <zorvaparser/widgets/zorvaspinbox.h>
#include <zorvaparser/widgets/zorvaspinboxlist.h>

#include <QMetaMethod>
#include <QTest>

using namespace Orvane;

Q_DECLARE_METATYPE(const QMetaObject*)

namespace {

QString described(const QMetaMethod& method)
{
    QString text;
    if (method.access() == QMetaMethod::Private)
        text += QStringLiteral("private ");
    if (method.methodType() == QMetaMethod::Signal)
        text += QStringLiteral("signal ");
    else if (method.methodType() == QMetaMethod::Slot)
        text += QStringLiteral("slot ");
    const QString type = QString::fromLatin1(method.typeName());
    if (type != QLatin1String("void"))
        text += type + QLatin1Char(' ');
    return text + QString::fromLatin1(method.methodSignature());
}

/// What a class adds to the surface of its base, one line each, in order.
QStringList surface(const QMetaObject* metaObject)
{
    QStringList lines;
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i)
        lines << described(metaObject->method(i));
    return lines;
}

QStringList lines(const char* text)
{
    QStringList list;
    for (const QString& line : QString::fromLatin1(text).split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        list << line.trimmed();
    return list;
}

} // namespace

/// The order of signals, slots and invokables is contract for scripts and hosts.
class TestMetaObjects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void surface_data();
    void surface();
};

void TestMetaObjects::surface_data()
{
    QTest::addColumn<const QMetaObject*>("metaObject");
    QTest::addColumn<const QMetaObject*>("base");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const QMetaObject& metaObject, const char* expected,
                        const QMetaObject& base = ZorvaDelegate::staticMetaObject) {
        QTest::newRow(metaObject.className()) << &metaObject << &base << lines(expected);
    };

    row(ZorvaDelegate::staticMetaObject, R"(signal customPropertyChanged(QString,QVariant)
        slot setApplyMode(eApplyMode)
        slot setEnabled(bool)
        slot setGenerateParameterXml(bool)
        slot setReadOnly(bool)
        slot setVisible(bool)
        slot setLabelText(QString)
        slot setCustomProperty(QString,QVariant)
        slot setGroupVisible(bool)
        slot setFocus()
        slot setModified(bool)
        slot resetModified()
        slot forceFinishEditing()
        QVariant customProperty(QString))",
        QObject::staticMetaObject);
    row(ZorvaComboBox::staticMetaObject, R"(signal currentValueChanged(QString)
        slot clearCurrentValue()
        slot setCurrentValue(QString)
        slot bool setCurrentIndex(int)
        slot setEnumName(QString)
        slot setDisplayUnknownValues(bool)
        slot setDisplayAsUnknown(bool)
        slot setFirstValueAsCurrent(QString)
        slot setFocus()
        QString itemValue(int)
        int firstIndexOfValue(QString))");
    row(ZorvaDoubleSpinBox::staticMetaObject, R"(signal editingFinished()
        signal returnPressed()
        signal valueChanged(double)
        slot setDecimals(int)
        slot setDisplayScalingFactor(double)
        slot setMaximum(double)
        slot setMinimum(double)
        slot setPrefix(QString)
        slot setSingleStep(double)
        slot setSpecialValueText(QString)
        slot setSuffix(QString)
        slot setUnit(QString)
        slot setValue(double)
        slot setWrapping(bool)
        slot setFocus())");
    row(ZorvaSpinBox::staticMetaObject, R"(signal editingFinished()
        signal returnPressed()
        signal valueChanged(int)
        slot setDisplayAdditiveOffset(int)
        slot setMaximum(int)
        slot setMinimum(int)
        slot setPrefix(QString)
        slot setSingleStep(int)
        slot setSpecialValueText(QString)
        slot setSuffix(QString)
        slot setUnit(QString)
        slot setValue(int)
        slot setWrapping(bool)
        slot setFocus())");
    row(ZorvaInt64SpinBox::staticMetaObject, R"(signal editingFinished()
        signal unitChanged(QString)
        signal valueChanged(qlonglong)
        slot setMaxHistoryLength(int)
        slot setMaximum(qlonglong)
        slot setMinimum(qlonglong)
        slot setUnitHidden(bool)
        slot setUnitScale(QString)
        slot setUnitScale(qulonglong)
        slot setUseHistory(bool)
        slot setValue(qlonglong)
        slot setSingleStep(qlonglong)
        slot setSuffix(QString)
        slot setWrapping(bool)
        slot setFocus())");
    row(ZorvaCheckBox::staticMetaObject, R"(signal toggled(bool)
        slot setChecked(bool)
        slot setCheckedValue(QString)
        slot setUncheckedValue(QString)
        slot setFocus())");
    row(ZorvaLineEdit::staticMetaObject, R"(signal editingFinished()
        signal returnPressed()
        signal textChanged(QString)
        signal textEdited(QString)
        slot setInputMask(QString)
        slot setMaxLength(int)
        slot setText(QString)
        slot setFocus()
        slot forceFinishEditing()
        private slot SlotTextEdited(QString)
        private slot SlotTextFinallyChanged(QString)
        private slot SlotReturnPressed())");
    row(ZorvaPushButton::staticMetaObject, R"(signal clicked()
        signal pressed()
        signal released()
        slot animateClick()
        slot clearIcon()
        slot setIcon(QIcon)
        slot setIcon(QString)
        slot setIconSize(QSize)
        slot setIconSize(int,int)
        slot setText(QString)
        slot setFocus())");
    row(ZorvaLabel::staticMetaObject, "slot setText(QString)");
    row(ZorvaHeadline::staticMetaObject, R"(slot setText(QString)
        slot setMargin(int)
        slot setGroupVisible(bool)
        private slot slotClicked(bool))");
    row(ZorvaSeparator::staticMetaObject, R"(slot setHeight(int)
        slot setMargin(int))");
    row(ZorvaDoubleSpinBoxList::staticMetaObject, R"(signal editingFinished(int)
        signal returnPressed(int)
        signal valueChanged(int,double)
        signal shiftValueChanged(int,double)
        slot setDecimals(int)
        slot setDisplayScalingFactor(double)
        slot setItemCount(int)
        slot setShiftCount(int)
        slot setMaximum(double)
        slot setMinimum(double)
        slot setPrefix(QString)
        slot setSingleStep(double)
        slot setSpecialValueText(QString)
        slot setSuffix(QString)
        slot setUnit(QString)
        slot setValue(double)
        slot setWrapping(bool)
        slot setFocus()
        bool isEnabled(int)
        setEnabled(int,bool)
        double itemValue(int)
        setItemValue(int,double)
        double shiftValue(int)
        setShiftValue(int,double))");
    row(ZorvaSpinBoxList::staticMetaObject, R"(signal editingFinished(int)
        signal returnPressed(int)
        signal valueChanged(int,int)
        slot setDisplayAdditiveOffset(int)
        slot setMaximum(int)
        slot setMinimum(int)
        slot setPrefix(QString)
        slot setSingleStep(int)
        slot setSpecialValueText(QString)
        slot setSuffix(QString)
        slot setUnit(QString)
        slot setValue(int)
        slot setWrapping(bool)
        slot setFocus()
        bool isEnabled(int)
        setEnabled(int,bool)
        int itemValue(int)
        setItemValue(int,int))");
    row(ZorvaHidden::staticMetaObject, R"(signal valueChanged(QString)
        slot setValue(QString))");
    row(ZorvaHiddenList::staticMetaObject, R"(signal itemValueChanged(int,QString)
        slot clear()
        slot setItemCount(int)
        QString itemValue(int)
        setItemValue(int,QString))");
    row(ZorvaHiddenMap::staticMetaObject, R"(signal valueAdded(QString,QString)
        signal valueChanged(QString,QString)
        signal valueRemoved(QString,QString)
        slot clear()
        QList<QString> keys()
        QString value(QString)
        bool contains(QString)
        remove(QString)
        setValue(QString,QString))");
    row(ZorvaHiddenTable::staticMetaObject, R"(signal tableCleared()
        signal itemValueChanged(int,int,QString)
        slot clear()
        slot setColumnCount(int)
        slot setRowCount(int)
        QString itemValue(int,int)
        setItemValue(int,int,QString))");
}

void TestMetaObjects::surface()
{
    QFETCH(const QMetaObject*, metaObject);
    QFETCH(const QMetaObject*, base);
    QFETCH(QStringList, expected);
    QCOMPARE(::surface(metaObject), expected);
    QCOMPARE(metaObject->superClass(), base);
    QCOMPARE(metaObject->propertyCount(), metaObject->propertyOffset());
}

QTEST_APPLESS_MAIN(TestMetaObjects)
#include "tst_metaobjects.moc"
