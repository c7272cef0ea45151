#include "shellmodule.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>

namespace {

/** Beside the program as it is built or installed, then wherever the system looks. */
QStringList libraryNames()
{
    const QString program = QCoreApplication::applicationDirPath();
    QStringList names;
    for (const QString& folder : {QStringLiteral("../lib"), QStringLiteral("../" ZORVASHELL_LIBDIR),
                                  QStringLiteral(ZORVASHELL_LIBDIR), QStringLiteral(".")}) {
        const QString base =
            folder.startsWith(QLatin1Char('/')) ? folder : program + QLatin1Char('/') + folder;
        const QString name = base + QStringLiteral("/libzorvaparser.so.%1").arg(ZORVASHELL_MODULE_VERSION);
        if (QFileInfo::exists(name))
            names.append(name);
    }
    names.append(QStringLiteral("zorvaparser"));
    return names;
}

} // namespace

ShellModule::~ShellModule()
{
    if (!instance)
        return;
    instance->Stop();
    instance->Shutdown();
    destroy(instance);
}

QString ShellModule::loadLibrary()
{
    // A library that is there and does not load says why; those not found say nothing.
    QString reason;
    for (const QString& name : libraryNames()) {
        if (QFileInfo(name).isAbsolute())
            library.setFileName(name);
        else
            library.setFileNameAndVersion(name, ZORVASHELL_MODULE_VERSION);
        if (library.load())
            return QString();
        if (reason.isEmpty())
            reason = library.errorString();
    }
    return reason;
}

QString ShellModule::Load()
{
    const QString reason = loadLibrary();
    if (!reason.isEmpty())
        return QStringLiteral("cannot load the form library: %1").arg(reason);
    const auto create = reinterpret_cast<CreateFunction>(library.resolve("VKCreate"));
    destroy = reinterpret_cast<DestroyFunction>(library.resolve("VKDestroy"));
    if (!create || !destroy)
        return QStringLiteral("%1 is not a module").arg(library.fileName());
    instance = create(L"ZorvaTest");
    return instance ? QString() : QStringLiteral("the form library could not make its window");
}
