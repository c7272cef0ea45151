#ifndef ZORVA_AUTHOR_PREVIEWFORM_H
#define ZORVA_AUTHOR_PREVIEWFORM_H

#include "scriptlog.h"

#include <author/live/liveform.h>
#include <author/parameters/parameterset.h>

#include <QMap>
#include <QString>
#include <QVector>

#include <memory>

namespace Orvane {

class ZorvaDelegate;

namespace Author {

/**
 * One state of a description, live, with what is needed to tell later what was changed in
 * it. It is looked at without being touched: marks of changed rows stay.
 */
class PreviewForm
{
public:
    /** @p engineBytes as the engine reads the file; @p name is the context of translations. */
    PreviewForm(const QByteArray& engineBytes, const QString& name);
    ~PreviewForm();

    /** False if the description makes no form: then nothing else may be asked. */
    bool exists() const { return m_live.exists(); }
    ZorvaFormular& form() const { return m_live.form(); }
    const FormRows& rows() const { return *m_rows; }
    /** What its script says; signals come from build() on. */
    ScriptLog& log() { return m_log; }

    /** Values, script and controls; @p overlay, which may be empty, is laid over them. */
    void build(const QString& overlay);
    /** The top widget; null before build(). It goes with this. */
    QWidget* window() const { return form().GetGUI(); }

    /** True while code of its script runs: then it must not go. */
    bool isRunning() const { return m_log.isRunning(); }

    /** Parameter XML of all rows, or of the changed ones: what would be sent. Null if that is nothing. */
    QString parameters(bool modifiedOnly) const;
    /** Whether parameters or marks are other ones than those with which the form came up. */
    bool isChanged() const;
    /** The settings of all rows, now and as the form came up. */
    ParameterSet settings() const;
    ParameterSet settingsAtFirst() const; ///< Likewise.
    /** Texts of the rows that are in no parameter XML, by name; now and as the form came up. */
    QMap<QString, QString> unsentTexts() const;
    const QMap<QString, QString>& unsentTextsAtFirst() const { return m_firstTexts; } ///< Likewise.

    /** All rows in their order. */
    QVector<ZorvaDelegate*> delegates() const;

private:
    ScriptLog m_log; // outlives the form, which speaks to it
    LiveForm m_live;
    std::unique_ptr<FormRows> m_rows; // null if there is no form
    QString m_firstParameters;
    QMap<QString, QString> m_firstTexts;
};

} // namespace Author
} // namespace Orvane

#endif
