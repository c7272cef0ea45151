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
#include <optional>

class QScriptEngineDebugger;
class QWidget;
class QXmlStreamReader;

namespace values {
class ValueBase;
class ValueSelection;
} // namespace values

namespace Orvane {

class ScriptGuard;
class ScriptNames;

/**
 * The root object of one live form: sheet, script and enumerations of a
 * description, bound to a path in the value tree. Made by ZorvaParser with a
 * reference count of zero; keep it in a QExplicitlySharedDataPointer, which may let
 * it go even in its own signals. Steps: CreateValueTree(), CreateGUI(). GUI thread only.
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
    /** Null before CreateGUI(). The host's to embed and to delete, by deleteLater() in answer to a signal. */
    QWidget* GetGUI();
    /** Shows the top widget; nothing without one. */
    void Show();
    /** Hides the top widget, while there is one. */
    void Hide();

    /** The form's own gate of input; rows react while all gates are open. */
    void EnableInput(bool enable);
    bool IsInputEnabled(); ///< Likewise.
    /** Shows or hides the rows of a headline, itself included; nothing to do with collapsing. */
    void ShowGroup(const QString& headline, bool visible);
    /**
     * Gives the rows with these whole XML paths the flag, all others its opposite; an empty list means all
     * rows.
     */
    void SelectWidgets(const QStringList& list, bool select);
    /** Announces pending changes, if there are any. */
    void applyNow();

    /** Registers the name as translation context unless it is empty; an earlier one stays registered. */
    void SetName(const QString& newName);
    /** Name, version and path of the form, as set or read; empty before. */
    const QString& GetName() const { return name; }
    const QString& GetVersion() const { return version; } ///< Likewise.
    const QString& GetVTPath() const { return vtPath; }   ///< Likewise.
    /** The form's one sheet and its script; they live as long as the form. */
    ZorvaSheet& GetSheet() { return sheet; }
    ZorvaScript& GetScript() { return script; } ///< Likewise.
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
    /** Copies the form's state into the host's @p target; the widget's value, or null. @p observer is the
     *  originator of what is written there: it is not told, null tells all. */
    values::ValueBase* GetVTValue(values::ValueBase* target, IObserver* observer, bool initialize,
                                  values::ValueBase* source);
    /** The same for each target by its own name, from the last to the first. @p observer as above. */
    void GetVTValues(QList<values::ValueBase*> targets, IObserver* observer, bool initialize);
    /** Writes @p text to a row; false if there is no such row or the text is equal. @p observer is the
     * originator: it is not told, null tells all. */
    bool SetVTValue(const QString& path, const QString& text, IObserver* observer, bool apply);
    /**
     * The same with name and text of @p value; @p observer is the originator and is not told, null tells all.
     */
    bool SetVTValue(values::ValueBase* value, IObserver* observer, bool apply);
    /** Takes the range or the items of the host's @p source into the row. */
    void InitVTValue(const QString& path, values::ValueBase* source);
    /** Makes @p target like @p source, if they are of one type; a selection keeps its own choice. @p observer
     * is the originator of the changes to @p target: it is not told, null tells all. */
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
    /** The same for other types; an object that dies leaves errors in the script, no crash. */
    void SetScriptValue(const QString& globalName, double value);
    void SetScriptValue(const QString& globalName, bool value);     ///< Likewise.
    void SetScriptValue(const QString& globalName, QObject* value); ///< Likewise.
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

public:
    /** A deletion by deleteLater() waits until nothing is under way any more. */
    bool event(QEvent* event) override;

public Q_SLOTS:
    /**
     * Takes text size, collapsed groups and the input gate from the configuration object, if there is one.
     */
    void RestoreConfiguration();

private Q_SLOTS:
    void sl_fontSize(int size);

private:
    Q_DISABLE_COPY(ZorvaFormular)
    friend class FormHold;
    friend class ZorvaSheet;
    friend class ZorvaWidget;

    /** The outermost call is over. */
    void ComeToRest();
    void ParseEnums(QXmlStreamReader& reader);
    void ParseChangedEnums(QXmlStreamReader& reader);
    void PublishEnum(const QExplicitlySharedDataPointer<ZorvaEnum>& enumeration);
    void InitScript();
    /** The engine with all that the form has named; made by the first call, as many forms need none. */
    QScriptEngine& ScriptEngine();
    /** The same, before code runs. */
    QScriptEngine& GuardedScriptEngine();
    /** Makes @p object, the sheet's or a row's, a global by the time somebody can look. */
    void NameForScript(const QString& globalName, QObject* object);
    ScriptNames& WaitingNames();
    void TraceScriptError(const QScriptValue& error) const;
    QString WriteXml(bool withValues, bool modifiedOnly);
    /** Takes each element named @p root, wherever it stands. */
    void ApplyDocument(QXmlStreamReader& reader, const QString& root);
    QByteArray ConfigName(const char* suffix) const;
    static void RegisterScriptTypes(QScriptEngine& engine);
    void SetGlobal(const QString& globalName, const QScriptValue& value);

    QString name;
    QString version;
    QString vtPath;
    QMap<QString, QExplicitlySharedDataPointer<ZorvaEnum>> enums;
    QExplicitlySharedDataPointer<ZorvaEnum> emptyEnum;
    ZorvaSheet sheet;
    ZorvaScript script;
    std::optional<QScriptEngine> scriptEngine; // none until something is to run or to be looked at
    QScriptEngineDebugger* scriptDebugger;     // owned
    QPointer<QObject> configObject;            // not owned
    QString configKey;
    std::unique_ptr<ScriptNames> scriptNames; // null if all are published
    std::unique_ptr<ScriptGuard> scriptGuard; // null until code is to run; goes before the engine
    // The calls that are under way, and what the host did to the form meanwhile.
    int holds = 0;
    bool keptAlive = false;    // by a reference that they share
    bool letGo = false;        // nobody else held one at the end, so the event loop deletes the form
    bool deleteAtRest = false; // deletion was asked for by deleteLater()
};

} // namespace Orvane

#endif
