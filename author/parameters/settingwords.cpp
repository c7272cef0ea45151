#include "settingwords.h"

#include <hostkit/formrows.h>
#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>

namespace Orvane {
namespace Author {

SettingWords::SettingWords(ZorvaFormular& form, const FormRows& rows)
    : m_form(form)
    , m_rows(rows)
{
    ZorvaSheet& sheet = form.GetSheet();
    QString group;
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(i);
        if (row->IsHeadline())
            group = row->GetDelegate()->GetTranslated("text");
        m_groups.append(group);
    }
}

Words SettingWords::of(const Setting& setting) const
{
    if (setting.row < 0)
        return {QString(), setting.key, setting.text()};
    const bool isRanges = m_rows.kind(setting.row).parameter.form == ParameterElement::Ranges;
    return {m_groups.at(setting.row), caption(setting),
            isRanges ? ranges(setting) : value(setting.row, setting.text())};
}

QString SettingWords::value(int row, const QString& text) const
{
    return hostkit::wordsOf(m_form, m_form.GetSheet().GetWidgetAt(row)->GetDelegate()->GetXmlPath(), text);
}

QString SettingWords::caption(const Setting& setting) const
{
    const QString text = hostkit::captionOf(*m_form.GetSheet().GetWidgetAt(setting.row));
    const SettingStep& last = setting.leaves.last().steps.last();
    switch (m_rows.kind(setting.row).parameter.form) {
    case ParameterElement::Pair:
        return QStringLiteral("%1 (%2)").arg(text, last.name);
    case ParameterElement::List: {
        QStringList marks;
        for (const auto& mark : last.marks)
            marks.append(mark.first + QLatin1Char(' ') + mark.second);
        return marks.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, marks.join(QLatin1String(", ")));
    }
    default:
        return text;
    }
}

QString SettingWords::ranges(const Setting& setting) const
{
    QStringList texts;
    for (const SettingLeaf& leaf : setting.leaves) {
        if (!leaf.text.trimmed().isEmpty())
            texts.append(value(setting.row, leaf.text));
    }
    QStringList pairs;
    for (int i = 0; i + 1 < texts.size(); i += 2)
        pairs.append(QStringLiteral("%1 to %2").arg(texts.at(i), texts.at(i + 1)));
    return pairs.isEmpty() ? QStringLiteral("none") : pairs.join(QLatin1String(", "));
}

} // namespace Author
} // namespace Orvane
