#ifndef ZORVA_TESTS_DIALOGUSER_H
#define ZORVA_TESTS_DIALOGUSER_H

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>

/// Lets `use(dialog)` run inside the modal dialog that is opened next. A dialog
/// that is still open afterwards is closed, and the test fails.
template <typename Use>
void whenDialogOpens(Use use)
{
    QTimer::singleShot(0, qApp, [use] {
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        QVERIFY2(dialog, "no modal dialog came");
        dialog->activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), dialog.data());
        use(dialog.data());
        if (!dialog || !dialog->isVisible())
            return;
        dialog->reject();
        QFAIL("the dialog was left open");
    });
}

/// The dialog's button in that role; null if there is none.
inline QPushButton* dialogButton(QDialog* dialog, QDialogButtonBox::ButtonRole role)
{
    const auto* const box = dialog->findChild<QDialogButtonBox*>();
    if (!box)
        return nullptr;
    for (QAbstractButton* const button : box->buttons()) {
        if (box->buttonRole(button) == role)
            return qobject_cast<QPushButton*>(button);
    }
    return nullptr;
}

inline void pressButton(QDialog* dialog, QDialogButtonBox::ButtonRole role)
{
    QPushButton* const button = dialogButton(dialog, role);
    QVERIFY(button);
    QTest::mouseClick(button, Qt::LeftButton);
}

#endif
