#ifndef ZORVASCRIPT_H
#define ZORVASCRIPT_H

#include <zorvaparser/zorvaparser_export.h>

#include <QString>

class QXmlStreamReader;

namespace Orvane {

/** Language and code of a form's script. The language is kept and never interpreted. */
class ZORVAPARSER_EXPORT ZorvaScript
{
public:
    ZorvaScript() = default;
    /** Copies hold the same text. */
    ZorvaScript(const ZorvaScript&) = default;
    ZorvaScript& operator=(const ZorvaScript&) = default; ///< Likewise.
    virtual ~ZorvaScript() = default;

    /** Entered on the start tag of "Script"; replaces language and code. */
    void ParseZORVA(QXmlStreamReader& reader);

    /** As the description gave them. */
    const QString& GetLanguage() const { return language; }
    const QString& GetCode() const { return code; } ///< Likewise.

private:
    QString language;
    QString code;
};

} // namespace Orvane

#endif
