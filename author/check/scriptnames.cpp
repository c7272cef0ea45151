#include "scriptnames.h"

#include <algorithm>
#include <initializer_list>

namespace Orvane {
namespace Author {

namespace {

constexpr int noName = -2;

QChar closingOf(const ScriptToken& token)
{
    if (token.is("("))
        return QLatin1Char(')');
    if (token.is("["))
        return QLatin1Char(']');
    return token.is("{") ? QLatin1Char('}') : QChar();
}

} // namespace

ScriptNames::ScriptNames(const QString& code)
    : m_tokens(scriptTokens(code))
{
    findScopes();
    findMeanings(code);
}

bool ScriptNames::is(int token, const char* text) const
{
    return token >= 0 && token < m_tokens.size() && m_tokens.at(token).is(text);
}

bool ScriptNames::isWord(int token) const
{
    return token >= 0 && token < m_tokens.size() && m_tokens.at(token).kind == ScriptToken::Word;
}

// A function's own name and its arguments' belong to what begins behind the word "function".
void ScriptNames::findScopes()
{
    m_scopes.append({-1, 0, 0, m_tokens.size(), {}});
    QVector<Bracket> brackets{Bracket()};
    int current = 0;
    int openBraces = 0;
    bool isBodyAwaited = false;
    for (int i = 0; i < m_tokens.size(); ++i) {
        declareVariables(m_scopes.at(current).function, i, brackets.last());
        const QChar closing = closingOf(m_tokens.at(i));
        if (beginsScope(i)) {
            current = addScope(current, i);
            isBodyAwaited = true;
        } else if (!closing.isNull()) {
            const bool isBody = isBodyAwaited && is(i, "{");
            brackets.append({closing, isBody ? current : -1});
            isBodyAwaited = isBodyAwaited && !isBody;
            openBraces += is(i, "{") ? 1 : 0;
        } else if (is(i, "}") && openBraces > 0) {
            // What is still open in a block ends with it.
            while (brackets.last().closing != QLatin1Char('}'))
                brackets.removeLast();
            --openBraces;
            current = endScope(current, brackets.takeLast().ended, i + 1);
        } else if (m_tokens.at(i).kind == ScriptToken::Sign &&
                   m_tokens.at(i).text == QString(brackets.last().closing)) {
            brackets.removeLast();
        }
    }
}

/** Ends @p ended with all in it that has no end yet; gives the scope that goes on. */
int ScriptNames::endScope(int current, int ended, int end)
{
    if (ended < 0)
        return current;
    const int around = m_scopes.at(ended).parent;
    for (int scope = current; scope != around; scope = m_scopes.at(scope).parent)
        m_scopes[scope].end = end;
    return around;
}

bool ScriptNames::beginsScope(int token) const
{
    return (is(token, "function") || is(token, "catch")) && !is(token - 1, ".");
}

int ScriptNames::addScope(int parent, int token)
{
    const bool isCatch = is(token, "catch");
    const bool hasName = !isCatch && isWord(token + 1);
    const int outer = m_scopes.at(parent).function;
    const int made = m_scopes.size();
    if (hasName)
        declare(outer, token + 1);
    m_scopes.append({parent, isCatch ? outer : made, token, m_tokens.size(), {}});
    declareParameters(made, hasName ? token + 2 : token + 1);
    return made;
}

void ScriptNames::declare(int scope, int token)
{
    QHash<QString, int>& names = m_scopes[scope].names;
    if (!names.contains(m_tokens.at(token).text))
        names.insert(m_tokens.at(token).text, token);
}

void ScriptNames::declareParameters(int scope, int index)
{
    if (is(index, "("))
        ++index;
    for (; isWord(index) || is(index, ","); ++index) {
        if (isWord(index))
            declare(scope, index);
    }
}

/** Reads one token of what stands directly in @p inside. */
void ScriptNames::declareVariables(int scope, int token, Bracket& inside)
{
    if ((is(token, "var") || is(token, "const")) && !is(token - 1, ".")) {
        inside.isDeclaring = inside.isAwaited = true;
        return;
    }
    // Without a semicolon a declaration ends where nothing holds two parts together.
    const bool isCut = !inside.isAwaited && endsOperand(token - 1) && beginsOperand(token);
    if (is(token, ";") || isCut)
        inside.isDeclaring = false;
    if (!inside.isDeclaring)
        return;
    if (inside.isAwaited && isWord(token))
        declare(scope, token);
    inside.isAwaited = is(token, ",");
}

bool ScriptNames::endsOperand(int token) const
{
    if (token < 0 || token >= m_tokens.size())
        return false;
    if (m_tokens.at(token).kind == ScriptToken::Sign)
        return is(token, ")") || is(token, "]") || is(token, "}");
    for (const char* const word : {"in", "instanceof", "typeof", "new", "delete", "void", "function"}) {
        if (is(token, word))
            return is(token - 1, ".");
    }
    return true;
}

bool ScriptNames::beginsOperand(int token) const
{
    return m_tokens.at(token).kind != ScriptToken::Sign && !is(token, "in") && !is(token, "instanceof");
}

// One walk with the scopes that are open and declare each name, the innermost last.
void ScriptNames::findMeanings(const QString& code)
{
    QHash<QString, QVector<int>> declaring;
    QVector<int> open;
    int next = 0;
    m_meanings.reserve(m_tokens.size());
    for (int i = 0; i < m_tokens.size(); ++i) {
        while (!open.isEmpty() && m_scopes.at(open.constLast()).end <= i) {
            for (const QString& name : m_scopes.at(open.takeLast()).names.keys())
                declaring[name].removeLast();
        }
        for (; next < m_scopes.size() && m_scopes.at(next).begin <= i; ++next) {
            open.append(next);
            for (const QString& name : m_scopes.at(next).names.keys())
                declaring[name].append(next);
        }
        m_meanings.append(isMeaningful(i, code) ? meaning(i, declaring.value(m_tokens.at(i).text)) : noName);
    }
}

int ScriptNames::meaning(int token, const QVector<int>& declaring) const
{
    const int count = declaring.size();
    const int innermost = count > 0 ? declaring.at(count - 1) : -1;
    // The name of a function belongs to what is around it.
    if (innermost > 0 && is(token - 1, "function") && m_scopes.at(innermost).begin == token - 1)
        return count > 1 ? declaring.at(count - 2) : -1;
    return innermost;
}

/** The key of an object literal, or a label. */
bool ScriptNames::isKey(int token) const
{
    if (!is(token + 1, ":") || is(token - 1, "case") || is(token - 1, "?"))
        return false;
    for (const char* const word : {"for", "while", "do", "switch"}) {
        if (is(token + 2, word))
            return true;
    }
    return token == 0 || is(token - 1, "{") || is(token - 1, ",") || is(token - 1, ";") || is(token - 1, "}");
}

/** False for members, keys, labels and whatever is no word. */
bool ScriptNames::isMeaningful(int token, const QString& code) const
{
    if (!isWord(token) || is(token - 1, ".") || isKey(token))
        return false;
    if (!is(token - 1, "break") && !is(token - 1, "continue"))
        return true;
    const int behind = m_tokens.at(token - 1).offset + m_tokens.at(token - 1).text.size();
    return code.midRef(behind, m_tokens.at(token).offset - behind).contains(QLatin1Char('\n'));
}

int ScriptNames::declaringScope(int token) const
{
    return qMax(-1, m_meanings.value(token, noName));
}

bool ScriptNames::isGlobal(int token) const
{
    const int scope = m_meanings.value(token, noName);
    return scope == -1 || scope == 0;
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

int ScriptNames::ownerOf(int token) const
{
    return is(token - 1, ".") && isWord(token - 2) && !is(token - 3, ".") ? token - 2 : -1;
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
