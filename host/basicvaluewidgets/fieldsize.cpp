#include "basicvaluewidgets/fieldsize.h"

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>
#include <QtMath>

#include <algorithm>

namespace {

// Room for a frequency to the millihertz, and for a whole number of 32 bits
// with a unit and step buttons.
constexpr int CommonLetters = 20;
constexpr int FrameSpace = 24;   // pixels
constexpr int ShortestLine = 14; // pixels, as Qt's own controls have it
constexpr int LineSpace = 2;     // pixels, likewise
constexpr int UpperFactor = 2;

} // namespace

int FieldSize::CommonWidth(const QWidget* field)
{
    return CommonLetters * field->fontMetrics().horizontalAdvance(QLatin1Char('x')) + FrameSpace;
}

int FieldSize::CommonHeight(const QWidget* field)
{
    const QFontMetrics metrics = field->fontMetrics();
    const QSize line(CommonLetters * metrics.averageCharWidth(),
                     qMax(metrics.height(), ShortestLine) + LineSpace);
    const auto heightOf = [&](QStyle::ContentsType kind, auto option, int height) {
        option.initFrom(field);
        return field->style()->sizeFromContents(kind, &option, QSize(line.width(), height), nullptr).height();
    };
    QStyleOptionFrame edit;
    edit.lineWidth = field->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, field);
    QStyleOptionSpinBox spin;
    spin.frame = true;
    spin.subControls = QStyle::SC_All;
    // A spin box holds an edit without a frame.
    const int inner = heightOf(QStyle::CT_LineEdit, QStyleOptionFrame(), line.height());
    return std::max({heightOf(QStyle::CT_LineEdit, edit, line.height()),
                     heightOf(QStyle::CT_SpinBox, spin, inner),
                     heightOf(QStyle::CT_ComboBox, QStyleOptionComboBox(), ChoiceLineHeight(field))});
}

int FieldSize::ChoiceLineHeight(const QWidget* field)
{
    return qMax(qCeil(QFontMetricsF(field->font()).height()), ShortestLine) + LineSpace;
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
