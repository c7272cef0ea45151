#ifndef ZORVA_AUTHOR_SCRIPTNAMES_H
#define ZORVA_AUTHOR_SCRIPTNAMES_H

#include "scripttokens.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** A stretch of a script with names of its own: the whole, one function, or what follows one "catch". */
struct ScriptScope
{
    int parent = -1;
    int function = 0; // itself; of a "catch" the function around, which its variables belong to
    int begin = 0;    // tokens
    int end = 0;
    QHash<QString, int> names; // declared in it, with the token that does
};

/**
 * The names of a script: which tokens stand for something global and which for a
 * variable or an argument of a function. Works on code that does not compile, too,
 * and takes time in proportion to its length.
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
    /** True if the token is a word that means something of a function. */
    bool isLocal(int token) const { return declaringScope(token) > 0; }
    /** The token that stands before "." before this one; -1 if this is no member of a bare name. */
    int ownerOf(int token) const;
    /** Token at @p offset of the code, or ending there; -1 if there is none. */
    int tokenAt(int offset) const;
    /** True if @p name, written where the token stands, would mean something of a function. */
    bool isCaptured(int token, const QString& name) const;
    /** Names that the script declares and that are seen at the token. */
    QSet<QString> declaredAt(int token) const;
    const QVector<ScriptScope>& scopes() const { return m_scopes; }

    /** True if the token is that sign or word; false beyond both ends. */
    bool is(int token, const char* text) const;
    /** True if the token is any word; false beyond both ends. */
    bool isWord(int token) const;

private:
    /** What stands between two brackets, and whether a list of variables goes on in it. */
    struct Bracket
    {
        QChar closing;
        int ended = -1; // the scope that ends with it
        bool isDeclaring = false;
        bool isAwaited = false; // the next word is a variable
    };

    void findScopes();
    bool beginsScope(int token) const;
    int addScope(int parent, int token);
    int endScope(int current, int ended, int end);
    void declare(int scope, int token);
    void declareParameters(int scope, int index);
    void declareVariables(int scope, int token, Bracket& inside);
    bool endsOperand(int token) const;
    bool beginsOperand(int token) const;
    void findMeanings(const QString& code);
    int meaning(int token, const QVector<int>& declaring) const;
    bool isMeaningful(int token, const QString& code) const;
    bool isKey(int token) const;
    int scopeOf(int token) const;

    QVector<ScriptToken> m_tokens;
    QVector<ScriptScope> m_scopes; // the first is the whole; inner ones follow outer ones
    QVector<int> m_meanings;       // of each token: the scope that declares it, -1 for none, or noName
};

} // namespace Author
} // namespace Orvane

#endif
