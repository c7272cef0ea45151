#include "completionlist.h"

namespace Orvane {
namespace Author {

CompletionList::CompletionList(const OpenDocument& document, const Range& word,
                               const ClientAbilities& abilities)
    : m_abilities(abilities)
    , m_range(rangeJson(document, word))
{
}

void CompletionList::add(const CompletionItem& item)
{
    if (item.label.isEmpty() || m_labels.contains(item.label))
        return;
    m_labels.insert(item.label);
    const bool isSnippet = m_abilities.snippets && !item.snippet.isEmpty();
    const QString plain = item.text.isEmpty() ? item.label : item.text;
    constexpr int snippetFormat = 2;
    QJsonObject json{{QStringLiteral("label"), item.label},
                     {QStringLiteral("kind"), item.kind},
                     {QStringLiteral("sortText"),
                      QStringLiteral("%1%2").arg(item.rank).arg(m_labels.size(), 5, 10, QLatin1Char('0'))},
                     {QStringLiteral("textEdit"),
                      QJsonObject{{QStringLiteral("range"), m_range},
                                  {QStringLiteral("newText"), isSnippet ? item.snippet : plain}}}};
    if (isSnippet)
        json.insert(QStringLiteral("insertTextFormat"), snippetFormat);
    if (!item.detail.isEmpty())
        json.insert(QStringLiteral("detail"), item.detail);
    if (!item.documentation.isEmpty())
        json.insert(QStringLiteral("documentation"), markupJson(item.documentation, m_abilities));
    m_items.append(json);
}

QJsonObject CompletionList::json() const
{
    return {{QStringLiteral("isIncomplete"), false}, {QStringLiteral("items"), m_items}};
}

} // namespace Author
} // namespace Orvane
