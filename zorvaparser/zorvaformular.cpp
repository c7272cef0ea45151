#include "zorvaformular.h"

#include "formhold_p.h"
#include "guardedrollback_p.h"
#include "numbertext_p.h"
#include "scriptguard_p.h"
#include "scriptnames_p.h"
#include "textsize_p.h"
#include "valuewalk_p.h"
#include "widgets/zorvasheetui.h"
#include "xmldocuments_p.h"
#include "xmlwalk_p.h"

#include <layout/bulkchange.h>
#include <valueframework/valuebase.h>
#include <valueframework/valuenumeric.h>
#include <valueframework/valueselection.h>
#include <velkappstartup/translationcenter.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>
#include <QScriptEngineDebugger>
#include <QScriptValueIterator>
#include <QTimer>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace Orvane {

namespace {

const QLatin1String rootTag("KVParamGui");

/**
 * Keeps size and place of a debugger's window in a property of the application, for the next debugger
 * and for a host that stores them.
 */
class DebuggerGeometry : public QObject
{
public:
    /** Takes the last one on; @p window owns this. */
    explicit DebuggerGeometry(QMainWindow* window)
        : QObject(window)
    {
        constexpr QSize firstSize(1100, 750);
        if (!window->restoreGeometry(qApp->property(name).toByteArray()))
            window->resize(firstSize);
        window->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
            qApp->setProperty(name, static_cast<QWidget*>(watched)->saveGeometry());
        return QObject::eventFilter(watched, event);
    }

private:
    static constexpr char name[] = "debugger-geometry";
};

/** Room for the source beside the docks, which would take all of Qt's first size. */
void prepareDebuggerWindow(QMainWindow* window)
{
    constexpr int sourceWidth = 400; // pixels
    if (QWidget* const source = window->centralWidget())
        source->setMinimumWidth(sourceWidth);
    new DebuggerGeometry(window); // which the window owns
}

void traceInitFailure(unsigned short line)
{
    if (ErrorHandler::Traces(ErrorHandler::TraceErrors))
        _Q_Trace(QStringLiteral("Exception in ZorvaFormular::InitVTValue"), QStringLiteral("zorvaformular"),
                 line);
}

QScriptValue applyModeToScript(QScriptEngine*, const eApplyMode& mode)
{
    return QScriptValue(static_cast<int>(mode));
}

void applyModeFromScript(const QScriptValue& value, eApplyMode& mode)
{
    mode = static_cast<eApplyMode>(value.toInt32());
}

/** Knows whether two values are both still there. */
class BothValues
{
public:
    BothValues(values::ValueBase* left, values::ValueBase* right)
        : m_left(left)
        , m_right(right)
    {
    }
    explicit operator bool() const { return m_left.Get() && m_right.Get(); }

private:
    const ObservableGuard m_left;
    const ObservableGuard m_right;
};

bool isNumeric(const values::ValueBase* value)
{
    const int type = value->GetType();
    return type == values::TypeInt || type == values::TypeInt64 || type == values::TypeDouble;
}

// Each write below tells observers, and one of them may remove either value.

void copyNumber(values::ValueBase* target, values::ValueBase* source, IObserver* observer)
{
    const BothValues there(target, source);
    auto* const to = dynamic_cast<values::IValueNumeric*>(target);
    const auto* const from = dynamic_cast<const values::IValueNumeric*>(source);
    if (!to || !from)
        return;
    to->SetMin(from->GetMin(), observer);
    if (there)
        to->SetMax(from->GetMax(), observer);
    if (there)
        to->SetStep(from->GetStep(), observer);
    if (there)
        to->SetValue(from->GetValue(), observer);
}

void replaceItems(values::ValueSelection* target, values::ValueSelection* source, IObserver* observer)
{
    const BothValues there(target, source);
    target->DeleteItems(observer);
    for (long i = 0; there && i < source->GetItemCount(); ++i)
        target->AddItem(new values::SelectionItem(*source->GetItemIndex(i)), observer);
}

bool haveSameItems(const values::ValueSelection* left, const values::ValueSelection* right)
{
    if (left->GetItemCount() != right->GetItemCount())
        return false;
    for (long i = 0; i < left->GetItemCount(); ++i) {
        if (*left->GetItemIndex(i) != *right->GetItemIndex(i))
            return false;
    }
    return true;
}

void copyItems(values::ValueBase* target, values::ValueBase* source, IObserver* observer)
{
    auto* const to = dynamic_cast<values::ValueSelection*>(target);
    auto* const from = dynamic_cast<values::ValueSelection*>(source);
    if (to && from && !haveSameItems(to, from))
        replaceItems(to, from, observer);
}

template <typename Numeric>
void takeRange(ZorvaDelegate* delegate, values::ValueBase* source)
{
    const auto* const number = dynamic_cast<const Numeric*>(source);
    if (!number)
        return;
    const ObservableGuard there(source);
    delegate->setProperty("minimum", QVariant::fromValue(number->GetMin()));
    if (there.Get())
        delegate->setProperty("maximum", QVariant::fromValue(number->GetMax()));
    if (there.Get())
        delegate->setProperty("singleStep", QVariant::fromValue(number->GetStep()));
}

void takeItems(ZorvaDelegate* delegate, values::ValueBase* source)
{
    auto* const to = dynamic_cast<values::ValueSelection*>(delegate->GetVTValue());
    auto* const from = dynamic_cast<values::ValueSelection*>(source);
    if (to && from && from->GetItemCount() > 0)
        replaceItems(to, from, delegate);
}

/** Sends @p text to a host's selection; one without such an item shrinks to it alone. */
void selectOrReduce(values::ValueSelection* target, const QString& text, IObserver* observer)
{
    const ObservableGuard there(target);
    if (target->Select(text, observer) || !there.Get())
        return;
    target->DeleteItems(observer);
    if (there.Get())
        target->AddItem(text, text.toDouble(), 0, observer);
    if (there.Get())
        target->Select(text, observer);
}

} // namespace

ZorvaFormular::ZorvaFormular()
    : emptyEnum(new ZorvaEnum)
    , sheet(this)
    , scriptDebugger(nullptr)
{
    connect(sheet.GetSheetUi(), &ZorvaSheetUi::si_parametersModified, this,
            &ZorvaFormular::si_parametersModified);
    connect(sheet.GetSheetUi(), &ZorvaSheetUi::si_chooseFontSize, this, &ZorvaFormular::sl_fontSize);
}

ZorvaFormular::~ZorvaFormular()
{
    FormHold::forget(this);
    letGo = true; // nothing is raised any more
    delete scriptDebugger;
    if (!name.isEmpty())
        TranslationCenter::Instance().Unregister(name);
}

void ZorvaFormular::ComeToRest()
{
    if (keptAlive) {
        keptAlive = false;
        letGo = !ref.deref();
        if (letGo)
            sheet.LetValuesGo();
    }
    // Not at once: what called may be a control or a script of the form.
    if (letGo || deleteAtRest)
        deleteLater();
    deleteAtRest = false;
}

bool ZorvaFormular::event(QEvent* event)
{
    if (event->type() != QEvent::DeferredDelete)
        return QObject::event(event);
    if (holds > 0) {
        deleteAtRest = true;
        return true;
    }
    // A handler that the script connected to an object of the host may still run.
    if (scriptEngine && scriptEngine->isEvaluating()) {
        constexpr int pause = 50; // milliseconds
        QTimer::singleShot(pause, this, &QObject::deleteLater);
        return true;
    }
    // Shared again, it is the last holder's to delete.
    return ref.loadRelaxed() > 0 || QObject::event(event);
}

void ZorvaFormular::ParseZORVA(QXmlStreamReader& reader)
{
    version = reader.attributes().value(QLatin1String("version")).toString();
    walkChildren(reader, [&] {
        if (reader.name() == QLatin1String("Enums"))
            ParseEnums(reader);
        else if (reader.name() == QLatin1String("Sheet"))
            sheet.ParseZORVA(reader);
        else if (reader.name() == QLatin1String("Script"))
            script.ParseZORVA(reader);
        else
            reader.skipCurrentElement();
    });
}

void ZorvaFormular::ParseEnums(QXmlStreamReader& reader)
{
    walkChildren(reader, [&] {
        if (reader.name() != QLatin1String("Enum")) {
            reader.skipCurrentElement();
            return;
        }
        const QExplicitlySharedDataPointer<ZorvaEnum> enumeration(new ZorvaEnum);
        enumeration->ParseZORVA(reader);
        PublishEnum(enumeration);
    });
}

void ZorvaFormular::PublishEnum(const QExplicitlySharedDataPointer<ZorvaEnum>& enumeration)
{
    enums.insert(enumeration->GetName(), enumeration);
    WaitingNames().add(*enumeration);
    // A handler may look without asking.
    if (scriptEngine)
        ScriptEngine();
}

void ZorvaFormular::CreateValueTree(QString path)
{
    vtPath = path;
    // Defaults and what the script presets never count as changes by the user.
    const GuardedRollback<FormHold, bool> inactive(this, sheet.active, false);
    sheet.CreateValueTree(path);
    if (inactive)
        InitScript();
}

void ZorvaFormular::CreateGUI(bool createApplyUi)
{
    const FormHold form(this);
    sheet.CreateGUI(createApplyUi);
    if (form)
        RestoreConfiguration();
}

void ZorvaFormular::CreateGUI(bool createApplyUi, const QStringList& names, bool exclude)
{
    const FormHold form(this);
    sheet.CreateGUI(createApplyUi, names, exclude);
    if (form)
        RestoreConfiguration();
}

QWidget* ZorvaFormular::GetGUI()
{
    return sheet.GetGUI();
}

void ZorvaFormular::Show()
{
    const FormHold form(this);
    const BulkChange bulk(sheet.Content(), BulkChange::ComingOnScreen);
    if (QWidget* const window = GetGUI())
        window->show();
}

void ZorvaFormular::Hide()
{
    const FormHold form(this);
    if (QWidget* const window = GetGUI())
        window->hide();
}

void ZorvaFormular::EnableInput(bool enable)
{
    sheet.EnableInput(enable, ZorvaSheet::ekFormularEnableScope);
}

bool ZorvaFormular::IsInputEnabled()
{
    return sheet.IsInputEnabled(ZorvaSheet::ekFormularEnableScope);
}

void ZorvaFormular::ShowGroup(const QString& headline, bool visible)
{
    sheet.ShowGroup(headline, visible);
}

void ZorvaFormular::SelectWidgets(const QStringList& list, bool select)
{
    sheet.SelectWidgets(list, select);
}

void ZorvaFormular::applyNow()
{
    sheet.applyNow();
}

void ZorvaFormular::SetName(const QString& newName)
{
    name = newName;
    if (!name.isEmpty())
        TranslationCenter::Instance().Register(name);
}

QExplicitlySharedDataPointer<ZorvaEnum> ZorvaFormular::GetEnum(const QString& enumName)
{
    return enums.value(enumName, emptyEnum);
}

QString ZorvaFormular::WriteXml(bool withValues, bool modifiedOnly)
{
    QString text;
    QXmlStreamWriter writer(&text);
    writer.setAutoFormatting(true);
    sheet.GetXml(writer, withValues, modifiedOnly);
    // The writer begins each element on a line of its own, the first one too.
    if (text.startsWith(QLatin1Char('\n')))
        text.remove(0, 1);
    return text;
}

QString ZorvaFormular::GetEmptyXmlElement()
{
    return WriteXml(false, false);
}

QString ZorvaFormular::GetXmlString(bool modifiedOnly)
{
    if (modifiedOnly && !sheet.isWidgetModified()) {
        sheet.resetModified();
        return QString();
    }
    QString text = WriteXml(true, modifiedOnly);
    sheet.resetModified();
    return text;
}

void ZorvaFormular::SetXmlString(const QString& text)
{
    const FormHold form(this);
    const QString root = sheet.GetSheetUi()->GetString("parametersXmlRootTag", QStringLiteral("Parameters"));
    const BulkChange bulk(sheet.Content());
    // The reader does not count the mark.
    const QString unmarked = text.startsWith(QChar(QChar::ByteOrderMark)) ? text.mid(1) : text;
    QXmlStreamReader reader(unmarked);
    ApplyDocument(reader, root);
    if (!form || reader.error() != QXmlStreamReader::NotWellFormedError)
        return;
    // A document has one root, and the reader stumbles over what follows it.
    XmlDocuments documents(unmarked);
    documents.next();
    if (reader.characterOffset() <= documents.position())
        return;
    for (QString document = documents.next(); !document.isNull(); document = documents.next()) {
        QXmlStreamReader further(document);
        ApplyDocument(further, root);
        if (!form || further.hasError())
            return;
    }
}

void ZorvaFormular::ApplyDocument(QXmlStreamReader& reader, const QString& root)
{
    const FormHold form(this);
    while (form && !reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == root)
            sheet.ReadXml(reader);
    }
}

values::ValueBase* ZorvaFormular::GetVTValue(const QString& path) const
{
    // The look-up leaves the sheet as it is, but the sheet hands out its own widgets.
    const ZorvaSheet::WidgetPointer widget = const_cast<ZorvaSheet&>(sheet).GetWidget(path);
    return widget ? widget->GetDelegate()->GetVTValue() : nullptr;
}

values::ValueBase* ZorvaFormular::GetVTValue(values::ValueBase* target, IObserver* observer, bool initialize,
                                             values::ValueBase* source)
{
    if (!target)
        return nullptr;
    if (!source)
        source = GetVTValue(target->GetName());
    if (!source) {
        if (initialize)
            target->SetStringValue(QString(), observer);
        return nullptr;
    }
    const FormHold form(this);
    const ObservableGuard sourceThere(source);
    const auto result = [&] { return sourceThere.Get() ? source : nullptr; };
    const QString text = source->GetStringValue();
    if (initialize) {
        const ObservableGuard targetThere(target);
        InitVTValue(target, source, observer);
        if (!targetThere.Get() || !sourceThere.Get())
            return result();
        if (target->GetStringValue() == text) {
            target->HasChanged(ChangeCode::Content, observer);
            return result();
        }
    }
    const bool isChoice =
        target->GetType() == values::TypeSelection && source->GetType() != values::TypeSelection;
    if (auto* const selection = isChoice ? dynamic_cast<values::ValueSelection*>(target) : nullptr)
        selectOrReduce(selection, text, observer);
    else
        target->SetStringValue(text, observer);
    return result();
}

void ZorvaFormular::GetVTValues(QList<values::ValueBase*> targets, IObserver* observer, bool initialize)
{
    const FormHold form(this);
    fromLastToFirst(targets, [&](values::ValueBase* target) {
        if (form)
            GetVTValue(target, observer, initialize, nullptr);
    });
}

bool ZorvaFormular::SetVTValue(const QString& path, const QString& text, IObserver* observer, bool apply)
{
    values::ValueBase* const value = GetVTValue(path);
    if (!value || value->GetStringValue() == text)
        return false;
    const FormHold form(this);
    value->SetStringValue(text, observer);
    // Without an apply bar the write announces itself, and the host may let the form go.
    if (apply && form)
        sheet.applyNow();
    return true;
}

bool ZorvaFormular::SetVTValue(values::ValueBase* value, IObserver* observer, bool apply)
{
    return value && SetVTValue(value->GetName(), value->GetStringValue(), observer, apply);
}

void ZorvaFormular::InitVTValue(const QString& path, values::ValueBase* source)
{
    if (!source)
        return;
    const ZorvaSheet::WidgetPointer widget = sheet.GetWidget(path);
    if (!widget)
        return;
    ZorvaDelegate* const delegate = widget->GetDelegate();
    if (source == delegate->GetVTValue())
        return;
    const FormHold form(this);
    try {
        switch (source->GetType()) {
        case values::TypeInt:
            takeRange<values::NumericInt>(delegate, source);
            break;
        case values::TypeInt64:
            takeRange<values::NumericInt64>(delegate, source);
            break;
        case values::TypeDouble:
            takeRange<values::NumericDouble>(delegate, source);
            break;
        case values::TypeSelection:
            takeItems(delegate, source);
            break;
        default:
            break;
        }
    } catch (...) {
        traceInitFailure(__LINE__);
    }
}

void ZorvaFormular::InitVTValue(values::ValueBase* target, values::ValueBase* source, IObserver* observer)
{
    try {
        if (!target || !source || target->GetType() != source->GetType())
            return;
        if (isNumeric(source))
            copyNumber(target, source, observer);
        else if (source->GetType() == values::TypeSelection)
            copyItems(target, source, observer);
    } catch (...) {
        traceInitFailure(__LINE__);
    }
}

void ZorvaFormular::InitEnumeration(const QString& enumName, values::ValueSelection* selection,
                                    const QStringList* valueTexts)
{
    const QExplicitlySharedDataPointer<ZorvaEnum> enumeration = GetEnum(enumName);
    if (enumeration == emptyEnum || !selection)
        return;
    const QString prefix = enumName.toUpper() + QLatin1Char('_');
    enumeration->ClearValues();
    for (long i = 0; i < selection->GetItemCount(); ++i) {
        const values::SelectionItem* const item = selection->GetItemIndex(i);
        const QString value = valueTexts && i < valueTexts->size() ? valueTexts->at(static_cast<int>(i))
                                                                   : fixedText(item->GetValue(), 2);
        enumeration->AppendEnumValue(item->GetName(), prefix + value, value);
    }
}

void ZorvaFormular::RegisterScriptTypes(QScriptEngine& engine)
{
    qRegisterMetaType<eApplyMode>("eApplyMode");
    qRegisterMetaType<QList<QString>>("QList<QString>");
    qScriptRegisterMetaType<eApplyMode>(&engine, applyModeToScript, applyModeFromScript);
    qScriptRegisterSequenceMetaType<QList<QString>>(&engine);
}

QScriptEngine& ZorvaFormular::ScriptEngine()
{
    if (!scriptEngine)
        RegisterScriptTypes(scriptEngine.emplace());
    if (const auto names = std::move(scriptNames))
        names->publish(*scriptEngine);
    return *scriptEngine;
}

QScriptEngine& ZorvaFormular::GuardedScriptEngine()
{
    QScriptEngine& engine = ScriptEngine();
    if (!scriptGuard) {
        scriptGuard = std::make_unique<ScriptGuard>();
        connect(&engine, &QScriptEngine::signalHandlerException, this, &ZorvaFormular::TraceScriptError);
    }
    scriptGuard->install(sheet, engine);
    return engine;
}

void ZorvaFormular::InitScript()
{
    const bool isEmpty = script.GetCode().isEmpty();
    if (isEmpty && !scriptEngine)
        return;
    const FormHold form(this);
    // An empty script still ends an exception that was pending.
    QScriptEngine& engine = isEmpty ? ScriptEngine() : GuardedScriptEngine();
    engine.evaluate(script.GetCode(), QString(), 1);
    if (!engine.hasUncaughtException() || !ErrorHandler::Traces(ErrorHandler::TraceErrors))
        return;
    _Q_Trace(
        QStringLiteral("** ZorvaFormular Script Exception %1\n").arg(engine.uncaughtException().toString()),
        QStringLiteral("zorvaformular"), __LINE__);
}

void ZorvaFormular::EvaluateScript(const QString& code)
{
    const FormHold form(this);
    QScriptEngine& engine = GuardedScriptEngine();
    engine.evaluate(code, QString(), 1);
    if (engine.hasUncaughtException())
        TraceScriptError(engine.uncaughtException());
}

void ZorvaFormular::TraceScriptError(const QScriptValue& error) const
{
    if (!ErrorHandler::Traces(ErrorHandler::TraceScripts))
        return;
    const QScriptValue thrownAt = error.property(QStringLiteral("lineNumber"));
    const int line = thrownAt.isNumber() ? thrownAt.toInt32() : scriptEngine->uncaughtExceptionLineNumber();
    _Q_Trace(QStringLiteral("Script error in form %1, line %2: %3")
                 .arg(name.isEmpty() ? vtPath : name, QString::number(line), error.toString()),
             QStringLiteral("zorvaformular"), __LINE__);
}

void ZorvaFormular::DebugScript()
{
    if (scriptDebugger)
        return;
    QScriptEngine& engine = GuardedScriptEngine();
    scriptDebugger = new QScriptEngineDebugger;
    scriptDebugger->attachTo(&engine);
    prepareDebuggerWindow(scriptDebugger->standardWindow());
    scriptDebugger->action(QScriptEngineDebugger::InterruptAction)->activate(QAction::Trigger);
}

void ZorvaFormular::SetGlobal(const QString& globalName, const QScriptValue& value)
{
    ScriptEngine().globalObject().setProperty(globalName, value);
}

void ZorvaFormular::SetScriptValue(const QString& globalName, const QString& value)
{
    SetGlobal(globalName, QScriptValue(value));
}

void ZorvaFormular::SetScriptValue(const QString& globalName, double value)
{
    SetGlobal(globalName, QScriptValue(value));
}

void ZorvaFormular::SetScriptValue(const QString& globalName, bool value)
{
    SetGlobal(globalName, QScriptValue(value));
}

void ZorvaFormular::SetScriptValue(const QString& globalName, QObject* value)
{
    SetGlobal(globalName, ScriptNames::toScript(ScriptEngine(), value));
}

void ZorvaFormular::NameForScript(const QString& globalName, QObject* object)
{
    WaitingNames().add(globalName, object);
}

ScriptNames& ZorvaFormular::WaitingNames()
{
    if (!scriptNames)
        scriptNames = std::make_unique<ScriptNames>();
    return *scriptNames;
}

QMap<QString, QScriptValue> ZorvaFormular::GetScriptValues()
{
    QMap<QString, QScriptValue> globals;
    QScriptValueIterator property(ScriptEngine().globalObject());
    while (property.hasNext()) {
        property.next();
        if (property.value().isValid())
            globals.insert(property.name(), property.value());
    }
    return globals;
}

void ZorvaFormular::SetChangedZORVA(const QString& text)
{
    const FormHold form(this);
    QXmlStreamReader reader(text);
    while (form && !reader.atEnd() && reader.readNextStartElement()) {
        if (reader.name() == rootTag)
            ProcessChangedZORVA(reader);
    }
    if (form)
        sheet.ResyncValueTree();
}

void ZorvaFormular::ProcessChangedZORVA(QXmlStreamReader& reader)
{
    const FormHold form(this);
    walkChildren(reader, [&] {
        if (!form)
            return;
        if (reader.name() == QLatin1String("Enums"))
            ParseChangedEnums(reader);
        else if (reader.name() == QLatin1String("Sheet"))
            sheet.ParseChangedZORVA(reader);
        else if (reader.name() == QLatin1String("Script"))
            script.ParseZORVA(reader);
        else
            reader.skipCurrentElement();
    });
}

void ZorvaFormular::ParseChangedEnums(QXmlStreamReader& reader)
{
    walkChildren(reader, [&] {
        if (reader.name() != QLatin1String("Enum")) {
            reader.skipCurrentElement();
            return;
        }
        QExplicitlySharedDataPointer<ZorvaEnum> enumeration =
            GetEnum(reader.attributes().value(QLatin1String("name")).toString());
        const bool isNew = enumeration == emptyEnum;
        if (isNew)
            enumeration = new ZorvaEnum;
        enumeration->ClearValues();
        enumeration->ParseZORVA(reader);
        // Scripts keep the identifiers of the first parse of an enumeration.
        if (isNew)
            PublishEnum(enumeration);
    });
}

QByteArray ZorvaFormular::ConfigName(const char* suffix) const
{
    return (configKey + QLatin1String(suffix)).toLatin1();
}

void ZorvaFormular::SetConfigObject(QObject* object, const QString& key)
{
    if (object == configObject && key == configKey)
        return;
    configObject = object;
    configKey = key;
    RestoreConfiguration();
}

void ZorvaFormular::RestoreConfiguration()
{
    if (!configObject)
        return;
    const FormHold form(this);
    const int size = configObject->property(ConfigName("-fontsize").constData()).toInt();
    if (size > 0)
        sheet.SetFontSize(size);
    else if (GetGUI() && shownTextSize(*GetGUI()) != normalTextSize())
        sheet.SetFontSize(normalTextSize());
    if (!form || !configObject)
        return;
    const QString collapsed = configObject->property(ConfigName("-collapsed").constData()).toString();
    sheet.SetCollapsed(collapsed.split(QLatin1Char(',')));
    if (!form || !configObject)
        return;
    const QVariant disabled = configObject->property("input-disabled");
    if (disabled.isValid())
        sheet.EnableInput(!disabled.toBool(), ZorvaSheet::ekFormularEnableScope);
}

void ZorvaFormular::ApplyConfiguration()
{
    if (!configObject)
        return;
    const FormHold form(this);
    QVariant fontSize;
    if (GetGUI() && shownTextSize(*GetGUI()) != normalTextSize())
        fontSize = shownTextSize(*GetGUI());
    configObject->setProperty(ConfigName("-fontsize").constData(), fontSize);
    if (!form || !configObject)
        return;
    QVariant collapsed;
    const QStringList names = sheet.GetCollapsed();
    if (!names.isEmpty())
        collapsed = names.join(QLatin1Char(','));
    configObject->setProperty(ConfigName("-collapsed").constData(), collapsed);
}

void ZorvaFormular::sl_fontSize(int size)
{
    const FormHold form(this);
    sheet.SetFontSize(size);
    if (form)
        ApplyConfiguration();
}

} // namespace Orvane
