#include <leftovers.h>
#include <velkappstartup/translationcenter.h>
#include <zorvaparser/loadinterface.h>

#include <QApplication>
#include <QLibrary>
#include <QtTest>

#include <dlfcn.h>

namespace {

using CreateFunction = IDllInstance* (*)(const wchar_t*);
using DestroyFunction = void (*)(IDllInstance*);

QString moduleFile()
{
    return QStringLiteral(ZORVA_MODULE_FILE);
}

int registrations(const QString& context)
{
    return TranslationCenter::Instance().GetRegistrationCount(context);
}

bool isLoaded()
{
    void* handle = dlopen(ZORVA_MODULE_FILE, RTLD_LAZY | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle != nullptr;
}

} // namespace

class TestModuleLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void contextsLiveAsLongAsTheLibrary();
    void entryFunctionsHaveCLinkage();
};

void TestModuleLoad::contextsLiveAsLongAsTheLibrary()
{
    const QString first = QStringLiteral("ZorvaParser");
    const QString last = QStringLiteral("SignalDescriptionsComponent");
    QVERIFY(!isLoaded());
    QCOMPARE(registrations(first), 0);

    QLibrary library(moduleFile());
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QCOMPARE(registrations(first), 1);
    QCOMPARE(registrations(last), 1);

    library.unload();
    // The system may keep a library that others still need until the process ends.
    const int expected = isLoaded() ? 1 : 0;
    QCOMPARE(registrations(first), expected);
    QCOMPARE(registrations(last), expected);
}

void TestModuleLoad::entryFunctionsHaveCLinkage()
{
    QLibrary library(moduleFile());
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    const auto create = reinterpret_cast<CreateFunction>(library.resolve("VKCreate"));
    const auto destroy = reinterpret_cast<DestroyFunction>(library.resolve("VKDestroy"));
    QVERIFY(create);
    QVERIFY(destroy);

    IDllInstance* instance = create(L"ZorvaTest");
    QVERIFY(instance);
    QCOMPARE(instance->GetInstanceName(), QStringLiteral("ZorvaTest"));
    QVERIFY(instance->Start());
    instance->Stop();
    instance->Shutdown();
    destroy(instance);
    destroy(nullptr);

    const QWidgetList windows = QApplication::topLevelWidgets();
    QCOMPARE(windows.size(), 1);
    QVERIFY(!windows.first()->isVisible());
    delete windows.first();
    QCOMPARE(leftovers(), QString());
}

QTEST_MAIN(TestModuleLoad)
#include "tst_moduleload.moc"
