#include "rowstates.h"

#include "rowmark_p.h"

#include <hostkit/formrows.h>

#include <zorvaparser/zorvadelegate.h>

#include <QLabel>
#include <QLayout>
#include <QTextDocument>

namespace hostkit {

using Orvane::ZorvaFormular;
using Orvane::ZorvaSheet;

namespace {

const QLatin1String captionPrefix("label");

/** Rows by the name of their caption and, for those without one, of their control. */
QHash<QString, QString> pathsByName(ZorvaFormular& form)
{
    QHash<QString, QString> paths;
    const QStringList all = rowPaths(form);
    for (const QString& path : all) {
        const ZorvaSheet::WidgetPointer row = form.GetSheet().GetWidget(path);
        if (!row)
            continue;
        paths.insert(captionPrefix + row->GetName(), path);
        paths.insert(row->GetName(), path);
    }
    return paths;
}

/** A tool tip that shows @p words, which a device may have said, letter by letter. */
QString letterByLetter(const QString& words)
{
    return Qt::mightBeRichText(words) ? words.toHtmlEscaped() : words;
}

} // namespace

RowStates::RowStates(ZorvaFormular& form, QObject* parent)
    : QObject(parent)
    , m_form(&form)
{
    QWidget* const content = form.GetSheet().Content();
    if (content && content->layout())
        markRows(content);
}

RowStates::~RowStates()
{
    for (const Row& row : qAsConst(m_rows))
        delete row.mark;
}

// In the layout a caption is followed by its row's control.
void RowStates::markRows(QWidget* content)
{
    const QHash<QString, QString> paths = pathsByName(*m_form);
    const QLayout* const layout = content->layout();
    const auto widgetAt = [layout](int index) {
        QLayoutItem* const item = layout->itemAt(index);
        return item ? item->widget() : nullptr;
    };
    for (int i = 0; i < layout->count(); ++i) {
        QWidget* const widget = widgetAt(i);
        const QString path = widget ? paths.value(widget->objectName()) : QString();
        if (path.isEmpty() || m_rows.contains(path))
            continue;
        auto* const caption = qobject_cast<QLabel*>(widget);
        const bool isCaption = caption && widget->objectName().startsWith(captionPrefix);
        addMark(path, isCaption ? caption : nullptr, isCaption ? widgetAt(i + 1) : widget);
    }
}

void RowStates::addMark(const QString& path, QLabel* caption, QWidget* control)
{
    Row& row = m_rows[path];
    row.control = control;
    if (control)
        row.toolTip = control->toolTip();
    if (caption) {
        QMargins margins = caption->contentsMargins();
        margins.setRight(margins.right() + RowMark::room);
        caption->setContentsMargins(margins);
        row.mark = new RowMark(caption);
    } else if (control) {
        row.mark = new RowMark(control);
    }
}

QString RowStates::pathOf(const QString& parameter) const
{
    if (m_rows.contains(parameter) || !m_form)
        return parameter;
    const ZorvaSheet::WidgetPointer row = rowOf(*m_form, parameter);
    return row ? row->GetDelegate()->GetXmlPath() : parameter;
}

void RowStates::set(const QString& parameter, RowState state, const QString& why)
{
    const QString path = pathOf(parameter);
    Row& row = m_rows[path];
    if (row.state == state && row.why == why)
        return;
    row.state = state;
    row.why = why;
    if (!m_stale)
        show(path, row);
}

void RowStates::setStale(bool stale, const QString& why)
{
    if (stale == m_stale && why == m_staleWhy)
        return;
    m_stale = stale;
    m_staleWhy = why;
    for (auto row = m_rows.begin(); row != m_rows.end(); ++row)
        show(row.key(), *row);
}

RowState RowStates::state(const QString& parameter) const
{
    return m_stale ? RowState::Stale : keptState(parameter);
}

RowState RowStates::keptState(const QString& parameter) const
{
    return m_rows.value(pathOf(parameter)).state;
}

QString RowStates::why(const QString& parameter) const
{
    const QString own = m_rows.value(pathOf(parameter)).why;
    return m_stale ? m_staleWhy : own;
}

void RowStates::show(const QString& path, Row& row)
{
    const RowState shown = m_stale ? RowState::Stale : row.state;
    const QString why = m_stale ? m_staleWhy : row.why;
    const QString words = why.isEmpty() ? word(shown) : QStringLiteral("%1: %2").arg(word(shown), why);
    if (row.mark) {
        row.mark->setState(shown);
        row.mark->setToolTip(letterByLetter(words));
        row.mark->setAccessibleName(words);
    }
    if (row.control) {
        row.control->setToolTip(row.toolTip.isEmpty()
                                    ? letterByLetter(words)
                                    : row.toolTip + QLatin1String("<br>") + words.toHtmlEscaped());
        row.control->setAccessibleDescription(words);
    }
    Q_EMIT changed(path, shown, why);
}

QString RowStates::word(RowState state)
{
    switch (state) {
    case RowState::Unread:
        return tr("not read");
    case RowState::Requested:
        return tr("requested");
    case RowState::Confirmed:
        return tr("confirmed");
    case RowState::Differing:
        return tr("differing");
    case RowState::Refused:
        return tr("refused");
    case RowState::Stale:
        return tr("stale");
    }
    return QString();
}

} // namespace hostkit
