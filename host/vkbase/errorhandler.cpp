#include <vkbase/errorhandler.h>

#include <vkbase/qtrace.h>
#include <vkbase/vkexception.h>

#include <QString>

namespace {

IErrorHandler* hostHandler = nullptr; // not owned; null: the built-in one

int initialTraceMask()
{
    bool ok = false;
    const QString text = qEnvironmentVariable("VELK_TRACE_MASK").trimmed();
    // A zero in front means nothing, unlike in C.
    const int base = text.contains(QLatin1Char('x'), Qt::CaseInsensitive) ? 16 : 10;
    const int mask = text.toInt(&ok, base);
    return ok ? mask : ErrorHandler::TraceErrors;
}

void trace(const QString& what, const VKException& exception)
{
    const QString text = QStringLiteral("%1 in %2::%3, code 0x%4: %5");
    _Q_Trace(text.arg(what, exception.GetClassName(), exception.GetMethod(),
                      QString::number(exception.GetCode(), 16), exception.GetMessage()),
             exception.GetFile(), static_cast<unsigned short>(exception.GetLine()));
}

} // namespace

IErrorHandler::~IErrorHandler() = default;

ErrorHandler::ErrorHandler()
    : m_traceMask(initialTraceMask())
{
}

ErrorHandler::~ErrorHandler() = default;

ErrorHandler& ErrorHandler::Instance()
{
    static ErrorHandler* const instance = new ErrorHandler;
    return *instance;
}

IErrorHandler* ErrorHandler::Interface()
{
    return hostHandler ? hostHandler : &Instance();
}

void ErrorHandler::SetInterface(IErrorHandler* handler)
{
    hostHandler = handler;
}

int ErrorHandler::GetTraceMask() const
{
    return m_traceMask;
}

void ErrorHandler::SetTraceMask(int mask)
{
    m_traceMask = mask;
}

void ErrorHandler::HandleException(const VKException& exception)
{
    trace(QStringLiteral("Exception"), exception);
}

void ErrorHandler::ReportException(const VKException& exception, int severity, int category, bool log,
                                   bool notify)
{
    Q_UNUSED(notify)
    if (log)
        trace(QStringLiteral("Exception report (severity %1, category %2)").arg(severity).arg(category),
              exception);
}
