#ifndef ZORVA_LAYOUT_INDICATORIMAGES_P_H
#define ZORVA_LAYOUT_INDICATORIMAGES_P_H

#include <QCache>
#include <QIcon>
#include <QObject>

class QWidget;

/// The images that boxes have for an indicator. A style that follows a style sheet reads them anew for
/// each box, which takes longer than all else that is painted of it.
class IndicatorImages : public QObject
{
public:
    /// Whether the sheet of @p box is just an image of the program's resources for each state, and no
    /// other sheet has a say in it.
    static bool know(const QWidget& box);
    /// What the style would paint as the indicator of @p box; null if only the style knows. The image lasts
    /// until the next look.
    static const QIcon* find(const QWidget& box, bool checked);

private:
    using QObject::QObject;
    const QIcon* image(const QString& path);

    static constexpr int mostImages = 16;
    QCache<QString, QIcon> m_images{mostImages}; // by path
};

#endif
