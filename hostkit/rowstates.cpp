#include "rowstates.h"

#include "rowmark_p.h"

#include <hostkit/formrows.h>
#include <hostkit/rowcontrols.h>

#include <zorvaparser/zorvadelegate.h>

#include <QLabel>
#include <QTextDocument>

namespace hostkit {

using Orvane::ZorvaFormular;
using Orvane::ZorvaSheet;

namespace {

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
    markRows();
}

RowStates::~RowStates()
{
    for (const Row& row : qAsConst(m_rows))
        delete row.mark;
}

void RowStates::markRows()
{
    ZorvaSheet& sheet = m_form->GetSheet();
    const QVector<RowControl> controls = rowControls(*m_form);
    for (int i = 0; i < controls.size(); ++i) {
        const ZorvaSheet::WidgetPointer row = sheet.GetWidgetAt(i);
        const QString path = holdsParameter(*row) ? row->GetDelegate()->GetXmlPath() : QString();
        if (!path.isEmpty() && !m_rows.contains(path))
            addMark(path, controls.at(i).caption, controls.at(i).widgets.value(0));
    }
}

void RowStates::addMark(const QString& path, QLabel* caption, QWidget* control)
{
    if (!caption && !control)
        return;
    Row& row = m_rows[path];
    row.control = control;
    if (control)
        row.toolTip = control->toolTip();
    if (caption) {
        QMargins margins = caption->contentsMargins();
        margins.setRight(margins.right() + RowMark::room);
        caption->setContentsMargins(margins);
        row.mark = new RowMark(caption);
    } else {
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
