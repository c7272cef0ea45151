#ifndef ZORVASPINCONTROL_H
#define ZORVASPINCONTROL_H

class QString;
class QVariant;
class QWidget;
class VCNumericFloatSpin;

namespace values {
class IValueNumeric;
}

namespace Orvane {

class ZorvaDelegate;

/**
 * A spin control set up from the properties of @p row and bound to @p value,
 * which may be null. Owned by @p parent.
 */
VCNumericFloatSpin* CreateSpinControl(const ZorvaDelegate& row, values::IValueNumeric* value, QWidget* parent,
                                      const QString& name);

/** Carries offset, factor and unit scale of @p row to @p control, which may be null. */
void ConfigureSpinDisplay(const ZorvaDelegate& row, VCNumericFloatSpin* control);

/** Carries a change of "suffix" or "wrapping" to @p control, which may be null. */
void ApplySpinText(VCNumericFloatSpin* control, const QString& name, const QVariant& value);

/** An empty widget without parent that stacks the controls of a list row. */
QWidget* CreateSpinContainer(const QString& name);

/** @p count kept to what a sheet can hold: a description must not ask for a million controls. */
int SpinListCount(int count);

/** "decimals" of @p row, kept below what any double can need. */
int DecimalsOf(const ZorvaDelegate& row);

} // namespace Orvane

#endif
