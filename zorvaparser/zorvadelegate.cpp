#include "zorvadelegate.h"

#include "rowwatch_p.h"

#include <zorvaparser/zorvasheet.h>
#include <zorvaparser/zorvawidget.h>

#include <layout/floatgrouplayout.h>
#include <layout/markup.h>
#include <vkbase/errorhandler.h>
#include <vkbase/notifying.h>
#include <vkbase/qtrace.h>

#include <QAbstractSpinBox>
#include <QApplication>
#include <QPushButton>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QXmlStreamWriter>

namespace Orvane {

namespace {

QString PlainText(const QString& text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText().simplified()
                                     : text;
}

} // namespace

ZorvaDelegate::ZorvaDelegate(ZorvaWidget* owningWidget)
    : widget(owningWidget)
    , applyMode(static_cast<eApplyMode>(0))
    , generateParameterXml(false)
    , modified(false)
    , groupVisible(true)
{
    // One list for all rows: it is shared until a kind defines more.
    static const QStringList baseProperties{QStringLiteral("enabled"), QStringLiteral("readOnly"),
                                            QStringLiteral("visible"), QStringLiteral("toolTip")};
    definedProperties = baseProperties;
}

ZorvaDelegate::ZorvaDelegate(ZorvaSheet* sheet)
    : ZorvaDelegate(static_cast<ZorvaWidget*>(nullptr))
{
    ownSheet = sheet;
}

ZorvaDelegate::~ZorvaDelegate()
{
    for (RowWatch* watch = watches; watch; watch = watch->older())
        watch->forget();
}

void ZorvaDelegate::LetValuesGo() {}

void ZorvaDelegate::CreateValueTree() {}

void ZorvaDelegate::ResyncValueTree()
{
    if (ErrorHandler::Traces(ErrorHandler::TraceNotes))
        _Q_Trace(QStringLiteral("ResyncValueTree empty implementation for %1").arg(xmlTagName),
                 QStringLiteral("zorvadelegate"), __LINE__);
}

void ZorvaDelegate::CreateGUI(FloatGroupLayout* layout)
{
    const QString text = PropertyText("labelText");
    if (text.isEmpty())
        return;
    label = layout->addLabel(Translate(text), nullptr);
    label->setObjectName(QStringLiteral("label") + widget->GetName());
    if (!property("visible").toBool())
        label->hide();
}

void ZorvaDelegate::Retranslate()
{
    if (label)
        Markup::show(label, Translate(PropertyText("labelText")));
    UpdateNames();
}

void ZorvaDelegate::GetXml(QXmlStreamWriter&) const {}

void ZorvaDelegate::ReadXml(QXmlStreamReader&) {}

values::ValueBase* ZorvaDelegate::GetVTValue() const
{
    return nullptr;
}

void ZorvaDelegate::EnableInput(bool enable, bool)
{
    QVariant off(false);
    EnableProperty(QStringLiteral("enabled"), enable, &off);
}

void ZorvaDelegate::setApplyMode(eApplyMode mode)
{
    applyMode = mode;
}

void ZorvaDelegate::setEnabled(bool flag)
{
    setProperty("enabled", flag);
}

void ZorvaDelegate::setGenerateParameterXml(bool flag)
{
    setProperty("generateParameterXml", flag);
}

void ZorvaDelegate::setReadOnly(bool flag)
{
    setProperty("readOnly", flag);
}

void ZorvaDelegate::setVisible(bool flag)
{
    setProperty("visible", flag);
}

void ZorvaDelegate::setLabelText(QString text)
{
    ChangeProperty("labelText", text);
}

void ZorvaDelegate::setCustomProperty(QString name, QVariant value)
{
    if (value == customProperty(name))
        return;
    customProperties.insert(name, value);
    Raise(&ZorvaDelegate::customPropertyChanged, name, value);
}

void ZorvaDelegate::setGroupVisible(bool flag)
{
    if (flag == groupVisible)
        return;
    groupVisible = flag;
    QVariant hidden(false);
    EnableProperty(QStringLiteral("visible"), flag, &hidden);
}

void ZorvaDelegate::setFocus() {}

void ZorvaDelegate::setModified(bool autoApply)
{
    if (!generateParameterXml)
        return;
    if (!modified && widget)
        widget->NoteModified();
    modified = true;
    if (ZorvaSheet* const sheet = GetSheet())
        sheet->setModified(autoApply);
}

void ZorvaDelegate::resetModified()
{
    modified = false;
}

void ZorvaDelegate::forceFinishEditing() {}

QVariant ZorvaDelegate::customProperty(QString name)
{
    return customProperties.value(name, QVariant());
}

void ZorvaDelegate::Update(Observable*, TChangeCode) {}

bool ZorvaDelegate::isEnabled()
{
    return property("enabled").toBool();
}

bool ZorvaDelegate::isGroupVisible()
{
    return groupVisible;
}

bool ZorvaDelegate::isModified()
{
    return modified;
}

QString ZorvaDelegate::Translate(const QString& text)
{
    const QString translated = QCoreApplication::translate(objectName().toLatin1().constData(),
                                                           text.toUtf8().constData(), nullptr, -1);
    return translated == text ? text : translated; // one text in memory
}

void ZorvaDelegate::WriteUnitAttribute(QXmlStreamWriter& writer) const
{
    // Most rows have none, which their names alone tell for a quarter of a look-up.
    static const QByteArray name = QByteArrayLiteral("unit");
    if (!dynamicPropertyNames().contains(name))
        return;
    const QString unit = PropertyText("unit");
    if (!unit.isEmpty())
        writer.writeAttribute(QStringLiteral("unit"), unit);
}

bool ZorvaDelegate::RunWatched(void (*call)(const void*), const void* target)
{
    const RowWatch row(*this);
    call(target);
    return static_cast<bool>(row);
}

bool ZorvaDelegate::TakeContent(const char* name, const QVariant& content)
{
    bool changed = false;
    return Watched([&] { changed = ChangeProperty(name, content); }) && changed;
}

bool ZorvaDelegate::MarkModified(bool autoApply)
{
    return Watched([&] { setModified(autoApply); });
}

void ZorvaDelegate::ApplyNow()
{
    if (ZorvaSheet* const sheet = GetSheet())
        sheet->applyNow();
}

bool ZorvaDelegate::IsLetGo() const
{
    return FormHold::isLetGo(GetFormular());
}

void ZorvaDelegate::PlaceControl(FloatGroupLayout* layout, QWidget* control)
{
    layout->addWidget(control);
    layout->addGroup();
    NameControl(control);
}

void ZorvaDelegate::NameControl(QWidget* control, const QString& part)
{
    // A label speaks for itself, and a host's widget may have a name already.
    if (!control || qobject_cast<QLabel*>(control) || !control->accessibleName().isEmpty())
        return;
    namedControls.append({control, part});
    ApplyName(namedControls.constLast());
    // Qt offers the tool tip as description, mark-up and all. Number controls tell their range.
    if (Qt::mightBeRichText(control->toolTip()) && !qobject_cast<QAbstractSpinBox*>(control))
        control->setAccessibleDescription(PlainText(control->toolTip()));
}

namespace {

/** The text of a button as it is shown. */
QString WithoutMnemonic(const QString& text)
{
    QString shown;
    for (int i = 0; i < text.size(); ++i) {
        const bool isMark = text.at(i) == QLatin1Char('&');
        if (!isMark || ++i < text.size())
            shown.append(text.at(i));
    }
    return shown.simplified();
}

} // namespace

void ZorvaDelegate::ApplyName(const NamedControl& named)
{
    if (!named.control)
        return;
    const auto* const button = qobject_cast<const QPushButton*>(named.control);
    const bool saysItself = button && named.part.isEmpty();
    const QString part = saysItself ? WithoutMnemonic(button->text()) : named.part;
    const QString caption = label ? GetTranslated("labelText") : widget->GetXmlTagName();
    QStringList words{PlainText(caption).trimmed(), part};
    if (saysItself && !label && !part.isEmpty())
        words.removeFirst(); // its text says more than the tag
    words.removeAll(QString());
    // A caption alone is the label's own text in memory.
    const QString name = words.size() == 1 ? words.constFirst() : words.join(QLatin1String(", "));
    named.control->setAccessibleName(name);
    // A compound control hands the focus on, and the name with it.
    if (QWidget* const inner = named.control->focusProxy())
        inner->setAccessibleName(name);
}

void ZorvaDelegate::UpdateNames()
{
    for (const NamedControl& named : qAsConst(namedControls))
        ApplyName(named);
}

QString ZorvaDelegate::FallbackToolTip()
{
    return Markup::toolTip(label ? GetTranslated("labelText") : widget->GetXmlTagName());
}

bool ZorvaDelegate::MayBeAtWork(const QWidget* control) const
{
    const QWidget* const focus = control ? QApplication::focusWidget() : nullptr;
    return watches || isNotifying() || (focus && (focus == control || control->isAncestorOf(focus)));
}

void ZorvaDelegate::Drop(QWidget* control, bool isAtWork)
{
    if (!isAtWork)
        delete control;
    else if (control)
        control->deleteLater();
}

void ZorvaDelegate::FocusControl(QWidget* control)
{
    if (control)
        control->setFocus(Qt::OtherFocusReason);
}

void ZorvaDelegate::WriteTextElement(QXmlStreamWriter& writer, const QString& text, bool withUnit) const
{
    writer.writeStartElement(GetXmlTagName());
    if (withUnit)
        WriteUnitAttribute(writer);
    writer.writeCharacters(text);
    writer.writeEndElement();
}

const QString& ZorvaDelegate::ControlName() const
{
    return widget->GetName();
}

ZorvaSheet* ZorvaDelegate::GetSheet() const
{
    return widget ? widget->GetSheet() : ownSheet;
}

ZorvaFormular* ZorvaDelegate::GetFormular() const
{
    const ZorvaSheet* const sheet = GetSheet();
    return sheet ? sheet->GetFormular() : nullptr;
}

} // namespace Orvane
