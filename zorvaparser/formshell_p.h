#ifndef ZORVA_FORMSHELL_P_H
#define ZORVA_FORMSHELL_P_H

#include <zorvaparser/zorvaparser_export.h>

#include <QString>
#include <QStringList>

namespace Orvane {

/** What a person may ask of the test shell beyond the arguments of the application. */
struct FormShellOptions
{
    QStringList overlays;      // texts of descriptions, laid over the form in this order
    QStringList parameters;    // parameter XML, taken after the stored parameters
    QString parameterFile;     // where parameters are stored; empty: ZorvaTest_test.xml
    bool storedAreRead = true; // otherwise the form begins with what its description says
};

/**
 * What the module's instance offers to the program that comes with it, beside the
 * interface that every loader knows. Complete in this header. For a single form;
 * a component list knows none of it.
 */
class ZORVAPARSER_EXPORT FormShell
{
public:
    virtual ~FormShell() = default;

    /** Before Start(), or Reload(). */
    virtual void SetOptions(const FormShellOptions& options) = 0;
    /**
     * Reads the description again and shows it in place of the form that is shown,
     * with that one's parameters. False, and nothing changes, if there is no form in
     * it, or none is shown. Never from within a signal of the form.
     */
    virtual bool Reload() = 0;
};

} // namespace Orvane

#endif
