#ifndef ZORVA_AUTHOR_COMPLETIONLIST_H
#define ZORVA_AUTHOR_COMPLETIONLIST_H

#include "protocol.h"

#include <QSet>

namespace Orvane {
namespace Author {

/** One thing that may stand at a place. */
struct CompletionItem
{
    enum Kind {
        Text = 1,
        Method = 2,
        Function = 3,
        Variable = 6,
        Class = 7,
        Property = 10,
        Value = 12,
        Enum = 13,
        Keyword = 14,
        Snippet = 15,
        Folder = 19,
        EnumMember = 20,
        Constant = 21,
        Event = 23
    };

    explicit CompletionItem(const QString& itemLabel = QString(), Kind itemKind = Text,
                            const QString& itemDetail = QString())
        : label(itemLabel)
        , kind(itemKind)
        , detail(itemDetail)
    {
    }

    QString label;
    Kind kind;
    QString detail;
    QString documentation; // Markdown
    QString text;          // what is inserted; the label if it is empty
    QString snippet;       // the same with stops, for editors that know them; may be empty
    int rank = 5;          // lower ones stand first
};

/** What a completion offers, each label once, in place of @p word. */
class CompletionList
{
public:
    CompletionList(const OpenDocument& document, const Range& word, const ClientAbilities& abilities);

    void add(const CompletionItem& item);
    bool takesSnippets() const { return m_abilities.snippets; }
    QJsonObject json() const;

private:
    const ClientAbilities m_abilities;
    const QJsonObject m_range;
    QSet<QString> m_labels;
    QJsonArray m_items;
};

} // namespace Author
} // namespace Orvane

#endif
