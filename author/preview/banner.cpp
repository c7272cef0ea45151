#include "banner.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace Orvane {
namespace Author {

Banner::Banner(QWidget* parent)
    : QFrame(parent)
    , m_text(new QLabel(this))
    , m_line(new QHBoxLayout(this))
{
    setObjectName(QStringLiteral("banner"));
    setFrameShape(QFrame::StyledPanel);
    auto* const icon = new QLabel(this);
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(side, side));
    m_text->setTextFormat(Qt::PlainText); // a broken file has its say in it
    m_text->setWordWrap(true);
    m_text->setObjectName(QStringLiteral("bannerText"));
    m_line->addWidget(icon);
    m_line->addWidget(m_text, 1);
    setAutoFillBackground(true);
    takeColours();
    hide();
}

void Banner::addButton(QAction* action)
{
    auto* const button = new QToolButton(this);
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setVisible(action->isVisible());
    connect(action, &QAction::changed, button, [button, action] { button->setVisible(action->isVisible()); });
    m_line->addWidget(button);
}

void Banner::say(const QString& text)
{
    if (text == m_text->text())
        return;
    m_text->setText(text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
    if (text.isEmpty())
        return;
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QString Banner::text() const
{
    return m_text->text();
}

// Amber on what the program's windows are, light or dark.
void Banner::takeColours()
{
    QPalette colours = QApplication::palette();
    const bool isDark = colours.color(QPalette::Window).lightness() < 128;
    colours.setColor(QPalette::Window, isDark ? QColor(0x4d, 0x3b, 0x0f) : QColor(0xff, 0xf1, 0xc9));
    colours.setColor(QPalette::WindowText, isDark ? QColor(0xff, 0xe9, 0xb0) : QColor(0x40, 0x2f, 0x00));
    setPalette(colours);
}

} // namespace Author
} // namespace Orvane
