#include "families.h"
#include "subject.h"
#include "writtenrow.h"

namespace Orvane {
namespace Author {

namespace {

#define LEVEL(properties)                                                                                    \
    "<Widget name=\"level\" class=\"SpinBox\">\n" properties                                                 \
    "  <Property name=\"visible\"><Bool>true</Bool></Property>\n"                                            \
    "  <Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n</Widget>"
#define CAPTION "  <Property name=\"labelText\"><String>Level</String></Property>\n"
#define LIMITS                                                                                               \
    "  <Property name=\"minimum\"><Int>0</Int></Property>\n  <Property "                                     \
    "name=\"maximum\"><Int>9</Int></Property>\n"
#define ENABLED "  <Property name=\"enabled\"><Bool>true</Bool></Property>\n"

const QVector<Rule> rules{
    {"no-caption", Severity::Note, "an input that nothing names",
     "Without `labelText` and `toolTip` neither the eye nor a screen reader learns what is to be entered.",
     LEVEL(LIMITS ENABLED), LEVEL(CAPTION LIMITS ENABLED)},
    {"untold-range", Severity::Note, "a number whose range nobody is told",
     "The tool tip of a number shows its limits. Without `minimum` and `maximum` the user can enter anything "
     "and learns of "
     "the device's limits only by its refusal.",
     LEVEL(CAPTION ENABLED), LEVEL(CAPTION LIMITS ENABLED)},
    {"untold-unit", Severity::Note, "a unit that nobody is told",
     "The number goes to the device with a unit, but the form does not show it. Give a `suffix`, or name the "
     "unit in the "
     "caption.",
     LEVEL(CAPTION LIMITS ENABLED "  <Property name=\"unit\"><String>dB</String></Property>\n"),
     LEVEL(CAPTION LIMITS ENABLED "  <Property name=\"unit\"><String>dB</String></Property>\n"
                                  "  <Property name=\"suffix\"><String> dB</String></Property>\n")},
    {"unreachable", Severity::Note, "an input that the keyboard never reaches",
     "The row starts disabled or hidden, and no script ever opens it. A host may; if none does, the row is "
     "dead.",
     LEVEL(CAPTION LIMITS "  <Property name=\"enabled\"><Bool>false</Bool></Property>\n"),
     LEVEL(CAPTION LIMITS ENABLED)},
};

bool isClosed(const WrittenRow& row, const WrittenForm& form, const char* property)
{
    const WrittenProperty* const written = row.find(property);
    return written && !written->isTrue() && !form.scriptMentions(row.name());
}

/** Words of the table say that the kind shows a scale of its own, and so its unit. */
bool showsUnitItself(const WrittenRow& row)
{
    return row.kind().delegate == QLatin1String("ZorvaInt64SpinBox") ||
           row.kind().delegate == QLatin1String("ZorvaFrequencyEdit") ||
           row.kind().delegate == QLatin1String("ZorvaFrequencyRangeEdit");
}

bool namesUnit(const WrittenRow& row, const QString& unit)
{
    for (const char* const property : {"suffix", "prefix", "labelText", "toolTip", "headerLabel"}) {
        if (!row.text(property).trimmed().isEmpty() &&
            (qstrcmp(property, "suffix") == 0 || row.text(property).contains(unit)))
            return true;
    }
    return false;
}

void checkRow(Subject& subject, const WrittenForm& form, const WrittenRow& row)
{
    const bool isHidden = isClosed(row, form, "visible");
    if (row.text("labelText").trimmed().isEmpty() && row.text("toolTip").isEmpty() && !isHidden &&
        !form.scriptSets(row, QStringLiteral("labelText")))
        subject.reportAt(
            "no-caption", row.element(),
            QStringLiteral("nothing says what is to be entered in `%1`; give it `labelText` or `toolTip`")
                .arg(row.name()));
    const ControlClass& kind = row.kind();
    const Property* const value = kind.findProperty(QStringLiteral("value"));
    const bool isNumber = value && value->isNumber() && kind.findProperty(QStringLiteral("maximum"));
    if (isNumber && !row.find("minimum") && !row.find("maximum") &&
        !form.scriptSets(row, QStringLiteral("maximum")))
        subject.reportAt(
            "untold-range", row.element(),
            QStringLiteral("`%1` has no `minimum` and `maximum`, so nobody knows its range").arg(row.name()));
    const QString unit = row.text("unit");
    if (isNumber && !unit.isEmpty() && unit != QLatin1String("1") && !showsUnitItself(row) &&
        !namesUnit(row, unit))
        subject.reportAt(
            "untold-unit", row.element(),
            QStringLiteral("`%1` is sent in `%2`, but the form does not show it; give it a `suffix`")
                .arg(row.name(), unit));
    if (isHidden || isClosed(row, form, "enabled"))
        subject.reportAt(
            "unreachable", row.element(),
            QStringLiteral("`%1` starts %2, and no script opens it")
                .arg(row.name(), isHidden ? QStringLiteral("hidden") : QStringLiteral("disabled")));
}

void checkReach(Subject& subject)
{
    const WrittenForm& form = subject.written();
    for (const WrittenRow& row : form.rows()) {
        if (row.isKnown() && row.kind().isInput())
            checkRow(subject, form, row);
    }
}

} // namespace

const Family reachFamily = {"reach", "What the operator can see and reach", rules, checkReach};

} // namespace Author
} // namespace Orvane
