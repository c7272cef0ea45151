#ifndef ZORVADELEGATE_H
#define ZORVADELEGATE_H

#include <valueframework/value.h>
#include <valueframework/valuenumeric.h>
#include <valueframework/valueselection.h>
#include <vkbase/iobserver.h>
#include <zorvaparser/zorvaparser_export.h>

#include <QExplicitlySharedDataPointer>
#include <QLabel>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <utility>

class FloatGroupLayout;
class QXmlStreamReader;
class QXmlStreamWriter;

namespace Orvane {

class RowWatch;
class ZorvaEnum;
class ZorvaFormular;
class ZorvaSheet;
class ZorvaWidget;

/** When a row's changes are to be applied; 0 stands for any other text. Stored only. */
enum eApplyMode { ekInstantApplyMode = 1, ekNormalApplyMode = 2 };

/**
 * Base of every control kind: the object that a form's script sees and that
 * holds the state of one row. Properties are Qt dynamic properties; every change
 * runs through event() and PropertyChanged(), and the defined ones are forwarded
 * to the control. Lives on the GUI thread, owned by its ZorvaWidget.
 */
class ZORVAPARSER_EXPORT ZorvaDelegate : public QObject, public IObserver
{
    Q_OBJECT

public:
    /** @p widget is the owning row, never owned; null only for the sheet's own delegate. */
    explicit ZorvaDelegate(ZorvaWidget* widget);
    /** Leaves label and controls to the Qt widget tree. */
    ~ZorvaDelegate() override;

    /** Creates the row's values below GetVTPath(); a second call replaces them. */
    virtual void CreateValueTree();
    /** Rebuilds what depends on the form's enumerations; the base only traces. */
    virtual void ResyncValueTree();
    /** Adds the row's label and control to @p layout, which must not be null. */
    virtual void CreateGUI(FloatGroupLayout* layout);
    /** Writes the row's parameter elements; nothing unless parameter XML is on. */
    virtual void GetXml(QXmlStreamWriter& writer) const;
    /** Entered on the row's start tag, leaves the reader on its end tag. */
    virtual void ReadXml(QXmlStreamReader& reader);
    /** The row's one main value; null if it has none. */
    virtual values::ValueBase* GetVTValue() const;
    /** Takes the "Property" and "CustomProperties" children up to the next end tag. */
    virtual void ParseProperties(QXmlStreamReader& reader, bool custom);
    /** Input gate of the sheet; the wish in "enabled" survives a closed gate. */
    virtual void EnableInput(bool enable, bool restricted);

Q_SIGNALS:
    /** A custom property got a different value. */
    void customPropertyChanged(QString name, QVariant value);

public Q_SLOTS:
    /** From now on; the property "applyMode" stays as it is. No mark. */
    void setApplyMode(eApplyMode applyMode);
    /** Sets the property of that name, unless it is equal already; no mark. */
    void setEnabled(bool flag);
    void setGenerateParameterXml(bool flag); ///< Likewise.
    void setReadOnly(bool flag);             ///< Likewise.
    void setVisible(bool flag);              ///< Likewise.
    void setLabelText(QString text);         ///< Likewise.
    /** Stores @p value under @p name and tells, unless it is equal already. */
    void setCustomProperty(QString name, QVariant value);
    /** False while the row's group is collapsed; "visible" is held back meanwhile. */
    virtual void setGroupVisible(bool flag);
    /** Gives the control the keyboard focus, for kinds that have one to give it to. */
    virtual void setFocus();
    /** Marks the row and its sheet; nothing while parameter XML is off for the row. */
    virtual void setModified(bool autoApply);
    /** Takes the row's mark away; the sheet keeps its own. */
    virtual void resetModified();
    /** Commits text that is still being typed. */
    virtual void forceFinishEditing();

public:
    /** What setCustomProperty() or the description stored; invalid if nobody did. */
    Q_INVOKABLE QVariant customProperty(QString name);

    void Update(Observable* observable, TChangeCode code) override;
    /** The one funnel of property changes. */
    bool event(QEvent* event) override;

    /** Sets the property unless it equals @p value (QVariant comparison); true if set. */
    bool ChangeProperty(const QString& name, QVariant value);
    /** The same for a literal name, which needs no conversion. */
    bool ChangeProperty(const char* name, const QVariant& value);
    /**
     * Switches a property between forwarded and held back. While it is held back
     * the control shows @p value (if not null); the property is not touched.
     */
    void EnableProperty(const QString& name, bool enable, QVariant* value);
    /** Sends the held-back look to controls that were made after it was asked for. */
    void PushHeldBackProperties();

    /** The typed getters give @p fallback for an absent or unconvertible property. */
    bool GetBool(const QString& name, bool fallback) const;
    int GetInt(const QString& name, int fallback) const;            ///< Likewise.
    qint64 GetInt64(const QString& name, qint64 fallback) const;    ///< Likewise.
    quint64 GetUInt64(const QString& name, quint64 fallback) const; ///< Likewise.
    double GetDouble(const QString& name, double fallback) const;   ///< Likewise.
    /** @p fallback also for an empty text. */
    QString GetString(const QString& name, QString fallback) const;
    /** The property's text in the user's language; empty if it is empty. */
    QString GetTranslated(const QString& name);
    /** The same for a literal name, which needs no conversion. */
    bool GetBool(const char* name, bool fallback) const;
    int GetInt(const char* name, int fallback) const;                   ///< Likewise.
    qint64 GetInt64(const char* name, qint64 fallback) const;           ///< Likewise.
    quint64 GetUInt64(const char* name, quint64 fallback) const;        ///< Likewise.
    double GetDouble(const char* name, double fallback) const;          ///< Likewise.
    QString GetString(const char* name, const QString& fallback) const; ///< Likewise.
    /** The same for a literal name. */
    QString GetTranslated(const char* name);

    /** Whether "enabled" is true, the row's group is open, the row is marked. */
    bool isEnabled();
    bool isGroupVisible(); ///< Likewise.
    bool isModified();     ///< Likewise.

    /** Slash-separated path in parameter XML; an empty one means the object name. */
    void SetXmlPath(const QString& path);
    /** The path as set; see SetXmlPath(). */
    const QString& GetXmlPath() const;
    /** The last part of the XML path. */
    const QString& GetXmlTagName() const;
    /** Compares case-insensitively. */
    bool ContainsXmlTag(QString tag);
    /** Every tag that this row answers to; empty if its tag is its object name. */
    const QStringList& GetAllTags() const;
    /** Whether the row reads and writes more than one element. */
    bool HasSeveralXmlTags();
    /** @p path is the sheet's path in the value tree. */
    void SetVTPath(const QString& path);
    /** The sheet's path in the value tree. */
    const QString& GetVTPath() const;
    /** Name and node of the row's value; null strings if the path has no node. */
    QString GetVTName();
    /** The node that the row's value hangs in; a null string if the path has none. */
    QString GetVTNodePath();

    /** From value to display: value x factor + offset, with the row's properties. */
    double displayTransformation(double value) const;
    /** The same with the numbers given. */
    static double displayTransformation(double value, double factor, double offset);
    /** From display to value. A factor of 0 gives an infinity or a NaN. */
    double reverseDisplayTransformation(double value) const;
    /** The same with the numbers given. */
    static double reverseDisplayTransformation(double value, double factor, double offset);

protected:
    /** For the sheet's own delegate, which has no row; @p sheet is not owned. */
    explicit ZorvaDelegate(ZorvaSheet* sheet);

    /** Called for each change of a property; subclasses call the base first. */
    virtual void PropertyChanged(const QString& name, const QVariant& value);

    /** Lists a property as one that the control takes, or takes it off the list. */
    void DefineProperty(const QString& name);
    void UndefineProperty(const QString& name); ///< Likewise.
    /** Copies every defined property that is set to @p target. */
    void PropagateProperties(QObject* target);
    /** Copies one defined property to @p target, which may be null. */
    void PropagateProperty(const QString& name, QObject* target);

    /** Row-major cell; invalid if out of the list. The column is not checked by itself. */
    static QVariant GetListValue(const QList<QVariant>& list, int row, int column, int columnCount);
    /** True if the cell exists and changed. */
    static bool SetListValue(QList<QVariant>& list, QVariant value, int row, int column, int columnCount);
    /** False, and nothing done, for a negative count, an unchanged number of cells and over a million. */
    static bool ResizeList(QList<QVariant>& list, int rows, int columns, int oldColumns);

    /** @p text in the user's language, with the object name as context. */
    QString Translate(const QString& text);

    /** Adds @p tag to the tags that ReadXml() answers to, unless held in any case. */
    void AddXmlTag(QString tag);

    /**
     * The value factories: each makes a value below GetVTNodePath(), starting from
     * the property @p name, and gives null if the tree refuses it (the text one
     * returns it all the same). The caller owns the value. An @p index of 0 or more
     * is appended to the value's name.
     */
    values::ValueBool* CreateValueBoolean(const QString& name);
    values::NumericDouble* CreateValueNumericFloat(const QString& name, int index); ///< Likewise.
    values::NumericInt* CreateValueNumericInt(const QString& name, int index);      ///< Likewise.
    /** Likewise. */
    values::ValueSelection* CreateValueSelection(const QString& name,
                                                 QExplicitlySharedDataPointer<ZorvaEnum> enumeration);
    values::ValueString* CreateValueString(const QString& name); ///< Likewise.
    /** Carries limits and step from the properties (display units) to @p value, which may be null. */
    void ConfigureValueNumeric(values::IValueNumeric* value);
    /** The attribute "unit", if the row has one. */
    void WriteUnitAttribute(QXmlStreamWriter& writer) const;

    /** @p value with trailing zeros cut, then @p suffix; see the tooltips for the uncut form. */
    QString formatString(double value, int decimals, QString suffix);
    /** Range tooltips of numeric controls; null @p control is allowed. */
    void SetDoubleTooltip(QWidget* control);
    void SetIntTooltip(QWidget* control);   ///< Likewise.
    void SetInt64Tooltip(QWidget* control); ///< Likewise.

    // What all kinds do alike with values, controls and parameter XML.

    /** Observes @p value, which may be null, and returns it. */
    template <typename V>
    V* ObserveValue(V* value)
    {
        if (value)
            value->AddObserver(this);
        return value;
    }

    /** Stops observing @p value, deletes it and clears the pointer. */
    template <typename V>
    void ReleaseValue(V*& value)
    {
        V* const released = value;
        value = nullptr;
        if (!released)
            return;
        released->DeleteObserver(this);
        delete released;
    }

    /** On code 2 from @p value while it is going away: lets it go and clears the pointer. */
    template <typename V>
    void ForgetValue(V*& value, Observable* observable, TChangeCode code)
    {
        if (!value || code != ChangeCode::State || observable != static_cast<Observable*>(value))
            return;
        // Only the base of the value is still alive at this moment.
        values::ValueBase* const dying = value;
        if (dying->GetState() != ValueState::GoingAway)
            return;
        dying->DeleteObserver(this);
        value = nullptr;
    }

    /** True if this is news of a changed content from @p value, which may be null. */
    template <typename V>
    static bool IsContentChange(const V* value, const Observable* observable, TChangeCode code)
    {
        return value && code == ChangeCode::Content && observable == static_cast<const Observable*>(value);
    }

    /**
     * Carries limits and step of the row to @p value, which may be null. A content that
     * they clamp goes into the property "value" as well, without a mark.
     */
    template <typename V>
    void ConfigureRowValue(V*& value)
    {
        if (!value)
            return;
        const auto before = value->GetValue();
        ConfigureValueNumeric(value);
        // An observer may have removed it.
        if (value && value->GetValue() != before)
            SetProperty("value", value->GetValue());
    }

    // Everything below that runs somebody else's code gives false if the row is gone
    // after it, or its form let go: nothing of the row may be touched then.

    /** Runs @p call, which may raise signals, write values and change properties. */
    template <typename Call>
    bool Watched(const Call& call)
    {
        return RunWatched([](const void* target) { (*static_cast<const Call*>(target))(); }, &call);
    }
    /** As setProperty(). */
    bool SetProperty(const char* name, const QVariant& value);
    /** Raises @p signal of this row, which is silent once its form is let go. */
    template <typename Row, typename... Params, typename... Args>
    bool Raise(void (Row::*signal)(Params...), const Args&... args)
    {
        return !IsLetGo() && Watched([&] { (static_cast<Row*>(this)->*signal)(args...); });
    }
    /** The same as a step of AnswerChange(). */
    template <typename Row, typename... Params, typename... Args>
    auto Signal(void (Row::*signal)(Params...), const Args&... args)
    {
        return [this, signal, args...] { return Raise(signal, args...); };
    }
    /** Raises @p to of this row whenever @p control raises @p from. */
    template <typename Control, typename Base, typename Row, typename... Args, typename... Params>
    void Relay(const Control& control, void (Base::*from)(Args...), void (Row::*to)(Params...))
    {
        connect(&*control, from, this, [this, to](Args... args) { Raise(to, args...); });
    }
    /** The same for a click, whether or not the button is checked by it. */
    template <typename Button, typename Row>
    void RelayClick(const Button& button, void (Row::*to)())
    {
        connect(&*button, &std::decay_t<decltype(*button)>::clicked, this, [this, to] { Raise(to); });
    }
    /**
     * The answer to a changed value: @p name takes the new content, and if that is a
     * change, @p raised are raised in order and the row is marked.
     */
    template <typename... Signals>
    bool AnswerChange(const char* name, const QVariant& content, const Signals&... raised)
    {
        return TakeContent(name, content) && (raised() && ...) && MarkModified();
    }
    /** The first half of it: true if the property changed and the row is still there. */
    bool TakeContent(const char* name, const QVariant& content);
    /** True if @p value, which is let go if it is going away, has a new content. */
    template <typename V>
    bool HasNewContent(V*& value, Observable* observable, TChangeCode code)
    {
        ForgetValue(value, observable, code);
        return IsContentChange(value, observable, code);
    }
    /** Raises the signal of a pressed Return and lets the sheet apply. */
    template <typename Row>
    void ApplyAfter(void (Row::*returnPressed)())
    {
        if (Raise(returnPressed))
            ApplyNow();
    }
    /** Lets the sheet apply, if there is one. */
    void ApplyNow();
    /** Marks the row. */
    bool MarkModified(bool autoApply = true);
    /** True once the host has let the form go from within one of its own signals. */
    bool IsLetGo() const;
    /** Adds @p control to @p layout, names it by the caption and ends the row. */
    void PlaceControl(FloatGroupLayout* layout, QWidget* control);
    /**
     * Gives @p control, which may be null, the row's caption as accessible name, with
     * @p part behind it if the row has several; follows setLabelText(). Its description
     * becomes its tool tip without mark-up.
     */
    void NameControl(QWidget* control, const QString& part = QString());
    /** Names all named controls anew. */
    void UpdateNames();
    /** The label's text, or else the row's tag: what a control shows as tool tip for want of a better one. */
    QString FallbackToolTip();
    /**
     * Whether @p control, which may be null, may be at work: the row answers, somebody is told of a
     * value, which the control itself may be writing, or it has the focus, and a key of it is answered.
     * To be asked before values go, since a control without one gives the focus away.
     */
    bool MayBeAtWork(const QWidget* control) const;
    /** Deletes @p control, which may be null: at once, or in the next turn of the event loop if it @p
     * isAtWork. */
    static void Drop(QWidget* control, bool isAtWork);
    /** Gives the keyboard focus to @p control, which may be null. */
    static void FocusControl(QWidget* control);
    /** One element named by the row's tag, with the unit if @p withUnit. */
    void WriteTextElement(QXmlStreamWriter& writer, const QString& text, bool withUnit) const;
    /** A property as text: whole numbers never get an exponent. */
    static QString VariantText(const QVariant& value);
    /** The property @p name as VariantText(). */
    QString PropertyText(const char* name) const;
    /** Puts @p value below GetVTNodePath(); false, and a note in the trace, if its place is taken. */
    bool EnterTree(values::ValueBase* value);
    /** Notes that the row gets no place for its value @p name. */
    void TracePlaceTaken(const QString& name) const;
    /** The widget's name, which its control bears too. */
    const QString& ControlName() const;
    /** The row's sheet and formular; null without a widget. */
    ZorvaSheet* GetSheet() const;
    /** See GetSheet(). */
    ZorvaFormular* GetFormular() const;

    /** The row; null for the sheet's own delegate. Not owned. */
    ZorvaWidget* widget; // not owned

private:
    friend class RowWatch;

    /** Lets the control show @p look for a defined property; false if that is not wanted any more. */
    bool ShowLook(const QString& name, const QVariant& look);
    bool RunWatched(void (*call)(const void*), const void* target);
    /** Hands a change on to PropertyChanged(); false if the row is gone after it. */
    bool TellChange(const QByteArray& key);
    bool ParseProperty(QXmlStreamReader& reader, bool custom);
    /** A description's thousandth name is the last new one that a row takes. */
    void SetParsedProperty(const QByteArray& key, const QVariant& value);
    void FinishParse();
    /** Writes a converted limit or step back, marker first; false if it was converted before. */
    bool TakeConverted(const char* name, const char* marker, double& number, double factor, double offset);
    /** Gives the limits that were converted before to a value made later; nothing before the first. */
    void TakeStandingLimits(values::IValueNumeric* value);
    /** @p value of the property @p name as a control is to have it. */
    static QVariant ForControl(const QString& name, const QVariant& value);
    QString ValueName(int index);
    /** Translation context first, then the tree; null (and @p value deleted) if the tree refuses it. */
    template <typename V>
    V* InsertValue(V* value);
    template <typename V>
    V* PrepareValue(V* value);
    void SetRangeTooltip(QWidget* control, const QString& lowest, const QString& highest);

protected:
    /** See SetXmlPath(). */
    QString xmlPath;
    /** See GetXmlTagName(). */
    QString xmlTagName;
    /** See SetVTPath(). */
    QString vtPath;
    /** See GetAllTags(). */
    QStringList allTags;
    /** What is forwarded to the control, in the order of definition. */
    QStringList definedProperties;
    /** What CustomProperties blocks and setCustomProperty() stored. */
    QMap<QString, QVariant> customProperties;
    /** The property "applyMode"; stored only. */
    eApplyMode applyMode;
    /** Whether the row takes part in parameter XML and can be marked. */
    bool generateParameterXml;
    /** Whether the row is marked. */
    bool modified;
    /** False while the row's group is collapsed. */
    bool groupVisible;
    /** The caption; owned by the layout's parent widget, null without one. */
    QPointer<QLabel> label; // owned by the layout's parent widget

protected:
    /** The language has changed: sets the texts of caption and control anew. */
    virtual void Retranslate();

private:
    friend class ZorvaSheet; // which tells its rows

    struct NamedControl
    {
        QPointer<QWidget> control;
        QString part;
    };

    void ApplyName(const NamedControl& named);

    // What the control shows in place of a property that is held back.
    QMap<QString, QVariant> heldBackLooks;
    QVector<NamedControl> namedControls;
    ZorvaSheet* ownSheet = nullptr; // not owned; the sheet's own delegate's alone
    RowWatch* watches = nullptr;    // not owned: the newest one on the stack

public:
    /**
     * Deletes the row's values and leaves them, so that their places in the value tree
     * are free. Called when a form that was let go has to make room.
     */
    virtual void LetValuesGo();
};

} // namespace Orvane

Q_DECLARE_METATYPE(Orvane::eApplyMode)

#endif
