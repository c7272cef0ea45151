#ifndef ZORVA_AUTHOR_GROUPPICTURES_H
#define ZORVA_AUTHOR_GROUPPICTURES_H

#include <QHash>
#include <QImage>
#include <QString>

namespace Orvane {
namespace Author {

class FormStage;

/** How many pixels of a picture are one of the page: it is to look well on paper, too. */
constexpr int pictureScale = 2;

/**
 * Each group of the form by itself, opened and in one column, by the name of its headline;
 * what stands above the first headline is under the empty name.
 */
QHash<QString, QImage> groupPictures(FormStage& stage);

} // namespace Author
} // namespace Orvane

#endif
