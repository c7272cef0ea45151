#ifndef ZORVA_AUTHOR_PLACELIST_H
#define ZORVA_AUTHOR_PLACELIST_H

#include <QTreeWidget>

namespace Orvane {
namespace Author {

/** A list in which lines stand for places in the description; Enter or a click asks to go there. */
class PlaceList : public QTreeWidget
{
    Q_OBJECT

public:
    /** @p name is what a screen reader calls the list. */
    PlaceList(const QString& name, const QStringList& columns, QWidget* parent = nullptr);

    /** What stands in the list while it has no lines. */
    void setEmptyText(const QString& text);
    /** A line without a place if @p line is 0. */
    QTreeWidgetItem* add(const QStringList& texts, int line = 0, int column = 1);
    /** The place of an item; the line is 0 if it has none. */
    static int lineOf(const QTreeWidgetItem& item);
    static int columnOf(const QTreeWidgetItem& item); ///< Likewise.
    /** Goes to the place of the current line, if it has one. */
    void goToCurrent();

Q_SIGNALS:
    void placeChosen(int line, int column);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void goTo(const QTreeWidgetItem* item);

    QString m_emptyText;
};

} // namespace Author
} // namespace Orvane

#endif
