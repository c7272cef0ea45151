#ifndef ZORVA_FIELDSIZE_H
#define ZORVA_FIELDSIZE_H

#include <basicvaluewidgets/basicvaluewidgets_export.h>

class QWidget;

/// The sizes that the fields of a form ask for, in pixels. All kinds ask for
/// the same one, so that no field is measured narrower than its column becomes;
/// a field whose words need more asks for more, up to an end.
namespace FieldSize {

/// What every field asks for. It depends on the font alone: styles and kinds of
/// controls make no difference.
BASICVALUEWIDGETS_EXPORT int CommonWidth(const QWidget* field);
/// The height of fields of one line, in the style and font of \a field: that of
/// the highest kind, so that all rows stand equally far apart.
BASICVALUEWIDGETS_EXPORT int CommonHeight(const QWidget* field);
/// The height of a line of words in a choice, without its frame: what Qt's own
/// takes, which cannot be asked for it.
BASICVALUEWIDGETS_EXPORT int ChoiceLineHeight(const QWidget* field);
/// The most that a field asks for, however long its words are.
BASICVALUEWIDGETS_EXPORT int UpperWidth(const QWidget* field);
/// What a field asks for whose contents need \a needed pixels, frame included.
BASICVALUEWIDGETS_EXPORT int WidthFor(const QWidget* field, int needed);

} // namespace FieldSize

#endif
