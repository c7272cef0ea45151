#ifndef ZORVA_VKBASE_ERRORHANDLER_H
#define ZORVA_VKBASE_ERRORHANDLER_H

#include <vkbase/vkbase_export.h>

class VKException;

/// What a module may ask of its host's error handling.
class VKBASE_EXPORT IErrorHandler
{
public:
    virtual ~IErrorHandler();

    /// Which trace lines are wanted: a sum of `ErrorHandler::TraceErrors` and others.
    virtual int GetTraceMask() const = 0;
    /// Takes note of `exception`, which has been caught: one trace line.
    virtual void HandleException(const VKException& exception) = 0;
    /// Reports `exception` where reports go: one trace line. `severity` and
    /// `category` (-1: none) sort it; `log` false keeps it out of the trace;
    /// `notify` asks for a message to the user, which the built-in handler never shows.
    virtual void ReportException(const VKException& exception, int severity, int category, bool log,
                                 bool notify) = 0;
};

/// The built-in, process-wide error handler, and the place of a host's own.
class VKBASE_EXPORT ErrorHandler : public IErrorHandler
{
public:
    static constexpr int TraceErrors = 0x20;  ///< exceptions caught, scripts that fail
    static constexpr int TraceNotes = 0x40;   ///< aids for developers
    static constexpr int TraceScripts = 0x80; ///< what scripts throw while a form lives

    /// Made on first use and never destroyed.
    static ErrorHandler& Instance();
    /// Who handles errors: the host's own handler, where one is set, otherwise
    /// the built-in one. Never null.
    static IErrorHandler* Interface();
    /// From now on `handler` handles errors and says what is traced. Not owned: it
    /// outlives that, and null puts the built-in one back. It may ask `Instance()`
    /// for the mask and hand on to it what it does not want.
    static void SetInterface(IErrorHandler* handler);
    /// Whether the handler in charge wants trace lines of a kind in `bits`.
    static bool Traces(int bits) { return (Interface()->GetTraceMask() & bits) != 0; }

    /// `TraceErrors` at first, or what the environment variable VELK_TRACE_MASK
    /// says (decimal, or hexadecimal with 0x).
    int GetTraceMask() const override;
    /// Which lines are written: an or of the Trace... bits.
    void SetTraceMask(int mask);

    void HandleException(const VKException& exception) override;
    void ReportException(const VKException& exception, int severity, int category, bool log,
                         bool notify) override;

private:
    ErrorHandler();
    ~ErrorHandler() override;

    int m_traceMask;
};

#endif
