#ifndef ZORVA_AUTHOR_SETTINGSFORM_H
#define ZORVA_AUTHOR_SETTINGSFORM_H

#include "parameterset.h"
#include "settingwords.h"

#include <author/live/liveform.h>

#include <QSet>
#include <QStringList>

#include <memory>

namespace Orvane {
namespace Author {

/** A form as a reader and writer of settings: the engine does both. */
class SettingsForm
{
public:
    /** @p description as the engine reads it; @p name is the context of its translations. */
    explicit SettingsForm(const QByteArray& description, const QString& name = QString());
    SettingsForm(const SettingsForm&) = delete;
    SettingsForm& operator=(const SettingsForm&) = delete;

    /** False if the description makes no form: then nothing else may be asked. */
    bool exists() const { return m_live.exists(); }
    ZorvaFormular& form() const { return m_live.form(); }
    const FormRows& rows() const { return *m_rows; }
    const SettingWords& words() const { return *m_words; }
    /** True for rows that write something when all parameters are asked for. */
    bool sends(int row) const { return m_sent.contains(row); }
    /** The root element without content. */
    const QString& emptyRoot() const { return m_emptyRoot; }

    /** What @p source says to this form. */
    ParameterSet read(const QString& source) const;
    /** All parameters of a form that came up anew and then took @p texts, one after the other. */
    QString exportedAfter(const QStringList& texts) const;

private:
    QByteArray m_description;
    LiveForm m_live;
    std::unique_ptr<FormRows> m_rows;
    std::unique_ptr<SettingWords> m_words;
    QSet<int> m_sent;
    QString m_emptyRoot;
};

} // namespace Author
} // namespace Orvane

#endif
