#include "parametercheck.h"

#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvadelegate.h>

#include <QSet>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

constexpr int exactDigits = 15; // that a double holds

class ParameterChecker
{
public:
    ParameterChecker(const SettingsForm& form, const ParameterSet& set)
        : m_form(form)
        , m_set(set)
        , m_export(form.exportedAfter({set.source().text()}))
        , m_taken(form.read(m_export))
    {
        form.form().SetXmlString(set.source().text());
    }

    QVector<Finding> run()
    {
        checkDocument();
        for (const Setting& setting : m_set.nested())
            report("element-in-value", Severity::Error, setting.range,
                   QStringLiteral("`%1` holds a text and no elements: nothing behind it is read")
                       .arg(setting.key));
        for (const Setting& setting : m_set.replaced())
            report("doubled", Severity::Warning, setting.range,
                   QStringLiteral("`%1` comes again further down, and the last one counts").arg(setting.key));
        for (const Setting& setting : m_set.settings())
            checkSetting(setting);
        checkFixedPoint();
        std::stable_sort(m_findings.begin(), m_findings.end(), [](const Finding& left, const Finding& right) {
            return left.range.begin < right.range.begin;
        });
        return m_findings;
    }

private:
    void report(const char* id, Severity severity, Range range, const QString& message,
                const QString& effect = QString())
    {
        Finding finding;
        finding.id = QLatin1String(id);
        finding.severity = severity;
        finding.range = range;
        finding.message = message;
        finding.effect = effect;
        m_findings.append(finding);
    }

    void checkDocument()
    {
        const ReadingEnd& end = m_set.end();
        if (end.at >= 0)
            report("not-well-formed", Severity::Error, {end.at, end.at + 1},
                   QStringLiteral("the text is not well-formed: %1").arg(end.message),
                   QStringLiteral("what stands before is read, what follows is not"));
        if (!m_set.hasRoot())
            report("wrong-root", Severity::Error, m_set.firstTag(),
                   QStringLiteral("no element is named `%1`, the root of this form's parameters")
                       .arg(m_form.rows().rootTag()),
                   QStringLiteral("nothing is read"));
    }

    void checkSetting(const Setting& setting)
    {
        if (setting.row < 0) {
            report("unknown-path", Severity::Error, setting.range,
                   QStringLiteral("the form has no row for `%1`").arg(setting.key),
                   QStringLiteral("the form skips it"));
            return;
        }
        if (!m_form.sends(setting.row))
            report("not-sent", Severity::Note, setting.range,
                   QStringLiteral("the form takes `%1` and never sends it").arg(setting.key));
        const ControlClass& kind = m_form.rows().kind(setting.row);
        for (const SettingLeaf& leaf : setting.leaves) {
            if (holdsNumbers(kind))
                checkNumber(setting, leaf, kind);
        }
        if (kind.delegate == QLatin1String("ZorvaComboBox"))
            checkChoice(setting);
        else if (kind.delegate == QLatin1String("ZorvaCheckBox"))
            checkState(setting);
    }

    const ZorvaDelegate& delegateOf(const Setting& setting) const
    {
        return *m_form.form().GetSheet().GetWidgetAt(setting.row)->GetDelegate();
    }

    QString takenText(const Setting& setting) const
    {
        const Setting* const taken = m_taken.find(setting.key);
        return taken ? taken->text() : QString();
    }

    /** The value that stays, in the operator's words and as text. */
    QString taken(const Setting& setting) const
    {
        const QString text = takenText(setting);
        const QString words = m_form.words().value(setting.row, text);
        return words == text ? QStringLiteral("`%1`").arg(text)
                             : QStringLiteral("`%1` (%2)").arg(text, words);
    }

    void checkNumber(const Setting& setting, const SettingLeaf& leaf, const ControlClass& kind)
    {
        const bool isEmptyList =
            kind.parameter.form >= ParameterElement::List && leaf.text.trimmed().isEmpty();
        if (isEmptyList)
            return;
        bool isWhole = false;
        bool isNumber = false;
        leaf.text.toLongLong(&isWhole);
        const double number = leaf.text.toDouble(&isNumber);
        const bool mustBeWhole = holdsWholeNumbers(kind);
        if (mustBeWhole ? isWhole : isNumber) {
            checkLimits(setting, leaf, number);
            return;
        }
        const QString wanted = mustBeWhole ? QStringLiteral("whole number") : QStringLiteral("number");
        const QString effect = takenText(setting).isEmpty() || takenText(setting) == leaf.text
                                   ? QString()
                                   : QStringLiteral("the row takes %1").arg(taken(setting));
        report("no-number", Severity::Error, leaf.range,
               QStringLiteral("`%1` is no %2").arg(leaf.text, wanted), effect);
    }

    void checkLimits(const Setting& setting, const SettingLeaf& leaf, double number)
    {
        const auto* const limits =
            dynamic_cast<const values::IValueNumeric*>(delegateOf(setting).GetVTValue());
        if (!limits || (number >= limits->GetMin() && number <= limits->GetMax()))
            return;
        const bool isBelow = number < limits->GetMin();
        const double limit = isBelow ? limits->GetMin() : limits->GetMax();
        const QString limitText = QString::number(limit, 'g', exactDigits);
        report("clamped", Severity::Warning, leaf.range,
               QStringLiteral("%1 is %2 the row's range")
                   .arg(m_form.words().value(setting.row, leaf.text),
                        isBelow ? QStringLiteral("below") : QStringLiteral("above")),
               QStringLiteral("the control shows %1, the form sends %2")
                   .arg(m_form.words().value(setting.row, limitText), taken(setting)));
    }

    void checkChoice(const Setting& setting)
    {
        const auto choices = m_form.form().GetEnum(delegateOf(setting).GetString("enumName", QString()));
        if (choices->firstIndexOfValue(setting.text()) >= 0)
            return;
        report("choice-not-listed", Severity::Error, setting.leaves.first().range,
               QStringLiteral("`%1` is none of the choices of `%2`").arg(setting.text(), choices->GetName()),
               QStringLiteral("the row takes %1").arg(taken(setting)));
    }

    void checkState(const Setting& setting)
    {
        const ZorvaDelegate& row = delegateOf(setting);
        const QString on = row.GetString("checkedValue", QStringLiteral("true"));
        const QString off = row.GetString("uncheckedValue", QStringLiteral("false"));
        if (setting.text() == on || setting.text() == off)
            return;
        report("no-state", Severity::Error, setting.leaves.first().range,
               QStringLiteral("`%1` is neither `%2` nor `%3`").arg(setting.text(), on, off),
               QStringLiteral("the row takes %1").arg(taken(setting)));
    }

    // What the form answers is read again: nothing may change by that.
    void checkFixedPoint()
    {
        const ParameterSet again = m_form.read(m_form.exportedAfter({m_export}));
        QSet<int> told;
        for (const Setting& before : m_taken.settings()) {
            const Setting* const after = again.find(before.key);
            if (told.contains(before.row) ||
                (after && meansTheSame(m_form.rows().kind(before.row), before, *after)))
                continue;
            told.insert(before.row);
            const Setting* const source = m_set.find(before.key);
            report("not-settled", Severity::Warning, source ? source->range : m_set.firstTag(),
                   QStringLiteral("%1 is exported as `%2` and, read again, as `%3`")
                       .arg(m_form.words().of(before).name(), before.text(),
                            after ? after->text() : QStringLiteral("nothing")),
                   QStringLiteral("export, import and export give two different texts"));
        }
    }

    const SettingsForm& m_form;
    const ParameterSet& m_set;
    QString m_export;
    ParameterSet m_taken;
    QVector<Finding> m_findings;
};

} // namespace

CheckedFile checkParameters(const SettingsForm& form, const QString& file, const QByteArray& bytes)
{
    const ParameterSet set(form.rows(), SourceText(bytes));
    CheckedFile checked;
    checked.file = file;
    checked.source = set.source();
    checked.form = true;
    checked.findings = ParameterChecker(form, set).run();
    return checked;
}

} // namespace Author
} // namespace Orvane
