#ifndef ZORVA_AUTHOR_SCRIPTNAMES_H
#define ZORVA_AUTHOR_SCRIPTNAMES_H

#include <author/check/scripttokens.h>

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** A stretch of a script with names of its own: the whole, or one function. */
struct ScriptScope
{
    int parent = -1;
    int begin = 0; // tokens
    int end = 0;
    QHash<QString, int> names; // declared in it, with the token that does
};

/**
 * The names of a script: which tokens stand for something global and which for a
 * variable or an argument of a function. Works on code that does not compile, too.
 */
class ScriptNames
{
public:
    explicit ScriptNames(const QString& code);

    const QVector<ScriptToken>& tokens() const { return m_tokens; }
    /** The scope that declares what the token means; -1 if none does, or it is no word that means anything.
     */
    int declaringScope(int token) const;
    /** True if the token is a word that means the global of that name. */
    bool isGlobal(int token) const;
    /** The token that stands before "." before this one; -1 if this is no member of a bare name. */
    int ownerOf(int token) const;
    /** Token at @p offset of the code, or ending there; -1 if there is none. */
    int tokenAt(int offset) const;
    /** True if @p name, written where the token stands, would mean something of a function. */
    bool isCaptured(int token, const QString& name) const;
    /** Names that the script declares and that are seen at the token. */
    QSet<QString> declaredAt(int token) const;
    const QVector<ScriptScope>& scopes() const { return m_scopes; }

private:
    bool isSign(int index, const char* sign) const;
    bool isWord(int index) const;
    void findScopes();
    void declare(int scope, int token);
    void declareParameters(int scope, int index);
    void declareVariables(int scope, int index);
    int scopeOf(int token) const;
    bool isKey(int token) const;
    bool isName(int token) const;

    QVector<ScriptToken> m_tokens;
    QVector<ScriptScope> m_scopes; // the first is the whole; inner ones follow outer ones
};

} // namespace Author
} // namespace Orvane

#endif
