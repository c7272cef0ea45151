#include "formstage.h"

#include <author/document/sourcetext.h>
#include <layout/floatgrouplayout.h>

#include <QCoreApplication>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

namespace Orvane {
namespace Author {

FormStage::FormStage(const QByteArray& description, Bar bar, const QString& name)
    : m_live(SourceText(description).engineBytes(), LiveForm::Running, name)
{
    if (!m_live.exists())
        return;
    form().CreateGUI(bar == WithBar);
    m_window = form().GetGUI();
    m_window->setAttribute(Qt::WA_DontShowOnScreen);
    m_window->setAttribute(Qt::WA_ShowWithoutActivating);
    form().Show();
    m_window->show();
    settle();
}

QScrollArea* FormStage::area() const
{
    auto* const itself = qobject_cast<QScrollArea*>(m_window.data());
    return itself ? itself : m_window->findChild<QScrollArea*>();
}

FloatGroupLayout* FormStage::layout() const
{
    return qobject_cast<FloatGroupLayout*>(area()->widget()->layout());
}

QStringList FormStage::collapse(const QStringList& headlines)
{
    QStringList unknown = headlines;
    ZorvaSheet& sheet = form().GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        if (sheet.GetWidgetAt(i)->IsHeadline())
            unknown.removeAll(sheet.GetWidgetAt(i)->GetName());
    }
    sheet.SetCollapsed(headlines);
    settle();
    return unknown;
}

void FormStage::setTextSize(int points)
{
    form().GetSheet().SetFontSize(points);
    settle();
}

int FormStage::openingWidth() const
{
    return m_window->sizeHint().width();
}

// What layouts and bulk changes leave for the next turn of the event loop.
void FormStage::settle() const
{
    for (int turn = 0; turn < 3; ++turn)
        QCoreApplication::sendPostedEvents();
}

QSize FormStage::arrange(int width)
{
    // Tall enough for most, so that no bar takes a part of the width; then as tall as need be.
    constexpr int roomy = 4000;
    m_window->resize(width, roomy);
    settle();
    for (int turn = 0; turn < 3; ++turn) {
        const QScrollArea* const rows = area();
        const QScrollBar* const across = rows->horizontalScrollBar();
        const int beside = m_window->height() - rows->viewport()->height();
        const int below = across->isVisibleTo(rows) || rows->widget()->minimumWidth() <= rows->width()
                              ? 0
                              : across->sizeHint().height();
        const int height = qBound(1, rows->widget()->minimumHeight() + beside + below, tallest);
        if (height == m_window->height())
            break;
        m_window->resize(width, height);
        settle();
    }
    return m_window->size();
}

QImage FormStage::picture(int scale) const
{
    QImage image(m_window->size() * scale, QImage::Format_RGB32);
    image.fill(m_window->palette().color(QPalette::Window));
    QPainter painter(&image);
    painter.scale(scale, scale);
    m_window->render(&painter);
    return image;
}

} // namespace Author
} // namespace Orvane
