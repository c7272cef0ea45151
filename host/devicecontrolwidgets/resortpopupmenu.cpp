#include "devicecontrolwidgets/resortpopupmenu.h"

#include <algorithm>

ResortPopupMenu::ResortPopupMenu(QWidget* parent)
    : QMenu(parent)
{
}

void ResortPopupMenu::Resort()
{
    QList<QAction*> sorted = actions();
    const auto byText = [](const QAction* left, const QAction* right) {
        return QString::localeAwareCompare(left->text(), right->text()) < 0;
    };
    auto begin = sorted.begin();
    while (begin != sorted.end()) {
        const auto end = std::find_if(begin, sorted.end(), [](const QAction* a) { return a->isSeparator(); });
        std::stable_sort(begin, end, byText);
        begin = end == sorted.end() ? end : end + 1;
    }
    for (QAction* action : qAsConst(sorted)) {
        removeAction(action);
        addAction(action);
    }
}
