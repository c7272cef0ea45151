#include "basicvaluewidgets/comboaccess_p.h"

#include "basicvaluewidgets/vccomboboxclassic.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>

namespace {

// Qt's own interface has the current choice for a name, whatever name the box was
// given. Here the name is the box's, and the choice its text and value.
class Interface : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    explicit Interface(VCComboBoxClassic* box)
        : QAccessibleWidget(box, QAccessible::ComboBox)
    {
    }

    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Value ? box()->currentText() : QAccessibleWidget::text(which);
    }
    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        const auto* list = box()->findChild<QAbstractItemView*>(); // made when it is first shown
        state.expandable = true;
        state.expanded = list && list->isVisible();
        state.readOnly = box()->isReadOnly();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }

    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(box()->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child && child->object() == box()->view() ? 0 : -1;
    }

    QStringList actionNames() const override
    {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override
    {
        if (action == showMenuAction() && box()->isEnabled())
            box()->showPopup();
        else
            QAccessibleWidget::doAction(action);
    }

    // The text is only read: nothing in it can be selected, and there is no cursor.
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QString text(int start, int end) const override { return box()->currentText().mid(start, end - start); }
    int characterCount() const override { return box()->currentText().size(); }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint&) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int* start, int* end) const override
    {
        *start = 0;
        *end = characterCount();
        return QString();
    }

private:
    VCComboBoxClassic* box() const { return static_cast<VCComboBoxClassic*>(widget()); }
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    auto* box =
        className == QLatin1String("VCComboBoxClassic") ? qobject_cast<VCComboBoxClassic*>(object) : nullptr;
    return box ? new Interface(box) : nullptr;
}

} // namespace

void ComboAccess::Install()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
}
