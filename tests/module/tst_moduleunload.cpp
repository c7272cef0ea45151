#include <QCoreApplication>
#include <QFileInfo>
#include <QLibrary>
#include <QTest>

#include <dlfcn.h>
#include <link.h>

/// A host may load the module before it has an application, and drop it again.
class TestModuleUnload : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applicationAfterUnloading();
    void hostLibrariesStay_data();
    void hostLibrariesStay();
};

void TestModuleUnload::applicationAfterUnloading()
{
    for (int round = 0; round < 2; ++round) {
        QLibrary library(QStringLiteral(ZORVA_MODULE_FILE));
        QVERIFY2(library.load(), qPrintable(library.errorString()));
        library.unload();
        int count = 1;
        char name[] = "host";
        char* arguments[] = {name, nullptr};
        const QCoreApplication application(count, arguments);
        QCOMPARE(QCoreApplication::translate("ZorvaParser", "text"), QStringLiteral("text"));
    }
}

void TestModuleUnload::hostLibrariesStay_data()
{
    QTest::addColumn<QString>("file");
    for (const QString& file : QStringLiteral(ZORVA_HOST_FILES).split(QLatin1Char(':')))
        QTest::newRow(qPrintable(QFileInfo(file).baseName())) << file;
}

static bool saysNoDelete(const link_map* map)
{
    for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_FLAGS_1)
            return entry->d_un.d_val & DF_1_NODELETE;
    }
    return false;
}

// Whether a library goes when it is closed depends on the compiler that made it;
// Qt calls into these whenever an application starts.
void TestModuleUnload::hostLibrariesStay()
{
    QFETCH(QString, file);
    void* const handle = dlopen(qPrintable(file), RTLD_LAZY);
    QVERIFY(handle);
    link_map* map = nullptr;
    QCOMPARE(dlinfo(handle, RTLD_DI_LINKMAP, &map), 0);
    const bool stays = saysNoDelete(map);
    dlclose(handle);
    QVERIFY(stays);
}

QTEST_APPLESS_MAIN(TestModuleUnload)
#include "tst_moduleunload.moc"
