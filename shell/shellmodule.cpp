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

bool ShellModule::loadLibrary()
{
    for (const QString& name : libraryNames()) {
        if (QFileInfo(name).isAbsolute())
            library.setFileName(name);
        else
            library.setFileNameAndVersion(name, ZORVASHELL_MODULE_VERSION);
        if (library.load())
            return true;
    }
    return false;
}

QString ShellModule::Load()
{
    if (!loadLibrary())
        return QStringLiteral("cannot load the form library: %1").arg(library.errorString());
    const auto create = reinterpret_cast<CreateFunction>(library.resolve("VKCreate"));
    destroy = reinterpret_cast<DestroyFunction>(library.resolve("VKDestroy"));
    if (!create || !destroy)
        return QStringLiteral("%1 is not a module").arg(library.fileName());
    instance = create(L"ZorvaTest");
    return instance ? QString() : QStringLiteral("the form library could not make its window");
}
