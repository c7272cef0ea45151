#include "indicatorimages_p.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace {

bool hasOtherSheets(const QWidget& box)
{
    if (!qApp->styleSheet().isEmpty())
        return true;
    for (const QWidget* above = box.parentWidget(); above; above = above->parentWidget()) {
        if (!above->styleSheet().isEmpty())
            return true;
    }
    return false;
}

/// What stands in @p text between @p before and @p after; null if they are not there.
QString between(const QString& text, QLatin1String before, QLatin1String after)
{
    const int begin = text.indexOf(before);
    const int end = begin < 0 ? -1 : text.indexOf(after, begin + before.size());
    return end < 0 ? QString() : text.mid(begin + before.size(), end - begin - before.size());
}

/// Null if the sheet says anything else.
QString pathIn(const QString& sheet, bool checked)
{
    const QLatin1String beforeClosed("QGroupBox::indicator:unchecked {image: url(");
    const QLatin1String beforeOpen("QGroupBox::indicator:checked {image: url(");
    const QLatin1String after(");}");
    const QString closed = between(sheet, beforeClosed, after);
    const QString open = between(sheet, beforeOpen, after);
    if (sheet != beforeClosed + closed + after + beforeOpen + open + after)
        return QString();
    const QString& path = checked ? open : closed;
    return path.startsWith(QLatin1String(":/")) ? path : QString();
}

} // namespace

const QIcon* IndicatorImages::find(const QWidget& box, bool checked)
{
    const QString path = pathIn(box.styleSheet(), checked);
    if (path.isEmpty() || hasOtherSheets(box))
        return nullptr;
    static QPointer<IndicatorImages> images;
    if (!images)
        images = new IndicatorImages(qApp); // whose plugins the images need to the end
    return images->image(path);
}

const QIcon* IndicatorImages::image(const QString& path)
{
    if (!m_images.contains(path))
        m_images.insert(path, new QIcon(path)); // which owns it
    return m_images.object(path);
}
