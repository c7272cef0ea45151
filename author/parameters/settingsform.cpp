#include "settingsform.h"

namespace Orvane {
namespace Author {

SettingsForm::SettingsForm(const QByteArray& description, const QString& name)
    : m_description(description)
    , m_live(description, LiveForm::Read, name)
{
    if (!exists())
        return;
    m_rows = std::make_unique<FormRows>(form());
    m_live.bring(LiveForm::Running);
    m_words = std::make_unique<SettingWords>(form(), *m_rows);
    m_emptyRoot = form().GetEmptyXmlElement();
    const ParameterSet sent = read(form().GetXmlString(false));
    for (const Setting& setting : sent.settings())
        m_sent.insert(setting.row);
}

ParameterSet SettingsForm::read(const QString& source) const
{
    return ParameterSet(rows(), SourceText(source.toUtf8()));
}

QString SettingsForm::exportedAfter(const QStringList& texts) const
{
    const LiveForm fresh(m_description);
    for (const QString& text : texts)
        fresh->SetXmlString(text);
    return fresh->GetXmlString(false);
}

} // namespace Author
} // namespace Orvane
