#include "statementlines.h"

#include <author/check/scripttokens.h>

#include <QSet>

#include <algorithm>

namespace Orvane {
namespace Author {

namespace {

/** Deeper code is passed over: nobody writes it, and this calls itself for each level. */
constexpr int deepest = 200;

/** Walks through the statements of a script, those in functions inside expressions included. */
class StatementWalk
{
public:
    explicit StatementWalk(const QString& code)
        : m_tokens(scriptTokens(code))
    {
        int line = 1;
        int offset = 0;
        for (const ScriptToken& token : m_tokens) {
            line += code.midRef(offset, token.offset - offset).count(QLatin1Char('\n'));
            offset = token.offset;
            m_lines.append(line);
        }
    }

    QVector<int> run()
    {
        while (m_at < m_tokens.size()) {
            statement();
            take("}"); // one too many
        }
        QVector<int> lines(m_found.cbegin(), m_found.cend());
        std::sort(lines.begin(), lines.end());
        return lines;
    }

private:
    bool is(const char* text, int ahead = 0) const
    {
        return m_at + ahead < m_tokens.size() && m_tokens.at(m_at + ahead).is(text);
    }
    bool take(const char* text)
    {
        const bool found = is(text);
        m_at += found ? 1 : 0;
        return found;
    }
    void mark()
    {
        if (m_at < m_tokens.size())
            m_found.insert(m_lines.at(m_at));
    }

    void statement()
    {
        if (++m_depth > deepest) {
            m_at = m_tokens.size();
        } else if (take(";")) {
            // Nothing runs.
        } else if (is("var")) {
            variables();
        } else if (is("{")) {
            block();
        } else if (is("function")) {
            function();
        } else if (isLabel()) {
            m_at += 2;
            statement();
        } else if (take("try")) {
            block();
            if (take("catch")) {
                brackets();
                block();
            }
            if (take("finally"))
                block();
        } else {
            mark();
            markedStatement();
        }
        --m_depth;
    }

    /** Names that get no value are no work. */
    void variables()
    {
        const int begin = m_at;
        expression();
        const auto end = m_tokens.cbegin() + m_at;
        if (std::any_of(m_tokens.cbegin() + begin, end,
                        [](const ScriptToken& token) { return token.is("="); }))
            m_found.insert(m_lines.at(begin));
    }

    bool isLabel() const
    {
        return m_at < m_tokens.size() && m_tokens.at(m_at).kind == ScriptToken::Word && is(":", 1) &&
               !is("case") && !is("default");
    }

    void markedStatement()
    {
        if (take("if")) {
            brackets();
            statement();
            if (take("else"))
                statement();
        } else if (is("for") || is("while") || is("with")) {
            ++m_at;
            brackets();
            statement();
        } else if (take("do")) {
            statement();
            take("while");
            brackets();
            take(";");
        } else if (take("switch")) {
            brackets();
            cases();
        } else {
            expression();
        }
    }

    void block()
    {
        if (!take("{"))
            return;
        while (m_at < m_tokens.size() && !take("}"))
            statement();
    }

    void cases()
    {
        if (!take("{"))
            return;
        while (m_at < m_tokens.size() && !take("}")) {
            if (is("case") || is("default")) {
                while (m_at < m_tokens.size() && !take(":"))
                    piece();
            } else {
                statement();
            }
        }
    }

    void function()
    {
        ++m_at;
        if (!is("("))
            ++m_at;
        brackets();
        block();
    }

    /** One token of an expression, or all that a bracket of any kind or a function holds. */
    void piece()
    {
        if (++m_depth > deepest)
            m_at = m_tokens.size();
        else if (is("function"))
            function();
        else if (is("("))
            inside("(", ")");
        else if (is("["))
            inside("[", "]");
        else if (is("{"))
            inside("{", "}");
        else
            ++m_at;
        --m_depth;
    }

    void inside(const char* open, const char* close)
    {
        take(open);
        while (m_at < m_tokens.size() && !take(close))
            piece();
    }
    void brackets() { inside("(", ")"); }

    /** To the end of the statement, which a line end is where the next line cannot go on. */
    void expression()
    {
        bool isFirst = true;
        while (m_at < m_tokens.size() && !is("}")) {
            if (take(";"))
                return;
            if (!isFirst && beginsAnew())
                return;
            isFirst = false;
            piece();
        }
    }

    bool beginsAnew() const
    {
        const ScriptToken& before = m_tokens.at(m_at - 1);
        const ScriptToken& next = m_tokens.at(m_at);
        if (m_lines.at(m_at) == m_lines.at(m_at - 1))
            return false;
        const bool mayEnd = (before.kind != ScriptToken::Sign || before.is(")") || before.is("]") ||
                             before.is("}") || isStep(m_at - 2)) &&
                            !isOperator(before) && !before.is("var");
        const bool mayBegin =
            (next.kind != ScriptToken::Sign || next.is("{") || isStep(m_at)) && !isOperator(next);
        return mayEnd && mayBegin;
    }

    /** "++" and "--" are two signs to the tokenizer. */
    bool isStep(int index) const
    {
        return index >= 0 && index + 1 < m_tokens.size() &&
               ((m_tokens.at(index).is("+") && m_tokens.at(index + 1).is("+")) ||
                (m_tokens.at(index).is("-") && m_tokens.at(index + 1).is("-")));
    }

    static bool isOperator(const ScriptToken& token)
    {
        return token.is("in") || token.is("instanceof") || token.is("typeof") || token.is("new") ||
               token.is("void") || token.is("delete");
    }

    const QVector<ScriptToken> m_tokens;
    QVector<int> m_lines; // of the tokens
    QSet<int> m_found;
    int m_at = 0;
    int m_depth = 0;
};

} // namespace

QVector<int> statementLines(const QString& code)
{
    return StatementWalk(code).run();
}

} // namespace Author
} // namespace Orvane
