#include "formrows.h"

#include <zorvaparser/zorvadelegate.h>
#include <zorvaparser/zorvaformular.h>

namespace Orvane {
namespace Author {

FormRows::FormRows(ZorvaFormular& form)
    : m_nodes(1)
{
    ZorvaSheet& sheet = form.GetSheet();
    m_rootTag = sheet.GetDelegate()->GetString("parametersXmlRootTag", QStringLiteral("Parameters"));
    for (int i = 0; i < sheet.GetWidgetCount(); ++i) {
        const ZorvaSheet::WidgetPointer widget = sheet.GetWidgetAt(i);
        const ControlClass* const known = KindTable::instance().findClass(widget->GetClass());
        m_kinds.append(known ? known : &KindTable::instance().unknownClass());
        ZorvaDelegate& row = *widget->GetDelegate();
        QStringList groups = row.GetXmlPath().split(QLatin1Char('/'), Qt::SkipEmptyParts);
        if (!groups.isEmpty())
            groups.removeLast();
        add(groups, row.HasSeveralXmlTags() ? row.GetAllTags() : QStringList(row.GetXmlTagName()), i);
    }
}

void FormRows::add(const QStringList& groups, const QStringList& tags, int row)
{
    int node = 0;
    for (const QString& group : groups) {
        const int next = m_nodes.at(node).children.value(group, -1);
        node = next >= 0 ? next : append(node, {group}, -1);
    }
    append(node, tags, row);
}

int FormRows::append(int parent, const QStringList& tags, int row)
{
    const int node = m_nodes.size();
    m_nodes.append(Node());
    m_nodes[node].row = row;
    QHash<QString, int>& siblings = m_nodes[parent].children;
    for (const QString& tag : tags) {
        if (!siblings.contains(tag))
            siblings.insert(tag, node);
    }
    return node;
}

FormRows::Place FormRows::find(int group, const QString& tag) const
{
    const int node = m_nodes.at(group).children.value(tag, -1);
    return node < 0 ? Place() : Place{true, m_nodes.at(node).row, node};
}

const ControlClass& FormRows::kind(int row) const
{
    return row < 0 ? KindTable::instance().unknownClass() : *m_kinds.at(row);
}

} // namespace Author
} // namespace Orvane
