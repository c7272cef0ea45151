#include "manual.h"

#include <author/parameters/settingsform.h>

#include <hostkit/formrows.h>
#include <valueframework/valuenumeric.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaenum.h>

#include <QCoreApplication>
#include <QHash>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <limits>

namespace Orvane {
namespace Author {

namespace {

/** A text of the description without its mark-up. */
QString plain(const QString& text)
{
    const QString words =
        Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
    return words.simplified();
}

/** Says everything about the rows of one form. */
class Writer
{
    Q_DECLARE_TR_FUNCTIONS(Manual)

public:
    explicit Writer(const SettingsForm& settings)
        : m_settings(settings)
        , m_form(settings.form())
    {
        const ParameterSet defaults = settings.read(m_form.GetXmlString(false));
        for (const Setting& setting : defaults.settings())
            m_defaults[setting.row].append(setting);
    }

    QVector<ManualGroup> groups() const
    {
        QVector<ManualGroup> groups{ManualGroup()};
        ZorvaSheet& sheet = m_form.GetSheet();
        for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
            const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(i);
            if (row->IsHeadline())
                groups.append({row->GetName(), plain(row->GetDelegate()->GetTranslated("text")), {}});
            else if (isForOperators(*row, i))
                groups.last().rows.append(rowAt(i));
        }
        QVector<ManualGroup> filled;
        for (const ManualGroup& group : qAsConst(groups)) {
            if (!group.rows.isEmpty())
                filled.append(group);
        }
        return filled;
    }

private:
    bool isForOperators(ZorvaWidget& row, int index) const
    {
        switch (m_settings.rows().kind(index).control) {
        case ControlClass::Input:
            return true;
        case ControlClass::Button:
        case ControlClass::Display:
            return !captionOf(row).isEmpty();
        default:
            return false;
        }
    }

    /** The caption; of a row without one its own text, and if that is nothing to read, its tag. */
    static QString captionOf(ZorvaWidget& row)
    {
        ZorvaDelegate& delegate = *row.GetDelegate();
        const QString caption = plain(delegate.GetTranslated("labelText"));
        const QString text =
            row.GetClass() == QLatin1String("PushButton") || row.GetClass() == QLatin1String("Label")
                ? plain(delegate.GetTranslated("text"))
                : row.GetXmlTagName();
        if (row.GetClass() == QLatin1String("PushButton") && !caption.isEmpty() && !text.isEmpty())
            return QStringLiteral("%1: %2").arg(caption, text);
        return caption.isEmpty() ? text : caption;
    }

    ManualRow rowAt(int index) const
    {
        const ZorvaSheet::WidgetPointer row = m_form.GetSheet().GetWidgetAt(index);
        ManualRow result;
        result.name = row->GetName();
        result.caption = captionOf(*row);
        result.help = plain(row->GetDelegate()->GetString("toolTip", QString()));
        addRange(index, result);
        addChoices(index, result);
        addDefault(index, result);
        addPaths(index, result);
        return result;
    }

    QString words(int index, double number) const
    {
        return m_settings.words().value(index, QString::number(number, 'g', 17));
    }

    ZorvaDelegate& delegateAt(int index) const
    {
        return *m_form.GetSheet().GetWidgetAt(index)->GetDelegate();
    }

    void addRange(int index, ManualRow& result) const
    {
        ZorvaDelegate& row = delegateAt(index);
        const auto* const number = dynamic_cast<const values::IValueNumeric*>(row.GetVTValue());
        if (const int length = number ? 0 : row.GetInt("maxLength", 0))
            result.facts.append({tr("Length"), {tr("at most %1 characters").arg(length)}});
        if (!number)
            return;
        const bool hasMin = isLimit(number->GetMin());
        const bool hasMax = isLimit(number->GetMax());
        const QString lowest = words(index, number->GetMin());
        const QString highest = words(index, number->GetMax());
        if (hasMin && hasMax)
            result.facts.append({tr("Range"), {tr("%1 to %2").arg(lowest, highest)}});
        else if (hasMin)
            result.facts.append({tr("Range"), {tr("from %1").arg(lowest)}});
        else if (hasMax)
            result.facts.append({tr("Range"), {tr("up to %1").arg(highest)}});
        if (number->GetStep() > 0.0)
            result.facts.append({tr("Step"), {stepWords(index, number->GetStep())}});
    }

    /** False for the ends of the types that hold the numbers. */
    static bool isLimit(double number)
    {
        constexpr double endOfDoubles = 1e18;
        return qAbs(number) < endOfDoubles && number != std::numeric_limits<int>::min() &&
               number != std::numeric_limits<int>::max();
    }

    // A step is the way between two numbers, so that an offset of the display is no part of it.
    QString stepWords(int index, double step) const
    {
        const ZorvaDelegate& row = delegateAt(index);
        const double way = qAbs(row.displayTransformation(step) - row.displayTransformation(0));
        return words(index, row.reverseDisplayTransformation(way));
    }

    void addChoices(int index, ManualRow& result) const
    {
        const ZorvaSheet::WidgetPointer row = m_form.GetSheet().GetWidgetAt(index);
        ZorvaDelegate& delegate = *row->GetDelegate();
        ManualFact choices{tr("Choices"), {}, ManualFact::Choices};
        const auto add = [&](const QString& value) {
            const QString name = plain(m_settings.words().value(index, value));
            if (value == defaultText(index))
                choices.chosen = choices.words.size();
            choices.words.append(name);
        };
        if (row->GetClass() == QLatin1String("CheckBox")) {
            add(delegate.GetString("checkedValue", QStringLiteral("true")));
            add(delegate.GetString("uncheckedValue", QStringLiteral("false")));
        } else if (row->GetClass() == QLatin1String("ComboBox")) {
            const auto entries = m_form.GetEnum(delegate.GetString("enumName", QString()));
            for (int i = 0; i < entries->GetValueCount(); ++i)
                add(entries->GetValueAt(i).GetValue());
        }
        if (!choices.words.isEmpty())
            result.facts.append(choices);
    }

    QString defaultText(int index) const
    {
        const QVector<Setting> settings = m_defaults.value(index);
        return settings.size() == 1 ? settings.first().text() : QString();
    }

    void addDefault(int index, ManualRow& result) const
    {
        QStringList texts;
        for (Setting setting : m_defaults.value(index)) {
            // A number beyond the limits is sent as it was written, and shown within them.
            const QString shown = hostkit::shownText(m_form, setting.key);
            if (setting.leaves.size() == 1 && !shown.isEmpty())
                setting.leaves.first().text = shown;
            const QString value = plain(m_settings.words().of(setting).value);
            if (!value.isEmpty())
                texts.append(value);
        }
        if (!texts.isEmpty())
            result.facts.append({tr("Default"), {texts.join(QStringLiteral(", "))}});
    }

    // Items of a list are in one element.
    void addPaths(int index, ManualRow& result) const
    {
        ManualFact paths{tr("Parameter"), {}, ManualFact::Path};
        for (const Setting& setting : m_defaults.value(index)) {
            const QString path = setting.key.section(QLatin1Char('['), 0, 0);
            if (!paths.words.contains(path))
                paths.words.append(path);
        }
        if (!paths.words.isEmpty())
            result.facts.append(paths);
    }

    const SettingsForm& m_settings;
    ZorvaFormular& m_form;
    QHash<int, QVector<Setting>> m_defaults; // by row
};

} // namespace

Manual manualOf(const SettingsForm& form, const QString& title)
{
    return {title, Writer(form).groups()};
}

} // namespace Author
} // namespace Orvane
