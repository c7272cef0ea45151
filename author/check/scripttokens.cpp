#include "scripttokens.h"

namespace Orvane {
namespace Author {

namespace {

bool isWordStart(QChar c)
{
    return c.isLetter() || c == QLatin1Char('_') || c == QLatin1Char('$');
}

/** The code with a line end and blanks in place of each escape, so that nothing moves. */
QString withLineEnds(QString code)
{
    const QString blank = QStringLiteral("\n     ");
    return code.replace(QLatin1String("{{CR}}"), blank).replace(QLatin1String("{{LF}}"), blank);
}

class Tokenizer
{
public:
    explicit Tokenizer(const QString& code)
        : m_code(withLineEnds(code))
    {
    }

    QVector<ScriptToken> run()
    {
        while (m_position < m_code.size())
            next();
        markFunctions();
        return m_tokens;
    }

private:
    QChar at(int offset) const { return offset < m_code.size() ? m_code.at(offset) : QChar(); }

    void next()
    {
        const QChar c = at(m_position);
        if (c.isSpace())
            ++m_position;
        else if (c == QLatin1Char('/') && at(m_position + 1) == QLatin1Char('/'))
            skipTo(m_code.indexOf(QLatin1Char('\n'), m_position));
        else if (c == QLatin1Char('/') && at(m_position + 1) == QLatin1Char('*'))
            skipTo(m_code.indexOf(QLatin1String("*/"), m_position + 2), 2);
        else if (c == QLatin1Char('"') || c == QLatin1Char('\''))
            takeUntil(c, ScriptToken::Text);
        else if (c == QLatin1Char('/') && patternMayStand())
            takeUntil(c, ScriptToken::Pattern);
        else if (isWordStart(c))
            takeWord(ScriptToken::Word);
        else if (c.isDigit())
            takeWord(ScriptToken::Number);
        else
            append(ScriptToken::Sign, m_position + 1);
    }

    void skipTo(int offset, int behind = 0) { m_position = offset < 0 ? m_code.size() : offset + behind; }

    void takeWord(ScriptToken::Kind kind)
    {
        int end = m_position;
        while (isWordStart(at(end)) || at(end).isDigit() ||
               (kind == ScriptToken::Number && at(end) == QLatin1Char('.')))
            ++end;
        append(kind, end);
    }

    void takeUntil(QChar quote, ScriptToken::Kind kind)
    {
        int end = m_position + 1;
        bool inClass = false;
        while (end < m_code.size() && at(end) != QLatin1Char('\n') && (at(end) != quote || inClass)) {
            if (kind == ScriptToken::Pattern && (at(end) == QLatin1Char('[') || at(end) == QLatin1Char(']')))
                inClass = at(end) == QLatin1Char('[');
            end += at(end) == QLatin1Char('\\') ? 2 : 1;
        }
        ++end;
        while (kind == ScriptToken::Pattern && at(end).isLetter())
            ++end;
        append(kind, qMin(end, m_code.size()));
    }

    /** A slash begins a pattern where no value stands before it. */
    bool patternMayStand() const
    {
        if (m_tokens.isEmpty())
            return true;
        const ScriptToken& last = m_tokens.last();
        return last.is("return") || last.is("typeof") ||
               (last.kind == ScriptToken::Sign && !last.is(")") && !last.is("]") && !last.is("}"));
    }

    void append(ScriptToken::Kind kind, int end)
    {
        m_tokens.append({kind, m_code.mid(m_position, end - m_position), m_position, 0});
        m_position = end;
    }

    void markFunctions()
    {
        QVector<bool> blocks; // whether each open brace is the body of a function
        int depth = 0;
        bool awaited = false;
        for (ScriptToken& token : m_tokens) {
            awaited = awaited || token.is("function");
            if (token.is("{")) {
                blocks.append(awaited);
                depth += awaited ? 1 : 0;
                awaited = false;
            }
            token.depth = depth + (awaited ? 1 : 0);
            if (token.is("}") && !blocks.isEmpty() && blocks.takeLast())
                --depth;
        }
    }

    const QString m_code;
    int m_position = 0;
    QVector<ScriptToken> m_tokens;
};

} // namespace

QVector<ScriptToken> scriptTokens(const QString& code)
{
    return Tokenizer(code).run();
}

} // namespace Author
} // namespace Orvane
