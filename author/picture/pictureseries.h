#ifndef ZORVA_AUTHOR_PICTURESERIES_H
#define ZORVA_AUTHOR_PICTURESERIES_H

#include "geometry.h"

#include <QByteArray>
#include <QImage>
#include <QString>
#include <QStringList>
#include <QVector>

namespace Orvane {
namespace Author {

/** Which pictures of a form are wanted. */
struct PictureWish
{
    QByteArray description;
    QString name;           // context of the form's translations; may be empty
    QString parameters;     // parameter XML that the form takes first; may be empty
    QStringList collapsed;  // names of headlines that are closed, beside those that are closed anyway
    QVector<int> widths;    // pixels; empty: as wide as the form opens
    QVector<int> fontSizes; // points; never empty

    /** Whether there are several, which have to be told apart. */
    bool isSeries() const { return widths.size() > 1 || fontSizes.size() > 1; }
};

/** Pictures of one form in its different widths and text sizes, with what was found in each. */
struct PictureSeries
{
    QVector<QImage> images;
    QVector<FormGeometry> geometries; // one for each image, with findings
    QString problem;                  // why there are none; empty if there are
};

/** Brings the form to life and takes the pictures; all of them or none. */
PictureSeries takePictures(const PictureWish& wish);

/** The picture as a file: the same bytes for the same picture. */
QByteArray pngOf(const QImage& image);

} // namespace Author
} // namespace Orvane

#endif
