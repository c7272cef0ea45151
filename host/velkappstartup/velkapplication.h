#ifndef ZORVA_VELKAPPLICATION_H
#define ZORVA_VELKAPPLICATION_H

#include <velkappstartup/velkappstartup_export.h>

#include <QStringList>

/// The host's application object as the modules see it: the command line. A
/// host makes one for as long as it runs; without one, a stand-in answers with
/// the arguments of Qt's application.
class VELKAPPSTARTUP_EXPORT VelkApplication
{
public:
    /// Announces the program's arguments to modules, for as long as it lives; the first is the program.
    VelkApplication(int argc, const char* const* argv);
    explicit VelkApplication(QStringList arguments); ///< Likewise.
    virtual ~VelkApplication();
    VelkApplication(const VelkApplication&) = delete;
    VelkApplication& operator=(const VelkApplication&) = delete;

    /// The one that lives; there must be one.
    static VelkApplication& Instance();

    /// The program first, as on the command line.
    QStringList Arguments() const;

    /// The host's object while it lives (of several the newest), otherwise the
    /// stand-in; null only before this library's own initialisation.
    static VelkApplication* m_pThis;

private:
    VelkApplication() = default; // the stand-in
    static VelkApplication* standIn();

    QStringList m_arguments;
    VelkApplication* m_previous = nullptr; // who answered before this object
};

#endif
