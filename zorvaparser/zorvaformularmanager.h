#ifndef ZORVAFORMULARMANAGER_H
#define ZORVAFORMULARMANAGER_H

#include <vkbase/iobserver.h>
#include <zorvaparser/zorvaformular.h>
#include <zorvaparser/zorvaparser_export.h>

#include <QExplicitlySharedDataPointer>
#include <QMap>
#include <QObject>
#include <QPointer>

namespace values {
class ValueBase;
}

namespace Orvane {

/**
 * Many forms by name, of which one at a time is current: parses a description
 * when its form is first wanted, forwards parameter XML and values to the current
 * form, and is the one sender of si_parametersModified() for whichever shows.
 * Calls without a current form do nothing or give a null string.
 */
class ZORVAPARSER_EXPORT ZorvaFormularManager : public QObject
{
    Q_OBJECT

public:
    /** How forms are shared with the host; null stands for none. */
    using FormularPointer = QExplicitlySharedDataPointer<ZorvaFormular>;

    ZorvaFormularManager();
    ~ZorvaFormularManager() override;

    /** Keeps @p text for the first GetFormular(); ignored once the form is parsed. */
    void DefineFormular(const QString& name, const QString& text);
    /** A form built by the host, under its own name; null is ignored. Shares ownership. */
    void AddFormular(ZorvaFormular* formular);
    /** The form, parsed and built at the first call; null if unknown or not parseable. */
    FormularPointer GetFormular(const QString& name);
    /** Makes a parsed form current and shows it; false, with no form current, if there is none. Auto-apply is
     * on or off in it as it was in the form that was shown last, whatever its description says. */
    bool ShowFormular(const QString& name);
    /** Forgets all forms and descriptions; top widgets go in the next turn of the event loop. */
    void Reset();
    /** Names of the descriptions, sorted. */
    QList<QString> GetNames();
    /** Text of a description, empty if unknown. */
    QString GetZorva(const QString& name);
    /** The form that is shown, null and empty without one. */
    FormularPointer GetCurrentFormular();
    QString GetCurrentName(); ///< Likewise.

    /** To and from the form that is shown; nothing, and a null text, without one. */
    QString GetEmptyXmlElement();
    QString GetXmlString(bool modifiedOnly); ///< Likewise.
    void SetXmlString(const QString& xml);   ///< Likewise.

    /** For all forms, present and later; @p object may be null and is not owned. */
    void SetConfigObject(QObject* object, const QString& key);
    /** Node below which each form gets its own; one trailing slash is dropped. */
    void SetVTPath(const QString& path);
    /** Writes the row named like @p value and applies at once; false without a form or a change. @p observer
     * is the originator: it is not told, null tells all. */
    bool SetVTValue(values::ValueBase* value, IObserver* observer);
    /** Copies the current form into @p values; without one, blanks them if @p initialize. @p observer is the
     *  originator of what is written there. */
    void GetVTValues(QList<values::ValueBase*> targets, IObserver* observer, bool initialize);
    /** Whether forms created later get an apply bar. */
    void EnableApplyUi(bool enable);
    /** Marks the sheet of the form that is shown, and starts its pause if @p autoApply. */
    void SetCurrentModified(bool autoApply);
    /** Whether a selected row has something to send; clears the sheet's mark if none has. */
    bool isWidgetModified();

Q_SIGNALS:
    /** The current form's parameters are ready to be fetched. */
    void si_parametersModified();

public Q_SLOTS:
    /** Lets the form that is shown read its configuration again. */
    void RestoreConfiguration();

private:
    /** False if this manager was deleted by whoever heard of it. */
    bool LeaveCurrent();

    QString vtPath;
    bool applyUiEnabled;
    int autoApplyMemory; // 0 nothing remembered, 1 on, -1 off
    QMap<QString, QString> descriptions;
    QMap<QString, FormularPointer> formulars;
    FormularPointer current;
    QPointer<QObject> configObject; // not owned
    QString configKey;
    quint64 requests = 0; // calls of ShowFormular(): one may come while another hides a form
};

} // namespace Orvane

#endif
