#include "controlroles.h"

QString controlRole(QAccessible::Role role)
{
    switch (role) {
    case QAccessible::Button:
        return QStringLiteral("button");
    case QAccessible::CheckBox:
        return QStringLiteral("check box");
    case QAccessible::ComboBox:
        return QStringLiteral("combo box");
    case QAccessible::EditableText:
        return QStringLiteral("text");
    case QAccessible::SpinBox:
        return QStringLiteral("spin button");
    case QAccessible::Table:
        return QStringLiteral("table");
    default:
        return QString();
    }
}
