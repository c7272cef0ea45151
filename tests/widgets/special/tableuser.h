#ifndef ZORVA_TESTS_TABLEUSER_H
#define ZORVA_TESTS_TABLEUSER_H

#include <QAbstractItemView>
#include <QApplication>
#include <QTableWidget>
#include <QTest>

/// Where a cell is, in the viewport of a table that is shown.
inline QPoint cellCenter(const QTableWidget* table, int row, int column)
{
    return table->visualRect(table->model()->index(row, column)).center();
}

inline void clickCell(const QTableWidget* table, int row, int column,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers, cellCenter(table, row, column));
}

/// Opens the editor of a cell as a user does; null if none comes.
template <typename Editor>
Editor* openEditor(const QTableWidget* table, int row, int column)
{
    clickCell(table, row, column);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, cellCenter(table, row, column));
    return table->viewport()->findChild<Editor*>();
}

/// Types `text` over what stands in a cell, and Return.
template <typename Editor = QWidget>
void typeIntoCell(const QTableWidget* table, int row, int column, const QString& text)
{
    QVERIFY(openEditor<Editor>(table, row, column));
    QWidget* const editor = QApplication::focusWidget();
    QVERIFY(table->isAncestorOf(editor));
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_VERIFY(!table->viewport()->findChild<Editor*>() || table->hasFocus());
}

#endif
