#include "loadinterface.h"

#include "loadinterface_p.h"

#include <velkappstartup/translationcenter.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>
#include <vkbase/vkexception.h>
#include <zorvaparser/zorvatest.h>

#include <QApplication>

#include <exception>

namespace {

QString sourceName()
{
    return QStringLiteral("loadinterface");
}

/** Keeps the module's translation contexts registered while the library is loaded. */
class ContextRegistration
{
public:
    ContextRegistration() { TranslationCenter::Instance().Register(Orvane::moduleTranslationContexts()); }
    ~ContextRegistration()
    {
        for (const QString& context : Orvane::moduleTranslationContexts())
            TranslationCenter::Instance().Unregister(context);
    }
    ContextRegistration(const ContextRegistration&) = delete;
    ContextRegistration& operator=(const ContextRegistration&) = delete;
};

// Made when the library is loaded and destroyed when it is unloaded: the
// contexts are there before the first form and stay until after the last.
const ContextRegistration contextRegistration;

void traceCaught(const QString& message, unsigned short line)
{
    if (ErrorHandler::Traces(ErrorHandler::TraceErrors))
        _Q_Trace(message, sourceName(), line);
}

void report(const VKException& exception)
{
    IErrorHandler* handler = ErrorHandler::Interface();
    handler->HandleException(exception);
    handler->ReportException(exception, 0, -1, true, false);
}

IDllInstance* createShell(const QString& name)
{
    // Qt ends the process when a window is made without an application.
    if (!qobject_cast<QApplication*>(QCoreApplication::instance()))
        throw VKException(QStringLiteral("no QApplication to show forms in"), sourceName(),
                          QStringLiteral("IDllInstance"), QStringLiteral("VKCreate"), __LINE__, 0xFFFFFFFF);
    return new Orvane::ZorvaTest(name);
}

} // namespace

namespace Orvane {

QStringList moduleTranslationContexts()
{
    return {
        QStringLiteral("ZorvaParser"),
        QStringLiteral("ZORvaTranslationsFFP"),
        QStringLiteral("ZORvaTranslationsMCP"),
        QStringLiteral("ZORvaTranslations"),
        QStringLiteral("KDEMTranslations"),
        QStringLiteral("GeneralSettings"),
        QStringLiteral("ScanSettings"),
        QStringLiteral("KDR550AudioSettings"),
        QStringLiteral("KDR550DFSettings"),
        QStringLiteral("KDR550FFTSettings"),
        QStringLiteral("KDR550ScanSettings"),
        QStringLiteral("KDR550TunerSettings"),
        QStringLiteral("SignalDescriptionsComponent"),
    };
}

IDllInstance* createReported(const std::function<IDllInstance*()>& create)
{
    try {
        return create();
    } catch (const VKException& exception) {
        traceCaught(QStringLiteral("VKException caught in standard catch-block"), __LINE__);
        report(exception);
    } catch (const std::exception& exception) {
        traceCaught(QStringLiteral("Standard C++ Exception caught in standard catch-block"), __LINE__);
        // Hosts match on these fixed words and numbers.
        report(VKException(QString::fromLocal8Bit(exception.what()), sourceName(), QStringLiteral("class"),
                           QStringLiteral("method"), 17, 0xFFFFFFFF));
    }
    return nullptr;
}

} // namespace Orvane

IDllInstance* VKCreate(const wchar_t* name)
{
    const QString text = name ? QString::fromWCharArray(name, -1) : QString();
    return Orvane::createReported([&text] { return createShell(text); });
}

void VKDestroy(IDllInstance* instance)
{
    delete instance;
}
