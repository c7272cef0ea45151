#ifndef ZORVA_AUTHOR_MANUALPAGE_H
#define ZORVA_AUTHOR_MANUALPAGE_H

#include "manual.h"

#include <QByteArray>
#include <QSize>

namespace Orvane {
namespace Author {

/** A picture of the manual: its file beside the page, and the size that it is shown in. */
struct ManualPicture
{
    QString file; // empty: there is none
    QSize size;   // pixels of the page
};

/**
 * The manual as one page of HTML, valid as XML, too, with nothing from anywhere else but
 * manualStyle() and the pictures, one for each group.
 */
QByteArray manualPage(const Manual& manual, const QString& language, const QVector<ManualPicture>& pictures);

/** The style sheet of the page: "style.css". Light and dark, on screen and on paper. */
QByteArray manualStyle();

/** A name for files and links that every system and browser bears; @p number keeps them apart. */
QString manualAnchor(const QString& name, int number);

} // namespace Author
} // namespace Orvane

#endif
