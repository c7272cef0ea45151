#include "families.h"
#include "subject.h"
#include "writtenrow.h"

#include <cmath>

namespace Orvane {
namespace Author {

namespace {

#define NUMBER(properties)                                                                                   \
    "<Widget name=\"gain\" class=\"DoubleSpinBox\">\n"                                                       \
    "  <Property name=\"labelText\"><String>Gain</String></Property>\n" properties                           \
    "  <Property name=\"suffix\"><String> dB</String></Property>\n"                                          \
    "  <Property name=\"enabled\"><Bool>true</Bool></Property>\n"                                            \
    "  <Property name=\"visible\"><Bool>true</Bool></Property>\n"                                            \
    "  <Property name=\"generateParameterXml\"><Bool>true</Bool></Property>\n</Widget>"
#define SET(name, number) "  <Property name=\"" name "\"><Double>" number "</Double></Property>\n"

const QVector<Rule> rules{
    {"unknown-class", Severity::Error, "a row of no known class",
     "The row shows its caption and has no control, no value and no parameters. Names of classes are exact, "
     "with case; `zorva kinds` lists them. In an overlay rows have no class: allow it there with a comment.",
     R"(<Widget name="gain" class="Spinbox"/>)", NUMBER(SET("minimum", "0") SET("maximum", "9"))},
    {"misspelt-property", Severity::Warning, "a property that looks like another one",
     "The class does not know the property, but one that is written nearly so. The text is kept on the row "
     "and does nothing.",
     R"(<Widget name="line" class="Separator">
  <Property name="Margin"><Int>4</Int></Property>
</Widget>)",
     R"(<Widget name="line" class="Separator">
  <Property name="margin"><Int>4</Int></Property>
</Widget>)"},
    {"unknown-property", Severity::Note, "a property that the class does not know",
     "It is kept on the row for scripts and hosts and changes nothing by itself. If a script is to read it, "
     "put it into "
     "`CustomProperties`, so that readers see what it is for.",
     R"(<Widget name="line" class="Separator">
  <Property name="colour"><String>red</String></Property>
</Widget>)",
     R"(<Widget name="line" class="Separator">
  <CustomProperties>
    <Property name="colour"><String>red</String></Property>
  </CustomProperties>
</Widget>)"},
    {"inert-property", Severity::Note, "a property without effect",
     "The class knows the property and keeps it for scripts and hosts, but nothing comes of it on the form. "
     "Remove it, or allow it with a comment that says who reads it.",
     R"(<Widget name="line" class="Separator">
  <Property name="applyMode"><String>ekInstantApplyMode</String></Property>
</Widget>)",
     R"(<Widget name="line" class="Separator"/>)"},
    {"missing-property", Severity::Warning, "a row without what its class needs",
     "The class does nothing sensible without this property: a choice without an enumeration, a list without "
     "items. Give it; `zorva kinds CLASS` says what it means.",
     R"(<Widget name="gap" class="FixedSpacer"/>)",
     R"(<Widget name="gap" class="FixedSpacer">
  <Property name="height"><Int>8</Int></Property>
</Widget>)"},
    {"no-visible", Severity::Warning, "a caption that stays hidden for want of `visible`",
     "The caption asks for the property `visible` and finds nothing; and once the group of the row has been "
     "collapsed, the "
     "control stays hidden for good. Give `visible` with every row that can be seen.",
     R"(<Widget name="hint" class="Label">
  <Property name="labelText"><String>Hint</String></Property>
  <Property name="text"><String>-</String></Property>
</Widget>)",
     R"(<Widget name="hint" class="Label">
  <Property name="labelText"><String>Hint</String></Property>
  <Property name="text"><String>-</String></Property>
  <Property name="visible"><Bool>true</Bool></Property>
</Widget>)"},
    {"no-enabled", Severity::Warning, "a control that stays off for want of `enabled`",
     "When the host has switched input off and on again, the row remembers nothing to switch on, and its "
     "control stays "
     "disabled for good; a frequency row comes up locked. Give `enabled` with every row that takes input.",
     R"(<Widget name="apply" class="PushButton">
  <Property name="text"><String>Apply</String></Property>
  <Property name="visible"><Bool>true</Bool></Property>
</Widget>)",
     R"(<Widget name="apply" class="PushButton">
  <Property name="text"><String>Apply</String></Property>
  <Property name="visible"><Bool>true</Bool></Property>
  <Property name="enabled"><Bool>true</Bool></Property>
</Widget>)"},
    {"not-exported", Severity::Warning, "an input that never reaches the device",
     "Without `generateParameterXml` the row writes no parameter and its changes do not light Apply. That is "
     "right for "
     "rows that only the script reads; this one no script speaks of.",
     R"(<Widget name="station" class="LineEdit">
  <Property name="labelText"><String>Station</String></Property>
  <Property name="enabled"><Bool>true</Bool></Property>
  <Property name="visible"><Bool>true</Bool></Property>
</Widget>)",
     R"(<Widget name="station" class="LineEdit">
  <Property name="labelText"><String>Station</String></Property>
  <Property name="enabled"><Bool>true</Bool></Property>
  <Property name="visible"><Bool>true</Bool></Property>
  <Property name="generateParameterXml"><Bool>true</Bool></Property>
</Widget>)"},
    {"empty-range", Severity::Warning, "a minimum above the maximum",
     "No number is inside such limits, so the user can enter nothing. Exchange the two.",
     NUMBER(SET("minimum", "10") SET("maximum", "1") SET("value", "5")),
     NUMBER(SET("minimum", "1") SET("maximum", "10") SET("value", "5"))},
    {"start-outside", Severity::Warning, "a start value outside the limits",
     "The control shows the nearest limit, and parameter XML says the number that is written until the user "
     "changes it. "
     "Limits are written in display units: `value` x `displayScalingFactor` + `displayAdditiveOffset`.",
     NUMBER(SET("minimum", "1") SET("maximum", "10") SET("value", "50")),
     NUMBER(SET("minimum", "1") SET("maximum", "10") SET("value", "5"))},
    {"bad-step", Severity::Warning, "a step that goes nowhere",
     "With a step of 0 arrows and wheel do nothing; with a negative one they go the wrong way.",
     NUMBER(SET("minimum", "1") SET("maximum", "10") SET("value", "5") SET("singleStep", "0")),
     NUMBER(SET("minimum", "1") SET("maximum", "10") SET("value", "5") SET("singleStep", "1"))},
    {"zero-factor", Severity::Warning, "a display factor or unit scale of 0",
     "What is shown is the value times the factor, divided by the scale; with 0 nothing that is entered "
     "makes sense.",
     NUMBER(SET("minimum", "0") SET("maximum", "10") SET("displayScalingFactor", "0")),
     NUMBER(SET("minimum", "0") SET("maximum", "10") SET("displayScalingFactor", "10"))},
    {"few-decimals", Severity::Warning, "too few decimals for the step or the start value",
     "Digits behind `decimals` are neither shown nor, for these kinds, written to parameter XML: a step of "
     "0.25 with one "
     "decimal shows 0.3 and sends it. Raise `decimals`.",
     NUMBER(SET("minimum", "1") SET("maximum", "10") SET("singleStep", "0.25")),
     NUMBER(SET("minimum", "1") SET("maximum", "10") SET("singleStep", "0.25") SET("decimals", "2"))},
    {"unit-scale", Severity::Note, "a unit that is missing or at odds with the scale",
     "`unitScale` changes only what is shown: parameter XML has the number without it. So `unit` names the "
     "unit of the "
     "number itself, `Hz` where 120 kHz are shown.",
     R"(<Widget name="bandwidth" class="BandwidthEdit">
  <Property name="labelText"><String>Bandwidth</String></Property>
  <Property name="value"><Int64>120000</Int64></Property>
  <Property name="minimum"><Int64>100</Int64></Property>
  <Property name="maximum"><Int64>20000000</Int64></Property>
  <Property name="unitScale"><UInt64>1000</UInt64></Property>
  <Property name="unit"><String>kHz</String></Property>
  <Property name="enabled"><Bool>true</Bool></Property>
  <Property name="visible"><Bool>true</Bool></Property>
  <Property name="generateParameterXml"><Bool>true</Bool></Property>
</Widget>)",
     R"(<Widget name="bandwidth" class="BandwidthEdit">
  <Property name="labelText"><String>Bandwidth</String></Property>
  <Property name="value"><Int64>120000</Int64></Property>
  <Property name="minimum"><Int64>100</Int64></Property>
  <Property name="maximum"><Int64>20000000</Int64></Property>
  <Property name="unitScale"><UInt64>1000</UInt64></Property>
  <Property name="unit"><String>Hz</String></Property>
  <Property name="enabled"><Bool>true</Bool></Property>
  <Property name="visible"><Bool>true</Bool></Property>
  <Property name="generateParameterXml"><Bool>true</Bool></Property>
</Widget>)"},
    {"short-pause", Severity::Note, "an auto-apply pause below the shortest one",
     "The pause is never shorter than 100 milliseconds, whatever `autoApplyTimeout` says.",
     R"(<Properties><Property name="autoApplyTimeout"><Int>20</Int></Property></Properties>)",
     R"(<Properties><Property name="autoApplyTimeout"><Int>200</Int></Property></Properties>)"},
};

/** Digits behind the point that a number needs; none beyond the ninth is looked for. */
int decimalsOf(double number)
{
    double scaled = std::abs(number);
    for (int digits = 0; digits < 9; ++digits) {
        if (std::abs(scaled - std::round(scaled)) <= 1e-9 * std::fmax(1.0, scaled))
            return digits;
        scaled *= 10.0;
    }
    return 9;
}

class RowsCheck
{
public:
    explicit RowsCheck(Subject& subject)
        : m_subject(subject)
        , m_form(subject.written())
    {
    }

    void run()
    {
        for (const WrittenRow& sheet : m_form.sheets()) {
            checkProperties(sheet);
            const WrittenProperty* const pause = sheet.find("autoApplyTimeout");
            if (pause && pause->number().value_or(100.0) < 100.0)
                m_subject.reportValue(
                    "short-pause", *pause,
                    QStringLiteral("the pause will be 100 milliseconds, not `%1`").arg(pause->text));
        }
        for (const WrittenRow& row : m_form.rows())
            checkRow(row);
    }

private:
    void checkRow(const WrittenRow& row)
    {
        if (!row.isKnown()) {
            reportClass(row);
            return;
        }
        checkProperties(row);
        checkNeeds(row);
        checkLook(row);
        if (row.kind().isInput() && row.kind().isExported() && !row.isTrue("generateParameterXml") &&
            !m_form.scriptMentions(row.name()))
            m_subject.reportAt("not-exported", row.element(),
                               QStringLiteral("what the user enters in `%1` goes nowhere: give it "
                                              "`generateParameterXml`, or let a script read it")
                                   .arg(row.name()));
        if (row.kind().findProperty(QStringLiteral("minimum")))
            checkNumbers(row);
        checkUnit(row);
    }

    void reportClass(const WrittenRow& row)
    {
        if (!m_subject.element(row.element()).sound)
            return;
        const SourceAttribute* const written = m_subject.element(row.element()).attribute("class");
        if (!written || written->value.isEmpty())
            m_subject.reportAt(
                "unknown-class", row.element(),
                QStringLiteral("this row has no `class`, so it has no control, no value and no parameters"));
        else
            m_subject.report(
                "unknown-class", written->valueRange,
                QStringLiteral("there is no class `%1`, so this row has no control, no value and no "
                               "parameters; `zorva kinds` lists the classes")
                    .arg(row.className()),
                -1, nearest(row.className(), namesOf(m_subject.kinds().classes())));
    }

    void checkProperties(const WrittenRow& row)
    {
        for (const WrittenProperty& property : row.all()) {
            const bool isInBytes = QString::fromLatin1(property.name.toLatin1()) == property.name;
            if (property.isCustom || property.name.isEmpty() || !isInBytes ||
                m_subject.kinds().isReservedProperty(property.name))
                continue;
            const Range place = m_subject.element(property.element).attribute("name")->valueRange;
            const Property* const known = row.kind().findProperty(property.name);
            if (known && isIdle(*known) && !m_form.scriptMentions(property.name))
                m_subject.report(
                    "inert-property", place,
                    QStringLiteral("`%1` is kept for scripts and hosts and has no effect by itself")
                        .arg(property.name));
            if (!known)
                reportUnknown(row, property.name, place);
        }
    }

    /**
     * What all rows share stands in many descriptions by habit, also on the kinds that cannot use it;
     * only what no kind at all can use is worth a word.
     */
    bool isIdle(const Property& property) const
    {
        if (!property.inert || !property.shared)
            return property.inert;
        for (const ControlClass& kind : m_subject.kinds().classes()) {
            const Property* const same = kind.findProperty(property.name);
            if (same && !same->inert)
                return false;
        }
        return true;
    }

    void reportUnknown(const WrittenRow& row, const QString& name, Range place)
    {
        // What the script speaks of is no slip of the pen.
        const bool isSpokenOf = m_form.scriptMentions(name);
        const QString near = isSpokenOf ? QString() : nearest(name, namesOf(row.kind().properties));
        const QString of = row.className().isEmpty() ? QStringLiteral("the sheet") : row.className();
        m_subject.report(near.isEmpty() ? "unknown-property" : "misspelt-property", place,
                         QStringLiteral("`%1` knows no property `%2`, so it does nothing by itself%3")
                             .arg(of, name,
                                  isSpokenOf
                                      ? QStringLiteral("; what scripts read stands in `CustomProperties`")
                                      : QString()),
                         -1, near);
    }

    void checkNeeds(const WrittenRow& row)
    {
        for (const QString& name : row.kind().needs) {
            const bool isCounted = name == QLatin1String("itemCount") && row.find("shiftCount");
            if (name == QLatin1String("enabled") || name == QLatin1String("visible") ||
                name == QLatin1String("generateParameterXml") || row.find(name) || isCounted ||
                m_form.scriptSets(row, name))
                continue;
            const Property* const needed = row.kind().findProperty(name);
            if (needed && needed->refers == QLatin1String("element") && !row.isTrue("generateParameterXml"))
                continue;
            m_subject.reportAt("missing-property", row.element(),
                               QStringLiteral("a `%1` needs the property `%2`").arg(row.className(), name));
        }
    }

    void checkLook(const WrittenRow& row)
    {
        m_inGroup = m_inGroup || row.className() == QLatin1String("Headline");
        const bool isSeen = row.kind().needs.contains(QLatin1String("visible")) && m_inGroup;
        const bool hasCaption = !row.text("labelText").isEmpty();
        if ((hasCaption || isSeen) && !row.find("visible") &&
            !m_form.scriptSets(row, QStringLiteral("visible")))
            m_subject.reportAt(
                "no-visible", row.element(),
                QStringLiteral("%1; give it the property `visible`")
                    .arg(hasCaption ? QStringLiteral("the caption of `%1` stays hidden").arg(row.name())
                                    : QStringLiteral("`%1` stays hidden once its group was collapsed")
                                          .arg(row.name())));
        if (row.kind().needs.contains(QLatin1String("enabled")) && !row.find("enabled") &&
            !m_form.scriptSets(row, QStringLiteral("enabled")))
            m_subject.reportAt(
                "no-enabled", row.element(),
                QStringLiteral("`%1` stays disabled once the host has switched input off; give it the "
                               "property `enabled`")
                    .arg(row.name()));
    }

    void checkNumbers(const WrittenRow& row)
    {
        const WrittenProperty* const minimum = row.find("minimum");
        const WrittenProperty* const maximum = row.find("maximum");
        if (minimum && maximum && minimum->number() && maximum->number() &&
            *minimum->number() > *maximum->number()) {
            m_subject.reportValue(
                "empty-range", *minimum,
                QStringLiteral("the minimum %1 is above the maximum %2").arg(minimum->text, maximum->text));
            return;
        }
        checkFactors(row);
        for (const char* const name : {"value", "startFrequency", "stopFrequency"})
            checkStart(row, row.find(name), minimum, maximum);
        const WrittenProperty* const step = row.find("singleStep");
        if (step && step->number() && *step->number() <= 0.0)
            m_subject.reportValue("bad-step", *step,
                                  *step->number() < 0.0
                                      ? QStringLiteral("a step of %1 goes the wrong way").arg(step->text)
                                      : QStringLiteral("a step of 0 changes nothing"));
        checkDecimals(row, step);
    }

    void checkFactors(const WrittenRow& row)
    {
        for (const char* const name : {"displayScalingFactor", "unitScale"}) {
            const WrittenProperty* const factor = row.find(name);
            const Property* const known = row.kind().findProperty(QLatin1String(name));
            if (factor && known && !known->inert && factor->number() && *factor->number() == 0.0)
                m_subject.reportValue(
                    "zero-factor", *factor,
                    QStringLiteral("a `%1` of 0 leaves nothing to show").arg(QLatin1String(name)));
        }
    }

    static double shown(const WrittenRow& row, double value)
    {
        return value * row.number("displayScalingFactor", 1.0) + row.number("displayAdditiveOffset", 0.0);
    }

    void checkStart(const WrittenRow& row, const WrittenProperty* start, const WrittenProperty* minimum,
                    const WrittenProperty* maximum)
    {
        if (!start || !start->number())
            return;
        const double value = shown(row, *start->number());
        const double slack = 1e-9 * std::fmax(1.0, std::abs(value));
        if (minimum && minimum->number() && value < *minimum->number() - slack)
            m_subject.reportValue(
                "start-outside", *start,
                QStringLiteral("the start value %1 is below the minimum %2").arg(start->text, minimum->text));
        else if (maximum && maximum->number() && value > *maximum->number() + slack)
            m_subject.reportValue(
                "start-outside", *start,
                QStringLiteral("the start value %1 is above the maximum %2").arg(start->text, maximum->text));
    }

    void checkDecimals(const WrittenRow& row, const WrittenProperty* step)
    {
        if (row.kind().delegate != QLatin1String("ZorvaDoubleSpinBox") &&
            row.kind().delegate != QLatin1String("ZorvaDoubleSpinBoxList"))
            return;
        const int decimals = static_cast<int>(row.number("decimals", 0.0));
        const double scale = row.number("unitScale", 1.0);
        const WrittenProperty* const value = row.find("value");
        if (scale == 0.0)
            return;
        if (step && step->number() && decimalsOf(*step->number() / scale) > decimals)
            m_subject.reportValue(
                "few-decimals", *step,
                QStringLiteral("a step of %1 does not show with %2 decimals").arg(step->text).arg(decimals));
        else if (value && value->number() && decimalsOf(shown(row, *value->number()) / scale) > decimals)
            m_subject.reportValue(
                "few-decimals", *value,
                QStringLiteral("%1 does not show with %2 decimals").arg(value->text).arg(decimals));
    }

    void checkUnit(const WrittenRow& row)
    {
        const WrittenProperty* const scale = row.find("unitScale");
        const Property* const known = row.kind().findProperty(QStringLiteral("unitScale"));
        if (!scale || !known || known->inert || scale->type < 0 || row.number("unitScale", 1.0) == 1.0 ||
            !row.isExported())
            return;
        const QString unit = row.text("unit");
        static const QStringList scaled{QStringLiteral("kHz"), QStringLiteral("MHz"), QStringLiteral("GHz")};
        if (unit.isEmpty())
            m_subject.reportValue(
                "unit-scale", *scale,
                QStringLiteral("what is shown is divided by %1, but `unit` does not say of what")
                    .arg(scale->text));
        else if (scaled.contains(unit, Qt::CaseInsensitive))
            m_subject.reportValue(
                "unit-scale", *row.find("unit"),
                QStringLiteral(
                    "the number in parameter XML is not divided by `unitScale`, so its unit is not `%1`")
                    .arg(unit));
    }

    Subject& m_subject;
    const WrittenForm& m_form;
    bool m_inGroup = false;
};

void checkRows(Subject& subject)
{
    RowsCheck(subject).run();
}

} // namespace

const Family rowsFamily = {"rows", "Rows", rules, checkRows};

} // namespace Author
} // namespace Orvane
