#include "grouppictures.h"

#include <author/picture/formstage.h>
#include <author/picture/geometry.h>

#include <layout/floatgrouplayout.h>

#include <QPainter>

namespace Orvane {
namespace Author {

namespace {

constexpr int margin = 8; // pixels around a group

/** Where the rows of each group stand. */
QHash<QString, QRect> groupPlaces(const FormGeometry& geometry)
{
    QHash<QString, QRect> places;
    QString group;
    for (const PlacedRow& row : geometry.rows) {
        if (row.className == QLatin1String("Headline"))
            group = row.name;
        places[group] = places.value(group).united(row.place());
    }
    return places;
}

/** The part of @p whole with air around it, whatever the neighbours are. */
QImage cutOut(const QImage& whole, const QRect& place, const QColor& air)
{
    const QRect part(place.topLeft() * pictureScale, place.size() * pictureScale);
    const QPoint corner(margin * pictureScale, margin * pictureScale);
    QImage image(part.size() + QSize(2 * corner.x(), 2 * corner.y()), whole.format());
    image.fill(air);
    QPainter(&image).drawImage(corner, whole, part);
    return image;
}

} // namespace

QHash<QString, QImage> groupPictures(FormStage& stage)
{
    stage.collapse({});
    stage.arrange(qMax(stage.layout()->columnSize().width() + 1, 1));
    const QImage whole = stage.picture(pictureScale);
    const QColor air = stage.window()->palette().color(QPalette::Window);
    const QHash<QString, QRect> places = groupPlaces(geometryOf(stage));
    QHash<QString, QImage> pictures;
    for (auto place = places.begin(); place != places.end(); ++place) {
        if (!place->isNull())
            pictures.insert(place.key(), cutOut(whole, place->intersected(stage.window()->rect()), air));
    }
    return pictures;
}

} // namespace Author
} // namespace Orvane
