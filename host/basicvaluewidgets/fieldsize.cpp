#include "basicvaluewidgets/fieldsize.h"

#include <QFontMetrics>
#include <QWidget>

namespace {

// Room for a frequency to the millihertz, and for a whole number of 32 bits
// with a unit and step buttons.
constexpr int CommonLetters = 20;
constexpr int FrameSpace = 24; // pixels
constexpr int UpperFactor = 2;

} // namespace

int FieldSize::CommonWidth(const QWidget* field)
{
    return CommonLetters * field->fontMetrics().horizontalAdvance(QLatin1Char('x')) + FrameSpace;
}

int FieldSize::UpperWidth(const QWidget* field)
{
    return UpperFactor * CommonWidth(field);
}

int FieldSize::WidthFor(const QWidget* field, int needed)
{
    const int common = CommonWidth(field);
    return qBound(common, needed, UpperFactor * common);
}
