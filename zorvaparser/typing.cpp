#include "typing_p.h"

#include <basicvaluewidgets/vclineedit.h>
#include <basicvaluewidgets/vcnumericfloatspin.h>

#include <QAbstractItemView>
#include <QApplication>

namespace Orvane {

namespace {

/** The first of @p child and what it lies in that is a @p Control, up to @p content. */
template <typename Control>
Control* nearest(QWidget* child, const QWidget* content)
{
    while (child && child != content) {
        if (auto* const control = qobject_cast<Control*>(child))
            return control;
        child = child->parentWidget();
    }
    return nullptr;
}

} // namespace

void finishTyping(const QWidget* content)
{
    QWidget* const focus = QApplication::focusWidget();
    if (!content || !focus || !content->isAncestorOf(focus))
        return;
    if (auto* const edit = nearest<VCLineEdit>(focus, content))
        edit->endEdit();
    else if (auto* const spin = nearest<VCNumericFloatSpin>(focus, content))
        spin->endEdit();
    else if (auto* const view = nearest<QAbstractItemView>(focus, content))
        view->setFocus(Qt::OtherFocusReason); // an open cell editor ends when the focus leaves it
}

} // namespace Orvane
