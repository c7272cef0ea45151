#include "basicvaluewidgets/spinaccess_p.h"

#include "basicvaluewidgets/vcnumericfloatspin.h"

#include <QAccessibleWidget>
#include <QLineEdit>

namespace {

// Qt's own interface asks the properties for the limits; those of this control
// are in value units, whereas its value is a display number.
class Interface : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    explicit Interface(VCNumericFloatSpin* spin)
        : QAccessibleWidget(spin, QAccessible::SpinBox)
    {
        // Qt makes no interface of the edit of a spin box, which it knows by its name.
        auto* edit = spin->findChild<QLineEdit*>();
        const QString name = edit->objectName();
        edit->setObjectName(QString());
        m_edit = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(edit));
        edit->setObjectName(name);
    }

    QString text(QAccessible::Text which) const override
    {
        if (which == QAccessible::Value)
            return spin()->text();
        if (which == QAccessible::Description && spin()->accessibleDescription().isEmpty())
            return spin()->RangeText();
        return QAccessibleWidget::text(which);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = !spin()->isReadOnly();
        state.readOnly = spin()->isReadOnly();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        if (type != QAccessible::TextInterface && type != QAccessible::EditableTextInterface)
            return QAccessibleWidget::interface_cast(type);
        QAccessibleInterface* edit = QAccessible::accessibleInterface(m_edit);
        return edit ? edit->interface_cast(type) : nullptr;
    }

    QVariant currentValue() const override { return spin()->value(); }
    void setCurrentValue(const QVariant& value) override { spin()->setValue(value.toDouble()); }
    QVariant maximumValue() const override { return spin()->maximum(); }
    QVariant minimumValue() const override { return spin()->minimum(); }
    QVariant minimumStepSize() const override { return spin()->singleStep(); }

private:
    VCNumericFloatSpin* spin() const { return static_cast<VCNumericFloatSpin*>(widget()); }

    QAccessible::Id m_edit;
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    auto* spin = className == QLatin1String("VCNumericFloatSpin") ? qobject_cast<VCNumericFloatSpin*>(object)
                                                                  : nullptr;
    return spin ? new Interface(spin) : nullptr;
}

} // namespace

void SpinAccess::Install()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void SpinAccess::TellValue(VCNumericFloatSpin* spin)
{
    QAccessibleValueChangeEvent event(spin, spin->value());
    QAccessible::updateAccessibility(&event);
}
