#include "zorvaformularmanager.h"

#include "formhold_p.h"
#include "valuewalk_p.h"

#include <zorvaparser/zorvaparser.h>

#include <QWidget>

#include <algorithm>

namespace Orvane {

namespace {

/** The part of a form's name that may stand in a path of the value tree. */
QString nodeName(const QString& name)
{
    QString node;
    std::copy_if(name.cbegin(), name.cend(), std::back_inserter(node),
                 [](QChar character) { return character.isLetterOrNumber(); });
    return node;
}

} // namespace

ZorvaFormularManager::ZorvaFormularManager()
    : applyUiEnabled(true)
    , autoApplyMemory(0)
{
}

ZorvaFormularManager::~ZorvaFormularManager()
{
    Reset();
}

void ZorvaFormularManager::DefineFormular(const QString& name, const QString& text)
{
    if (!formulars.contains(name))
        descriptions.insert(name, text);
}

void ZorvaFormularManager::AddFormular(ZorvaFormular* formular)
{
    if (formular)
        formulars.insert(formular->GetName(), FormularPointer(formular));
}

ZorvaFormularManager::FormularPointer ZorvaFormularManager::GetFormular(const QString& name)
{
    const auto parsed = formulars.constFind(name);
    if (parsed != formulars.cend())
        return parsed.value();
    const auto description = descriptions.constFind(name);
    if (description == descriptions.cend())
        return FormularPointer();
    ZorvaFormular* const formular = ZorvaParser().ParseZORVA(description.value());
    if (!formular)
        return FormularPointer();
    formular->SetName(name);
    formulars.insert(name, FormularPointer(formular));
    const QPointer<ZorvaFormularManager> alive(this);
    const FormHold hold(formular);
    formular->CreateValueTree(vtPath + QLatin1Char('/') + nodeName(name));
    // What the script raises may make the host reset this manager.
    if (!alive || formulars.value(name).data() != formular)
        return FormularPointer();
    formular->CreateGUI(applyUiEnabled);
    return alive ? formulars.value(name) : FormularPointer();
}

bool ZorvaFormularManager::LeaveCurrent()
{
    const QPointer<ZorvaFormularManager> alive(this);
    const quint64 request = requests;
    // Hiding ends a text that is being typed, and what the host does then may drop the form.
    const FormHold hold(current.data());
    ZorvaFormular* const leaving = current.data();
    ZorvaSheet& sheet = leaving->GetSheet();
    sheet.killAutoApplyTimer();
    if (leaving->GetGUI())
        leaving->Hide();
    if (!alive)
        return false;
    if (request != requests || current.data() != leaving)
        return true; // the answer was another form, or none
    disconnect(leaving, &ZorvaFormular::si_parametersModified, this,
               &ZorvaFormularManager::si_parametersModified);
    autoApplyMemory = sheet.isAutoApplyEnabled() ? 1 : -1;
    current.reset();
    return true;
}

bool ZorvaFormularManager::ShowFormular(const QString& name)
{
    const QPointer<ZorvaFormularManager> alive(this);
    ++requests;
    if (current && !LeaveCurrent())
        return false;
    ZorvaFormular* const wanted = formulars.value(name).data();
    const FormHold hold(wanted);
    // Whoever showed a form while the last one was left has asked later.
    if (current)
        return current.data() == wanted;
    current = FormularPointer(wanted);
    if (!wanted)
        return false;
    if (autoApplyMemory != 0)
        wanted->GetSheet().setAutoApplyEnabled(autoApplyMemory >= 1);
    if (!alive)
        return false;
    connect(wanted, &ZorvaFormular::si_parametersModified, this,
            &ZorvaFormularManager::si_parametersModified);
    wanted->SetConfigObject(configObject, configKey);
    // Restoring may end a text that is being typed as well.
    if (alive && current.data() == wanted && wanted->GetGUI())
        wanted->Show();
    return alive && current.data() == wanted;
}

void ZorvaFormularManager::Reset()
{
    descriptions.clear();
    // Values that go tell observers, and these may come back to this manager.
    QMap<QString, FormularPointer> released;
    released.swap(formulars);
    const FormularPointer left = current;
    current.reset();
    for (const FormularPointer& formular : qAsConst(released)) {
        if (formular->GetGUI())
            formular->GetGUI()->deleteLater();
    }
}

QList<QString> ZorvaFormularManager::GetNames()
{
    return descriptions.keys();
}

QString ZorvaFormularManager::GetZorva(const QString& name)
{
    return descriptions.value(name);
}

ZorvaFormularManager::FormularPointer ZorvaFormularManager::GetCurrentFormular()
{
    return current;
}

QString ZorvaFormularManager::GetCurrentName()
{
    return current ? current->GetName() : QString();
}

QString ZorvaFormularManager::GetEmptyXmlElement()
{
    return current ? current->GetEmptyXmlElement() : QString();
}

QString ZorvaFormularManager::GetXmlString(bool modifiedOnly)
{
    return current ? current->GetXmlString(modifiedOnly) : QString();
}

void ZorvaFormularManager::SetXmlString(const QString& xml)
{
    const FormHold hold(current.data());
    if (current)
        current->SetXmlString(xml);
}

void ZorvaFormularManager::SetConfigObject(QObject* object, const QString& key)
{
    configObject = object;
    configKey = key;
    const QMap<QString, FormularPointer> all = formulars;
    for (const FormularPointer& formular : all)
        formular->SetConfigObject(object, key);
}

void ZorvaFormularManager::SetVTPath(const QString& path)
{
    vtPath = path.endsWith(QLatin1Char('/')) ? path.chopped(1) : path;
}

bool ZorvaFormularManager::SetVTValue(values::ValueBase* value, IObserver* observer)
{
    const FormHold hold(current.data());
    return current && current->SetVTValue(value, observer, true);
}

void ZorvaFormularManager::GetVTValues(QList<values::ValueBase*> targets, IObserver* observer,
                                       bool initialize)
{
    if (current) {
        const FormHold hold(current.data());
        current->GetVTValues(targets, observer, initialize);
        return;
    }
    if (!initialize)
        return;
    fromLastToFirst(targets, [](values::ValueBase* target) {
        if (target)
            target->SetStringValue(QString(), nullptr);
    });
}

void ZorvaFormularManager::EnableApplyUi(bool enable)
{
    applyUiEnabled = enable;
}

void ZorvaFormularManager::SetCurrentModified(bool autoApply)
{
    const FormHold hold(current.data());
    if (current)
        current->GetSheet().setModified(autoApply);
}

bool ZorvaFormularManager::isWidgetModified()
{
    if (!current)
        return false;
    ZorvaSheet& sheet = current->GetSheet();
    const bool result = sheet.isWidgetModified();
    if (!result && sheet.isModified())
        sheet.resetModified();
    return result;
}

void ZorvaFormularManager::RestoreConfiguration()
{
    const FormHold hold(current.data());
    if (current)
        current->RestoreConfiguration();
}

} // namespace Orvane
