#ifndef ZORVA_AUTHOR_SCRIPTTOKENS_H
#define ZORVA_AUTHOR_SCRIPTTOKENS_H

#include <QString>
#include <QVector>

namespace Orvane {
namespace Author {

/** One word or sign of a script; comments and blanks are none. */
struct ScriptToken
{
    enum Kind { Word, Number, Text, Pattern, Sign };

    Kind kind = Sign;
    QString text;
    int offset = 0; // in the code
    int depth = 0;  // of functions around it; 0 runs at start-up

    bool is(const char* wanted) const { return text == QLatin1String(wanted) && kind != Text; }
};

/** The tokens of @p code as a description has it, escapes for line ends included; also of code that does not
 * compile. */
QVector<ScriptToken> scriptTokens(const QString& code);

} // namespace Author
} // namespace Orvane

#endif
