#include "scriptnames.h"

#include <algorithm>

namespace Orvane {
namespace Author {

ScriptNames::ScriptNames(const QString& code)
    : m_tokens(scriptTokens(code))
{
    findScopes();
}

bool ScriptNames::isSign(int index, const char* sign) const
{
    return index >= 0 && index < m_tokens.size() && m_tokens.at(index).is(sign);
}

bool ScriptNames::isWord(int index) const
{
    return index >= 0 && index < m_tokens.size() && m_tokens.at(index).kind == ScriptToken::Word;
}

// A function's own name and its arguments' belong to what begins behind the word "function".
void ScriptNames::findScopes()
{
    m_scopes.append({-1, 0, m_tokens.size(), {}});
    QVector<int> braces; // the scope that each open brace ends; -1 for none
    int current = 0;
    bool isAwaited = false;
    for (int i = 0; i < m_tokens.size(); ++i) {
        const bool isCatch = isSign(i, "catch") && !isSign(i - 1, ".");
        if ((isSign(i, "function") && !isSign(i - 1, ".")) || isCatch) {
            if (!isCatch && isWord(i + 1))
                declare(current, i + 1);
            m_scopes.append({current, i, m_tokens.size(), {}});
            current = m_scopes.size() - 1;
            declareParameters(current, isCatch || !isWord(i + 1) ? i + 1 : i + 2);
            isAwaited = true;
        } else if (isSign(i, "{")) {
            braces.append(isAwaited ? current : -1);
            isAwaited = false;
        } else if (isSign(i, "}") && !braces.isEmpty()) {
            const int ended = braces.takeLast();
            if (ended >= 0) {
                m_scopes[ended].end = i + 1;
                current = m_scopes.at(ended).parent;
            }
        } else if (isSign(i, "var") || isSign(i, "const")) {
            declareVariables(current, i + 1);
        }
    }
}

void ScriptNames::declare(int scope, int token)
{
    QHash<QString, int>& names = m_scopes[scope].names;
    if (!names.contains(m_tokens.at(token).text))
        names.insert(m_tokens.at(token).text, token);
}

void ScriptNames::declareParameters(int scope, int index)
{
    for (; index < m_tokens.size() && !isSign(index, ")") && !isSign(index, "{"); ++index) {
        if (isWord(index))
            declare(scope, index);
    }
}

void ScriptNames::declareVariables(int scope, int index)
{
    int nesting = 0;
    bool isAwaited = true;
    for (; index < m_tokens.size() && !isSign(index, ";") && nesting >= 0; ++index) {
        if (isAwaited && isWord(index))
            declare(scope, index);
        isAwaited = nesting == 0 && isSign(index, ",");
        if (isSign(index, "(") || isSign(index, "[") || isSign(index, "{"))
            ++nesting;
        else if (isSign(index, ")") || isSign(index, "]") || isSign(index, "}"))
            --nesting;
        // Without a semicolon a declaration ends with its line, where nothing holds it together.
        const bool mayEnd = nesting == 0 && isWord(index) && isWord(index + 1);
        if (mayEnd && !isSign(index, "in") && !isSign(index + 1, "in") && !isSign(index, "function") &&
            !isSign(index, "new") && !isSign(index, "typeof") && !isSign(index + 1, "instanceof"))
            return;
    }
}

int ScriptNames::scopeOf(int token) const
{
    const auto behind =
        std::upper_bound(m_scopes.cbegin(), m_scopes.cend(), token,
                         [](int wanted, const ScriptScope& scope) { return wanted < scope.begin; });
    int scope = static_cast<int>(behind - m_scopes.cbegin()) - 1;
    while (scope > 0 && token >= m_scopes.at(scope).end)
        scope = m_scopes.at(scope).parent;
    return qMax(0, scope);
}

bool ScriptNames::isCaptured(int token, const QString& name) const
{
    for (int scope = scopeOf(token); scope > 0; scope = m_scopes.at(scope).parent) {
        if (m_scopes.at(scope).names.contains(name))
            return true;
    }
    return false;
}

QSet<QString> ScriptNames::declaredAt(int token) const
{
    QSet<QString> names;
    for (int scope = scopeOf(token); scope >= 0; scope = m_scopes.at(scope).parent)
        names.unite(QSet<QString>(m_scopes.at(scope).names.keyBegin(), m_scopes.at(scope).names.keyEnd()));
    return names;
}

/** The key of an object literal, or a label. */
bool ScriptNames::isKey(int token) const
{
    return isSign(token + 1, ":") && (isSign(token - 1, "{") || isSign(token - 1, ",") ||
                                      isSign(token - 1, ";") || isSign(token - 1, "}"));
}

bool ScriptNames::isName(int token) const
{
    return isWord(token) && !isSign(token - 1, ".") && !isKey(token);
}

int ScriptNames::declaringScope(int token) const
{
    if (!isName(token))
        return -1;
    int scope = scopeOf(token);
    // The name of a function belongs to what is around it.
    if (isSign(token - 1, "function"))
        scope = m_scopes.at(scope).parent;
    while (scope >= 0 && !m_scopes.at(scope).names.contains(m_tokens.at(token).text))
        scope = m_scopes.at(scope).parent;
    return scope;
}

bool ScriptNames::isGlobal(int token) const
{
    return isName(token) && declaringScope(token) <= 0;
}

int ScriptNames::ownerOf(int token) const
{
    return isSign(token - 1, ".") && isWord(token - 2) && !isSign(token - 3, ".") ? token - 2 : -1;
}

int ScriptNames::tokenAt(int offset) const
{
    const auto behind =
        std::upper_bound(m_tokens.cbegin(), m_tokens.cend(), offset,
                         [](int wanted, const ScriptToken& token) { return wanted < token.offset; });
    const int index = static_cast<int>(behind - m_tokens.cbegin()) - 1;
    const auto touches = [&](int candidate) {
        return candidate >= 0 && offset <= m_tokens.at(candidate).offset + m_tokens.at(candidate).text.size();
    };
    // Between two tokens the word counts, on whichever side it stands.
    if (touches(index) && !isWord(index) && touches(index - 1) && isWord(index - 1))
        return index - 1;
    return touches(index) ? index : -1;
}

} // namespace Author
} // namespace Orvane
