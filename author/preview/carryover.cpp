#include "carryover.h"

#include "keyboardfocus.h"

#include <author/parameters/settingwords.h>
#include <hostkit/formrows.h>
#include <zorvaparser/zorvadelegate.h>

#include <QApplication>
#include <QHash>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

/** The widget among @p content's own children in which @p inner lies; null if it lies in none. */
QWidget* controlAround(QWidget* inner, const QWidget* content)
{
    while (inner && inner->parentWidget() != content)
        inner = inner->parentWidget();
    return inner;
}

QList<QLineEdit*> editsOf(QWidget* control)
{
    QList<QLineEdit*> edits = control->findChildren<QLineEdit*>();
    if (auto* const itself = qobject_cast<QLineEdit*>(control))
        edits.prepend(itself);
    return edits;
}

QWidget* controlNamed(PreviewForm& form, const QString& name)
{
    const QWidget* const content = form.form().GetSheet().Content();
    return content ? content->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly) : nullptr;
}

QScrollBar* scrollBarOf(PreviewForm& form)
{
    QWidget* const content = form.form().GetSheet().Content();
    QWidget* const viewport = content ? content->parentWidget() : nullptr;
    auto* const area = viewport ? qobject_cast<QScrollArea*>(viewport->parentWidget()) : nullptr;
    return area ? area->verticalScrollBar() : nullptr;
}

/** In points; 0 if nobody can say. */
int textSizeOf(PreviewForm& form)
{
    const QWidget* const content = form.form().GetSheet().Content();
    return content ? content->font().pointSize() : 0;
}

QHash<int, QVector<Setting>> byRow(const ParameterSet& set)
{
    QHash<int, QVector<Setting>> rows;
    for (const Setting& setting : set.settings())
        rows[setting.row].append(setting);
    return rows;
}

bool saysTheSame(const ControlClass& kind, const QVector<Setting>& left, const QVector<Setting>& right)
{
    return std::equal(left.cbegin(), left.cend(), right.cbegin(), right.cend(),
                      [&kind](const Setting& one, const Setting& other) {
                          return one.key == other.key && meansTheSame(kind, one, other);
                      });
}

/** What an operator would say a row holds. */
QString wordsOf(const SettingWords& words, const QVector<Setting>& settings)
{
    QStringList texts;
    for (const Setting& setting : settings)
        texts << words.of(setting).value;
    return texts.join(QLatin1String(", "));
}

const QString rowIsGone = QStringLiteral("the row is gone");
const QString notTaken = QStringLiteral("the row does not take it any more");

} // namespace

void Carryover::take(PreviewForm& form)
{
    takeTyping(form);
    keep(settingsOf(form) + unsentOf(form));
    takeView(form);
}

// What was kept aside before counts until the operator says something else about the same row.
void Carryover::keep(const QVector<Row>& entered)
{
    QSet<QPair<QString, bool>> again;
    for (const Row& row : entered)
        again.insert({row.key, row.isUnsent});
    m_rows.erase(std::remove_if(m_rows.begin(), m_rows.end(),
                                [&again](const Row& row) {
                                    return again.contains({row.key, row.isUnsent});
                                }),
                 m_rows.end());
    m_rows += entered;
}

QVector<Carryover::Row> Carryover::settingsOf(PreviewForm& form) const
{
    // Mostly nobody has entered anything between two saves.
    if (!form.isChanged())
        return {};
    QVector<Row> entered;
    const SettingWords words(form.form(), form.rows());
    const ParameterSet now = form.settings();
    const QHash<int, QVector<Setting>> first = byRow(form.settingsAtFirst());
    const QHash<int, QVector<Setting>> rows = byRow(now);
    ZorvaSheet& sheet = form.form().GetSheet();
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const QVector<Setting> settings = rows.value(i);
        ZorvaDelegate* const delegate = sheet.GetWidgetAt(i)->GetDelegate();
        const bool isChanged = !saysTheSame(form.rows().kind(i), settings, first.value(i));
        // A row is marked from the first key on, which is giveFocus()'s matter.
        const bool isTyped = m_typing.isOpen && m_typing.row == delegate->objectName();
        if (settings.isEmpty() || (!isChanged && (isTyped || !delegate->isModified())))
            continue;
        Row row;
        row.key = delegate->GetXmlPath();
        if (row.key.isEmpty())
            row.key = delegate->objectName();
        row.control = delegate->objectName();
        row.name = words.of(settings.first()).name();
        row.settings = settings;
        row.text = wordsOf(words, settings);
        row.isMarked = delegate->isModified();
        entered.append(row);
    }
    return entered;
}

QVector<Carryover::Row> Carryover::unsentOf(PreviewForm& form)
{
    QVector<Row> entered;
    const QMap<QString, QString> first = form.unsentTextsAtFirst();
    const QMap<QString, QString> now = form.unsentTexts();
    for (auto text = now.cbegin(); text != now.cend(); ++text) {
        if (first.value(text.key()) == text.value())
            continue;
        Row row;
        row.key = row.name = row.control = text.key();
        row.text = text.value();
        row.isUnsent = true;
        entered.append(row);
    }
    return entered;
}

void Carryover::takeTyping(PreviewForm& form)
{
    m_typing = Typing();
    QWidget* const focus = QApplication::focusWidget();
    QWidget* const control = controlAround(focus, form.form().GetSheet().Content());
    if (!control)
        return;
    m_typing.row = control->objectName();
    m_typing.caption = control->accessibleName().isEmpty() ? m_typing.row : control->accessibleName();
    auto* const edit = qobject_cast<QLineEdit*>(focus);
    // A spin box has the focus in place of its field.
    auto* const field = edit ? edit : focus->findChild<QLineEdit*>(QStringLiteral("qt_spinbox_lineedit"));
    if (!field)
        return;
    m_typing.edit = editsOf(control).indexOf(field);
    m_typing.text = field->text();
    m_typing.cursor = field->cursorPosition();
    m_typing.isOpen = field->isModified() && !field->isReadOnly();
}

void Carryover::takeView(PreviewForm& form)
{
    m_hasView = true;
    m_collapsed = form.form().GetSheet().GetCollapsed();
    m_isAutoApplying = form.form().GetSheet().isAutoApplyEnabled();
    m_textSize = textSizeOf(form);
    const QScrollBar* const bar = scrollBarOf(form);
    m_scrolled = bar ? bar->value() : 0;
}

QVector<KeptAside> Carryover::give(PreviewForm& form)
{
    ZorvaSheet& sheet = form.form().GetSheet();
    if (m_hasView) {
        if (sheet.isAutoApplyEnabled() != m_isAutoApplying)
            sheet.setAutoApplyEnabled(m_isAutoApplying);
        if (sheet.GetCollapsed() != m_collapsed)
            sheet.SetCollapsed(m_collapsed);
        if (textSizeOf(form) != m_textSize)
            sheet.SetFontSize(m_textSize);
    }
    // Rows that are gone, and choices that are not listed, are not even tried.
    QVector<Row> tried;
    QVector<Row> rest;
    QVector<KeptAside> aside;
    const auto keepAside = [&](const Row& row, const QString& why) {
        aside.append({row.name, row.text, why});
        rest.append(row);
    };
    const QMap<QString, QString> unsent = form.unsentTexts();
    for (const Row& row : qAsConst(m_rows)) {
        const QString why = whyNot(form, row, unsent);
        if (why.isEmpty())
            tried.append(row);
        else
            keepAside(row, why);
    }
    if (tried.isEmpty()) {
        m_rows = rest;
        return aside;
    }
    send(form, tried);
    const ParameterSet now = form.settings();
    const QMap<QString, QString> texts = form.unsentTexts();
    for (const Row& row : qAsConst(tried)) {
        const bool isTaken = row.isUnsent ? texts.value(row.key) == row.text : holds(form, now, row);
        if (!isTaken)
            keepAside(row, notTaken);
        else if (row.isMarked)
            form.form().GetSheet().GetWidgetAt(rowOf(form, row))->GetDelegate()->setModified(false);
    }
    m_rows = rest;
    return aside;
}

// Both forms find the rows of settings by the same paths.
int Carryover::rowOf(PreviewForm& form, const Row& row)
{
    const QString xml = parameterXml(form.form().GetEmptyXmlElement(), row.settings);
    const ParameterSet read(form.rows(), SourceText(xml.toUtf8()));
    return read.settings().isEmpty() ? -1 : read.settings().first().row;
}

QString Carryover::whyNot(PreviewForm& form, const Row& row, const QMap<QString, QString>& unsent)
{
    if (row.isUnsent)
        return unsent.contains(row.key) ? QString() : rowIsGone;
    const int position = rowOf(form, row);
    if (position < 0)
        return rowIsGone;
    const ZorvaDelegate* const delegate = form.form().GetSheet().GetWidgetAt(position)->GetDelegate();
    const values::ValueBase* const value = delegate->GetVTValue();
    const QString text = row.settings.first().text();
    // The row would send it as it is, beyond what the operator can enter.
    if (const auto* const number = dynamic_cast<const values::IValueNumeric*>(value)) {
        const bool isWithin = text.toDouble() >= number->GetMin() && text.toDouble() <= number->GetMax();
        return isWithin ? QString() : notTaken;
    }
    if (!value || value->GetType() != values::TypeSelection)
        return QString();
    bool isListed = false;
    form.form().GetEnum(delegate->GetString("enumName", QString()))->FindValue(text, &isListed);
    return isListed ? QString() : notTaken;
}

void Carryover::send(PreviewForm& form, const QVector<Row>& rows)
{
    QVector<Setting> settings;
    for (const Row& row : rows) {
        if (row.isUnsent)
            form.form().SetVTValue(row.key, row.text, nullptr, false);
        else
            settings += row.settings;
    }
    if (!settings.isEmpty())
        form.form().SetXmlString(parameterXml(form.form().GetEmptyXmlElement(), settings));
}

bool Carryover::holds(PreviewForm& form, const ParameterSet& now, const Row& row)
{
    return std::all_of(row.settings.cbegin(), row.settings.cend(), [&](const Setting& setting) {
        const Setting* const found = now.find(setting.key);
        return found && meansTheSame(form.rows().kind(found->row), *found, setting);
    });
}

QVector<KeptAside> Carryover::giveFocus(PreviewForm& form)
{
    if (QScrollBar* const bar = scrollBarOf(form))
        bar->setValue(m_scrolled);
    const Typing typing = m_typing;
    m_typing = Typing();
    if (typing.row.isEmpty())
        return {};
    QWidget* const control = controlNamed(form, typing.row);
    const QList<QLineEdit*> edits = control ? editsOf(control) : QList<QLineEdit*>();
    QLineEdit* const field = edits.value(typing.edit);
    if (!field) {
        if (control)
            focusInside(*control);
        const bool isKept = std::any_of(m_rows.cbegin(), m_rows.cend(), [&typing](const Row& row) {
            return row.control == typing.row && row.text == typing.text;
        });
        if (!typing.isOpen || isKept)
            return {};
        return {{typing.caption, typing.text, control ? notTaken : rowIsGone}};
    }
    field->setFocus();
    if (typing.isOpen && field->text() != typing.text) {
        field->selectAll();
        field->insert(typing.text);
    }
    field->setCursorPosition(typing.cursor);
    if (typing.isOpen && field->text() != typing.text)
        return {{typing.caption, typing.text, notTaken}};
    return {};
}

void Carryover::forget()
{
    m_rows.clear();
}

} // namespace Author
} // namespace Orvane
