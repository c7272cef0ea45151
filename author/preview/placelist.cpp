#include "placelist.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

namespace Orvane {
namespace Author {

namespace {

constexpr int lineRole = Qt::UserRole;
constexpr int columnRole = Qt::UserRole + 1;

} // namespace

PlaceList::PlaceList(const QString& name, const QStringList& columns, QWidget* parent)
    : QTreeWidget(parent)
{
    setAccessibleName(name);
    setHeaderLabels(columns);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    // Tab leaves the list; arrows walk it.
    setTabKeyNavigation(false);
    connect(this, &QTreeWidget::itemClicked, this, [this](const QTreeWidgetItem* item) { goTo(item); });
}

void PlaceList::setEmptyText(const QString& text)
{
    m_emptyText = text;
    setAccessibleDescription(QStringLiteral("If empty: %1").arg(text));
    viewport()->update();
}

void PlaceList::paintEvent(QPaintEvent* event)
{
    QTreeWidget::paintEvent(event);
    if (topLevelItemCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

QTreeWidgetItem* PlaceList::add(const QStringList& texts, int line, int column)
{
    auto* const item = new QTreeWidgetItem(this, texts);
    item->setData(0, lineRole, line);
    item->setData(0, columnRole, column);
    for (int i = 0; i < texts.size(); ++i)
        item->setToolTip(i, texts.at(i).toHtmlEscaped());
    return item;
}

int PlaceList::lineOf(const QTreeWidgetItem& item)
{
    return item.data(0, lineRole).toInt();
}

int PlaceList::columnOf(const QTreeWidgetItem& item)
{
    return item.data(0, columnRole).toInt();
}

void PlaceList::goToCurrent()
{
    goTo(currentItem());
}

void PlaceList::goTo(const QTreeWidgetItem* item)
{
    if (item && lineOf(*item) > 0)
        Q_EMIT placeChosen(lineOf(*item), columnOf(*item));
}

void PlaceList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        goToCurrent();
        return;
    }
    QTreeWidget::keyPressEvent(event);
}

} // namespace Author
} // namespace Orvane
