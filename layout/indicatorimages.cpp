#include "indicatorimages_p.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

#include <algorithm>

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

/// In the program's resources, and without what a style sheet writes in another way.
bool isPlainResource(const QString& path)
{
    const auto isPlain = [](QChar letter) {
        return letter.isLetterOrNumber() || QStringLiteral("/._-").contains(letter);
    };
    return path.startsWith(QLatin1String(":/")) && std::all_of(path.cbegin() + 1, path.cend(), isPlain);
}

struct Paths
{
    QString closed;
    QString open;
};

/// Null if the sheet says anything else.
Paths pathsIn(const QString& sheet)
{
    const QLatin1String beforeClosed("QGroupBox::indicator:unchecked {image: url(");
    const QLatin1String beforeOpen("QGroupBox::indicator:checked {image: url(");
    const QLatin1String after(");}");
    const Paths paths{between(sheet, beforeClosed, after), between(sheet, beforeOpen, after)};
    const bool isAll = sheet == beforeClosed + paths.closed + after + beforeOpen + paths.open + after;
    return isAll && isPlainResource(paths.closed) && isPlainResource(paths.open) ? paths : Paths();
}

} // namespace

bool IndicatorImages::know(const QWidget& box)
{
    return !pathsIn(box.styleSheet()).open.isNull() && !hasOtherSheets(box);
}

const QIcon* IndicatorImages::find(const QWidget& box, bool checked)
{
    const Paths paths = pathsIn(box.styleSheet());
    if (paths.open.isNull() || hasOtherSheets(box))
        return nullptr;
    static QPointer<IndicatorImages> images;
    if (!images)
        images = new IndicatorImages(qApp); // whose plugins the images need to the end
    return images->image(checked ? paths.open : paths.closed);
}

const QIcon* IndicatorImages::image(const QString& path)
{
    if (!m_images.contains(path))
        m_images.insert(path, new QIcon(path)); // which owns it
    return m_images.object(path);
}
