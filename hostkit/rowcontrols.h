#ifndef ZORVA_HOSTKIT_ROWCONTROLS_H
#define ZORVA_HOSTKIT_ROWCONTROLS_H

#include <hostkit/hostkit_export.h>
#include <zorvaparser/zorvaformular.h>

#include <QLabel>
#include <QPointer>
#include <QVector>
#include <QWidget>

namespace hostkit {

/** What the user sees of one row. Whatever is missing is null or empty; the widgets belong to the form. */
struct RowControl
{
    QPointer<QLabel> caption;           ///< the words in front of it
    QVector<QPointer<QWidget>> widgets; ///< the rest, as it stands in the layout
};

/**
 * The widgets of each row of a form that has its surface, in the order of the rows and one entry for each: in
 * the layout a caption is followed by its row's widgets, and a row without one bears its name.
 */
HOSTKIT_EXPORT QVector<RowControl> rowControls(Orvane::ZorvaFormular& form);

} // namespace hostkit

#endif
