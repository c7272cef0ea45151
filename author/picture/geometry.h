#ifndef ZORVA_AUTHOR_GEOMETRY_H
#define ZORVA_AUTHOR_GEOMETRY_H

#include <QRect>
#include <QSize>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

class FormStage;

/** A caption, a control or a head where it stands. Pixels from the top left corner of the picture. */
struct PlacedPart
{
    QString text;   // that it shows, if it shows one
    QRect place;    // null if it is not to be seen
    int needed = 0; // width that the text takes; 0 if it does not ask for one
    int tall = 0;   // height that the text takes; likewise

    bool isSeen() const { return !place.isNull(); }
};

struct PlacedRow
{
    QString name;
    QString className;
    QString path;    // in parameter XML
    int section = 0; // index; -1 for a row that is not in the window at all
    PlacedPart caption;
    PlacedPart control;        // several that share the row are one
    QVector<PlacedPart> parts; // of the control, one by one

    bool isSeen() const { return caption.isSeen() || control.isSeen(); }
    QRect place() const { return caption.place.united(control.place); }
};

/** Rows that stay together, below a head or without one at the beginning. */
struct PlacedSection
{
    QString name; // of the row that heads it; empty at the beginning
    PlacedPart head;
    int column = 0; // from 1 on; 0 if nothing of it is to be seen
    bool collapsed = false;
};

struct LayoutFinding
{
    QString id;
    QString row; // name; empty if it is not about one
    QString message;
};

/** Where everything of a form stands in one picture. */
struct FormGeometry
{
    QString file;     // of the picture, without its folder
    int fontSize = 0; // points
    QSize size;
    QRect area; // that the rows may take
    int columns = 0;
    QVector<PlacedSection> sections;
    QVector<PlacedRow> rows; // all rows of the form, in order; heads are rows, too
    QVector<LayoutFinding> findings;

    /** From 1 on; 0 if the row is not to be seen. */
    int columnOf(const PlacedRow& row) const;
    /** "480 pixels wide, 9 points" */
    QString title() const;
};

/** As the form stands on its stage now, without findings. */
FormGeometry geometryOf(const FormStage& stage);

} // namespace Author
} // namespace Orvane

#endif
