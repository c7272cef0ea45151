#include "elidingwidgets_p.h"

#include <basicvaluewidgets/fieldsize.h>
#include <layout/markup.h>

#include <QHelpEvent>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTextDocument>
#include <QToolTip>

namespace Orvane {

namespace {

QSize withinField(const QWidget* widget, const QSize& hint)
{
    return {qMin(hint.width(), FieldSize::UpperWidth(widget)), hint.height()};
}

// So that all rows stand equally far apart; some styles have buttons a pixel or two higher.
QSize asHighAsFields(const QPushButton* button, const QSize& hint)
{
    const int common = FieldSize::CommonHeight(button);
    const bool isOneLine = hint.height() < common + button->fontMetrics().height() / 2;
    return {hint.width(), isOneLine ? common : hint.height()};
}

} // namespace

bool ElidingLabel::isPlain() const
{
    return textFormat() == Qt::PlainText || (textFormat() == Qt::AutoText && !Qt::mightBeRichText(text()));
}

QString ElidingLabel::shownText() const
{
    return fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
}

bool ElidingLabel::isElided() const
{
    return isPlain() && !wordWrap() && !text().contains(QLatin1Char('\n')) && shownText() != text();
}

QSize ElidingLabel::sizeHint() const
{
    return withinField(this, QLabel::sizeHint());
}

QSize ElidingLabel::minimumSizeHint() const
{
    return withinField(this, QLabel::minimumSizeHint());
}

bool ElidingLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty() || !isElided())
        return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), Markup::plainToolTip(text()), this);
    return true;
}

void ElidingLabel::paintEvent(QPaintEvent* event)
{
    if (text().isEmpty() || !isElided()) {
        QLabel::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    drawFrame(&painter);
    painter.drawItemText(contentsRect(), QStyle::visualAlignment(layoutDirection(), alignment()), palette(),
                         isEnabled(), shownText(), foregroundRole());
}

QSize ElidingButton::sizeHint() const
{
    return asHighAsFields(this, withinField(this, QPushButton::sizeHint()));
}

QSize ElidingButton::minimumSizeHint() const
{
    return asHighAsFields(this, withinField(this, QPushButton::minimumSizeHint()));
}

void ElidingButton::paintEvent(QPaintEvent* event)
{
    if (width() >= QPushButton::sizeHint().width()) {
        QPushButton::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const int icon = option.icon.isNull() ? 0 : option.iconSize.width() + 4;
    const int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width() - icon;
    option.text = option.fontMetrics.elidedText(option.text, Qt::ElideRight, room, Qt::TextShowMnemonic);
    painter.drawControl(QStyle::CE_PushButton, option);
}

} // namespace Orvane
