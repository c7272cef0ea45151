#ifndef ZORVAFORMULAR_H
#define ZORVAFORMULAR_H

#include <vkbase/iobserver.h>
#include <zorvaparser/zorvaenum.h>
#include <zorvaparser/zorvaparser_export.h>
#include <zorvaparser/zorvascript.h>
#include <zorvaparser/zorvasheet.h>

#include <QExplicitlySharedDataPointer>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QScriptEngine>
#include <QScriptValue>
#include <QSharedData>

#include <memory>

class QScriptEngineDebugger;
class QWidget;
class QXmlStreamReader;

namespace values {
class ValueBase;
class ValueSelection;
} // namespace values

namespace Orvane {

class ScriptGuard;

/**
 * The root object of one live form: sheet, script and enumerations of a
 * description, bound to a path in the value tree. Made by ZorvaParser with a
 * reference count of zero; keep it in a QExplicitlySharedDataPointer. The host
 * drives it: CreateValueTree(), CreateGUI(), Show(). GUI thread only.
 */
class ZORVAPARSER_EXPORT ZorvaFormular : public QObject, public QSharedData
{
    Q_OBJECT

public:
    ZorvaFormular();
    /** Leaves the top widget of GetGUI() to the host. */
    ~ZorvaFormular() override;

    /** Entered on the start tag of the root element. */
    void ParseZORVA(QXmlStreamReader& reader);

    /** Creates every row's values below @p vtPath and runs the script. */
    void CreateValueTree(QString vtPath);
    /** Builds the widgets, with or without the apply bar, and restores the configuration. */
    void CreateGUI(bool createApplyUi);
    /** Likewise for only the named widgets, or for all but them. */
    void CreateGUI(bool createApplyUi, const QStringList& names, bool exclude);
    /** Null before CreateGUI(). The widget belongs to the host, which may embed or delete it at any time. */
    QWidget* GetGUI();
    /** Only while the top widget exists. */
    void Show();
    void Hide();

    void EnableInput(bool enable);
    bool IsInputEnabled();
    void ShowGroup(const QString& headline, bool visible);
    void SelectWidgets(const QStringList& list, bool select);
    void applyNow();

    /** Registers the name as translation context unless it is empty; an earlier one stays registered. */
    void SetName(const QString& newName);
    const QString& GetName() const { return name; }
    const QString& GetVersion() const { return version; }
    const QString& GetVTPath() const { return vtPath; }
    ZorvaSheet& GetSheet() { return sheet; }
    ZorvaScript& GetScript() { return script; }
    /** Never null: a miss gives the formular's one empty enumeration. */
    QExplicitlySharedDataPointer<ZorvaEnum> GetEnum(const QString& enumName);
    /** What GetEnum() returns on a miss, to be compared by identity. */
    const QExplicitlySharedDataPointer<ZorvaEnum>& GetEmptyEnum() const { return emptyEnum; }

    /** The root element of parameter XML with its attributes and no content. */
    QString GetEmptyXmlElement();
    /** Parameter XML of all or of the modified rows, whose marks it clears; null if there is nothing to send.
     */
    QString GetXmlString(bool modifiedOnly);
    /** Applies parameter XML; damaged text applies up to the damage. */
    void SetXmlString(const QString& text);

    /** Value of the widget at @p path (XML path or bare tag); null if there is none. */
    values::ValueBase* GetVTValue(const QString& path) const;
    /** Copies the form's state into the host's @p target; the widget's value, or null. */
    values::ValueBase* GetVTValue(values::ValueBase* target, IObserver* observer, bool initialize,
                                  values::ValueBase* source);
    /** The same for each target by its own name, from the last to the first. */
    void GetVTValues(QList<values::ValueBase*> targets, IObserver* observer, bool initialize);
    /** Writes @p text to a row; false if there is no such row or the text is equal. */
    bool SetVTValue(const QString& path, const QString& text, IObserver* observer, bool apply);
    bool SetVTValue(values::ValueBase* value, IObserver* observer, bool apply);
    /** Takes the range or the items of the host's @p source into the row. */
    void InitVTValue(const QString& path, values::ValueBase* source);
    /** Makes @p target like @p source, if they are of one type; a selection keeps its own choice. */
    static void InitVTValue(values::ValueBase* target, values::ValueBase* source, IObserver* observer);
    /** Refills an enumeration; rows take it at their next resync. @p valueTexts may be null. */
    void InitEnumeration(const QString& enumName, values::ValueSelection* selection,
                         const QStringList* valueTexts);

    /** Runs code in the form's engine; silent but for a trace line under ErrorHandler::TraceScripts. */
    void EvaluateScript(const QString& code);
    /** The next evaluation stops in a debugger; only the first call has an effect. */
    void DebugScript();
    /** Sets a global of the script. A QObject stays the caller's and may be null. */
    void SetScriptValue(const QString& globalName, const QString& value);
    void SetScriptValue(const QString& globalName, double value);
    void SetScriptValue(const QString& globalName, bool value);
    void SetScriptValue(const QString& globalName, QObject* value);
    /** The globals of the script by name. */
    QMap<QString, QScriptValue> GetScriptValues();

    /** Applies an overlay to the live form and resyncs its rows. */
    void SetChangedZORVA(const QString& text);
    /** The overlay's root alone, for a reader on its start tag; the resync is the caller's. */
    void ProcessChangedZORVA(QXmlStreamReader& reader);

    /** Where text size and collapsed groups are kept; @p object may be null and is not owned. */
    void SetConfigObject(QObject* object, const QString& key);
    /** Stores the form's present state in the configuration object. */
    void ApplyConfiguration();

Q_SIGNALS:
    /** Parameters are ready to be fetched. */
    void si_parametersModified();

public Q_SLOTS:
    void RestoreConfiguration();

private Q_SLOTS:
    void sl_fontSize(int size);

private:
    Q_DISABLE_COPY(ZorvaFormular)

    void ParseEnums(QXmlStreamReader& reader);
    void ParseChangedEnums(QXmlStreamReader& reader);
    void PublishEnum(const QExplicitlySharedDataPointer<ZorvaEnum>& enumeration);
    void InitScript();
    void TraceScriptError(const QScriptValue& error) const;
    QString WriteXml(bool withValues, bool modifiedOnly);
    /** Takes each element named @p root, wherever it stands. */
    void ApplyDocument(QXmlStreamReader& reader, const QString& root);
    QByteArray ConfigName(const char* suffix) const;
    void RegisterScriptTypes();
    void SetGlobal(const QString& globalName, const QScriptValue& value);

    QString name;
    QString version;
    QString vtPath;
    QMap<QString, QExplicitlySharedDataPointer<ZorvaEnum>> enums;
    QExplicitlySharedDataPointer<ZorvaEnum> emptyEnum;
    ZorvaSheet sheet;
    ZorvaScript script;
    QScriptEngine scriptEngine;
    QScriptEngineDebugger* scriptDebugger; // owned
    QPointer<QObject> configObject;        // not owned
    QString configKey;
    std::unique_ptr<ScriptGuard> scriptGuard; // never null; goes before the engine
};

} // namespace Orvane

#endif
