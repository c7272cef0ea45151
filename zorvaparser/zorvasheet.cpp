#include "zorvasheet.h"

#include "formhold_p.h"
#include "guardedrollback_p.h"
#include "textsize_p.h"
#include "typing_p.h"
#include "widgets/zorvasheetui.h"
#include "xmlwalk_p.h"
#include "zorvaelement_p.h"

#include <zorvaparser/zorvaformular.h>

#include <layout/bulkchange.h>

#include <QPointer>
#include <QSet>

#include <algorithm>

namespace Orvane {

namespace {

QSet<QString> toSet(const QStringList& list)
{
    return QSet<QString>(list.cbegin(), list.cend());
}

} // namespace

ZorvaSheet::ZorvaSheet(ZorvaFormular* owningFormular)
    : rootElement(new ZorvaElement)
    , formular(owningFormular)
    , sheetUi(new ZorvaSheetUi(this))
    , enableFormular(true)
    , enableHost(true)
    , enableValues(true)
    , active(true)
{
}

ZorvaSheet::~ZorvaSheet()
{
    // The window may outlive the sheet, and every control hears that its value goes.
    const BulkChange bulk(Content(), BulkChange::Painting);
    delete sheetUi;
    formular = nullptr;
    delete rootElement;
    for (const WidgetPointer& widget : qAsConst(widgets))
        widget->LeaveSheet();
    widgets.clear();
}

template <typename Visit>
void ZorvaSheet::VisitRows(const Visit& visit) const
{
    const FormHold form(formular);
    const QList<WidgetPointer> rows = widgets;
    for (const WidgetPointer& row : rows) {
        if (!visit(*row) || !form)
            return;
    }
}

template <typename Act>
void ZorvaSheet::ForEachRow(const Act& act) const
{
    VisitRows([&act](ZorvaWidget& row) {
        act(row);
        return true;
    });
}

void ZorvaSheet::ParseZORVA(QXmlStreamReader& reader)
{
    name = reader.attributes().value(QLatin1String("name")).toString();
    formular->NameForScript(name, sheetUi);
    int index = widgets.count();
    walkChildren(reader, [&] {
        if (reader.name() == QLatin1String("Widget")) {
            const WidgetPointer widget(new ZorvaWidget(this));
            InstallWidget(widget, -1);
            widget->ParseZORVA(reader, index++);
            // The XML path is known only now that the properties are read.
            rootElement->addWidget(widget);
        } else if (reader.name() == QLatin1String("Properties")) {
            sheetUi->ParseProperties(reader, false);
        } else if (reader.name() == QLatin1String("CustomProperties")) {
            sheetUi->ParseProperties(reader, true);
        } else {
            reader.skipCurrentElement();
        }
    });
}

void ZorvaSheet::ParseChangedZORVA(QXmlStreamReader& reader)
{
    const FormHold form(formular);
    const BulkChange bulk(Content());
    walkChildren(reader, [&] {
        if (!form)
            return;
        const QString widgetName = reader.attributes().value(QLatin1String("name")).toString();
        if (reader.name() != QLatin1String("Widget")) {
            reader.skipCurrentElement();
            return;
        }
        EnsureListIndex();
        const int index = indexByName.value(widgetName, -1);
        // An unknown widget is not skipped: the walk goes on inside it, and its end
        // tag ends the sheet.
        const WidgetPointer row = index < 0 ? WidgetPointer() : widgets.at(index);
        if (row)
            row->GetDelegate()->ParseProperties(reader, false);
    });
}

void ZorvaSheet::CreateValueTree(const QString& path)
{
    const BulkChange bulk(Content());
    FormHold::freePlaces();
    vtPath = path;
    ForEachRow([&path](ZorvaWidget& row) { row.CreateValueTree(path); });
}

void ZorvaSheet::LetValuesGo()
{
    for (const WidgetPointer& widget : QList<WidgetPointer>(widgets))
        widget->GetDelegate()->LetValuesGo();
}

void ZorvaSheet::ResyncValueTree()
{
    const BulkChange bulk(Content());
    ForEachRow([](ZorvaWidget& row) { row.ResyncValueTree(); });
}

void ZorvaSheet::CreateGUI(bool createApplyUi)
{
    sheetUi->CreateGUI(createApplyUi);
    CreateRows(nullptr, true);
}

void ZorvaSheet::CreateGUI(bool createApplyUi, const QStringList& names, bool exclude)
{
    sheetUi->CreateGUI(createApplyUi);
    CreateRows(&names, exclude);
}

void ZorvaSheet::CreateRows(const QStringList* names, bool exclude)
{
    const QPointer<FloatGroupLayout> layout = sheetUi->GetLayout();
    if (!layout || layout->count() > 0)
        return;
    const FormHold form(formular);
    const QSet<QString> listed = names ? toSet(*names) : QSet<QString>();
    VisitRows([&](ZorvaWidget& row) {
        const bool isListed = listed.contains(row.GetName()) || listed.contains(row.GetXmlTagName());
        if (names && isListed == exclude)
            row.SetSelected(false);
        else
            row.CreateGUI(layout);
        return !layout.isNull();
    });
    if (!form)
        return;
    ForEachRow([](ZorvaWidget& row) { row.GetDelegate()->PushHeldBackProperties(); });
    if (!form)
        return;
    const bool open = enableFormular && enableHost;
    if (!open || !enableValues)
        SetEnableInput(false, open);
}

QWidget* ZorvaSheet::GetGUI()
{
    return sheetUi->GetGUI();
}

QWidget* ZorvaSheet::Content() const
{
    const FloatGroupLayout* const layout = sheetUi->GetLayout();
    return layout ? layout->parentWidget() : nullptr;
}

ZorvaDelegate* ZorvaSheet::GetDelegate()
{
    return sheetUi;
}

ZorvaSheet::WidgetPointer ZorvaSheet::GetWidgetAt(int index) const
{
    return widgets.at(index);
}

ZorvaSheet::WidgetPointer ZorvaSheet::Lookup(const QString& path) const
{
    if (path.contains(QLatin1Char('/')))
        return rootElement->findWidget(path);
    if (const WidgetPointer widget = rootElement->childWidget(path))
        return widget;
    EnsureTagIndex();
    const int index = indexByTag.value(path, -1);
    return index < 0 ? WidgetPointer() : widgets.at(index);
}

ZorvaSheet::WidgetPointer ZorvaSheet::GetWidget(const QString& path)
{
    return Lookup(path);
}

int ZorvaSheet::IndexOfWidget(const QString& path) const
{
    return IndexOfWidget(Lookup(path));
}

int ZorvaSheet::IndexOfWidget(WidgetPointer widget) const
{
    EnsureListIndex();
    return indexByWidget.value(widget.data(), -1);
}

ZorvaWidget* ZorvaSheet::FindWidget(const QString& className) const
{
    for (const WidgetPointer& widget : widgets) {
        if (widget->GetClass() == className)
            return widget.data();
    }
    return nullptr;
}

QList<ZorvaSheet::WidgetPointer> ZorvaSheet::FindWidgetsOfClass(const QString& className)
{
    QList<WidgetPointer> found;
    for (const WidgetPointer& widget : qAsConst(widgets)) {
        if (widget->GetClass() == className)
            found.append(widget);
    }
    return found;
}

ZorvaSheet::WidgetPointer ZorvaSheet::InsertWidget(QString widgetName, QString labelText, QWidget* widget,
                                                   int index)
{
    const WidgetPointer row(new ZorvaWidget(this));
    row->SetExtWidget(widgetName, labelText, widget);
    InstallWidget(row, index);
    rootElement->addWidget(row);
    return row;
}

void ZorvaSheet::InstallWidget(const WidgetPointer& widget, int index)
{
    widgets.insert(index < 0 ? widgets.count() : qMin(index, widgets.count()), widget);
    RowsChanged();
}

void ZorvaSheet::RowsChanged()
{
    listIndexValid = false;
    TagsChanged();
}

void ZorvaSheet::TagsChanged()
{
    tagIndexValid = false;
}

void ZorvaSheet::EnsureTagIndex() const
{
    if (tagIndexValid)
        return;
    indexByTag.clear();
    // Backwards, so that the first of equals stays.
    for (int i = widgets.count() - 1; i >= 0; --i)
        indexByTag.insert(widgets.at(i)->GetXmlTagName(), i);
    tagIndexValid = true;
}

void ZorvaSheet::EnsureListIndex() const
{
    if (listIndexValid)
        return;
    indexByName.clear();
    indexByWidget.clear();
    for (int i = widgets.count() - 1; i >= 0; --i) {
        indexByName.insert(widgets.at(i)->GetName(), i);
        indexByWidget.insert(widgets.at(i).data(), i);
    }
    listIndexValid = true;
}

void ZorvaSheet::SelectWidgets(const QStringList& list, bool select)
{
    const QSet<QString> listed = toSet(list);
    for (const WidgetPointer& widget : qAsConst(widgets)) {
        const bool hit = list.isEmpty() || listed.contains(widget->GetDelegate()->GetXmlPath());
        widget->SetSelected(hit ? select : !select);
    }
}

// What was half typed may make the host switch this gate itself.
bool ZorvaSheet::MaySwitch(const bool& gate, bool enable) const
{
    return gate != enable && (enable || FinishTyping()) && gate != enable;
}

bool ZorvaSheet::FinishTyping() const
{
    const FormHold form(formular);
    finishTyping(Content());
    return static_cast<bool>(form);
}

void ZorvaSheet::ShowGroup(const QString& headlineName, bool visible)
{
    const FormHold form(formular);
    if (!visible && !FinishTyping())
        return;
    const BulkChange bulk(Content());
    bool inside = false;
    VisitRows([&](ZorvaWidget& row) {
        if (row.IsHeadline()) {
            if (inside)
                return false;
            inside = row.GetName() == headlineName;
        }
        if (inside)
            row.GetDelegate()->setVisible(visible);
        return true;
    });
}

void ZorvaSheet::setGroupVisible(ZorvaWidget* headline, bool visible)
{
    const FormHold form(formular);
    if (!visible && !FinishTyping())
        return;
    const BulkChange bulk(Content());
    bool inside = false;
    VisitRows([&](ZorvaWidget& row) {
        if (inside && row.IsHeadline())
            return false;
        inside = inside || &row == headline;
        if (inside)
            row.GetDelegate()->setGroupVisible(visible);
        return true;
    });
}

QStringList ZorvaSheet::GetCollapsed()
{
    QStringList collapsed;
    for (const WidgetPointer& widget : qAsConst(widgets)) {
        if (widget->IsHeadline() && !widget->GetDelegate()->isGroupVisible())
            collapsed.append(widget->GetName());
    }
    return collapsed;
}

void ZorvaSheet::SetCollapsed(const QStringList& list)
{
    const FormHold form(formular);
    const BulkChange bulk(Content());
    const QSet<QString> collapsed = toSet(list);
    const bool closesOne = std::any_of(widgets.cbegin(), widgets.cend(), [&](const WidgetPointer& row) {
        return row->IsHeadline() && row->GetDelegate()->isGroupVisible() &&
               collapsed.contains(row->GetName());
    });
    if (closesOne && !FinishTyping())
        return;
    bool inside = false;
    bool visible = true;
    ForEachRow([&](ZorvaWidget& row) {
        if (row.IsHeadline()) {
            inside = true;
            visible = !collapsed.contains(row.GetName());
        }
        if (inside)
            row.GetDelegate()->setGroupVisible(visible);
    });
}

void ZorvaSheet::SetFontSize(int size)
{
    QWidget* const top = GetGUI();
    if (size <= 0 || !top)
        return;
    const BulkChange bulk(Content());
    QWidget* const target = top->parentWidget() ? top->parentWidget() : top;
    // A style sheet that a hidden window hears of later would bring its own size along.
    target->ensurePolished();
    if (target->styleSheet().isEmpty()) {
        QFont font = target->font();
        setTextSize(font, size);
        target->setFont(font);
        // Below a style sheet Qt does not hand fonts on to children.
        if (shownTextSize(*top) == size)
            return;
    }
    target->setStyleSheet(QStringLiteral("font-size: %1pt;").arg(size));
}

void ZorvaSheet::SetEnableInput(bool enable, bool restricted)
{
    const FormHold form(formular);
    const BulkChange bulk(Content(), BulkChange::Painting);
    // Whoever switches again in answer has the last word.
    const int turn = ++inputTurn;
    VisitRows([&](ZorvaWidget& row) {
        row.GetDelegate()->EnableInput(enable, restricted);
        return form && turn == inputTurn;
    });
    if (form && turn == inputTurn)
        sheetUi->EnableInput(enable, restricted);
}

void ZorvaSheet::EnableInput(bool enable, eEnableScope scope)
{
    const FormHold form(formular);
    if (scope == ekValuesEnableScope) {
        if (!MaySwitch(enableValues, enable))
            return;
        enableValues = enable;
        if (enableFormular && enableHost)
            SetEnableInput(enable, true);
        return;
    }
    if (scope != ekFormularEnableScope && scope != ekHostEnableScope)
        return;
    bool& own = scope == ekFormularEnableScope ? enableFormular : enableHost;
    const bool& other = scope == ekFormularEnableScope ? enableHost : enableFormular;
    if (!MaySwitch(own, enable))
        return;
    own = enable;
    if (!other)
        return;
    SetEnableInput(enable, false);
    // The values' gate may still be closed.
    if (form && enable && enableFormular && enableHost && !enableValues)
        SetEnableInput(false, true);
}

bool ZorvaSheet::IsInputEnabled(eEnableScope scope) const
{
    switch (scope) {
    case ekFormularEnableScope:
        return enableFormular;
    case ekHostEnableScope:
        return enableHost;
    case ekValuesEnableScope:
        return enableValues;
    }
    return false;
}

void ZorvaSheet::setActive(bool flag)
{
    active = flag;
}

bool ZorvaSheet::isModified()
{
    return sheetUi->isModified();
}

bool ZorvaSheet::isWidgetModified() const
{
    if (!sheetUi->isModified())
        return false;
    for (const WidgetPointer& widget : widgets) {
        if (widget->IsSelected() && widget->isModified())
            return true;
    }
    return false;
}

void ZorvaSheet::setModified(bool autoApply)
{
    if (active)
        sheetUi->setModified(autoApply);
}

void ZorvaSheet::resetModified()
{
    sheetUi->resetModified();
}

void ZorvaSheet::applyNow()
{
    sheetUi->applyNow();
}

void ZorvaSheet::killAutoApplyTimer()
{
    sheetUi->killAutoApplyTimer();
}

bool ZorvaSheet::isAutoApplyEnabled()
{
    return sheetUi->isAutoApplyEnabled();
}

void ZorvaSheet::setAutoApplyEnabled(bool enable)
{
    sheetUi->setAutoApplyEnabled(enable);
}

void ZorvaSheet::GetXml(QXmlStreamWriter& writer, bool withValues, bool modifiedOnly) const
{
    if (modifiedOnly)
        modifiedOnly = sheetUi->GetBool(QStringLiteral("emitOnlyModifiedParameters"), true);
    sheetUi->WriteRootStart(writer);
    if (withValues)
        rootElement->writeChildren(writer, modifiedOnly);
    writer.writeEndElement();
}

void ZorvaSheet::Retranslate()
{
    const BulkChange bulk(Content());
    ForEachRow([](ZorvaWidget& row) { row.GetDelegate()->Retranslate(); });
}

void ZorvaSheet::ReadXml(QXmlStreamReader& reader)
{
    const GuardedRollback<FormHold, bool> inactive(formular, active, false);
    const BulkChange bulk(Content());
    rootElement->readChildren(reader, [&inactive] { return static_cast<bool>(inactive); });
}

} // namespace Orvane
