#include <leftovers.h>
#include <messageguard.h>
#include <velkappstartup/velkapplication.h>
#include <vkbase/errorhandler.h>
#include <vkbase/qtrace.h>
#include <zorvaparser/zorvatest.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <csignal>
#include <memory>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using Orvane::ZorvaTest;
using Orvane::ZorvaTestMain;

namespace {

QString dataFile(const char* name)
{
    return QStringLiteral(ZORVA_TEST_DATA_DIR "/shell/") + QLatin1String(name);
}

QString storedParametersFile()
{
    return QStringLiteral("ZorvaTest_test.xml");
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
}

QStringList shellArguments(const QStringList& fromFifth)
{
    return QStringList{QStringLiteral("program"), QStringLiteral("a"), QStringLiteral("b"),
                       QStringLiteral("c")} +
           fromFifth;
}

const QByteArray attenuationOn = "<Parameters><Attenuation>true</Attenuation></Parameters>";

/** The disk is full for this process while one lives. */
class FullDisk
{
public:
    FullDisk()
    {
        previous = signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &limit);
        rlimit none = limit;
        none.rlim_cur = 0;
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &limit);
        signal(SIGXFSZ, previous);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit limit = {};
    void (*previous)(int) = nullptr;
};

/** What is written to standard error while one lives. */
class StandardErrorCapture
{
public:
    StandardErrorCapture()
    {
        std::fflush(stderr);
        saved = dup(STDERR_FILENO);
        if (pipe(ends) == 0)
            dup2(ends[1], STDERR_FILENO);
    }
    ~StandardErrorCapture() { text(); }
    StandardErrorCapture(const StandardErrorCapture&) = delete;
    StandardErrorCapture& operator=(const StandardErrorCapture&) = delete;

    QString text()
    {
        if (saved < 0)
            return collected;
        std::fflush(stderr);
        dup2(saved, STDERR_FILENO);
        close(saved);
        saved = -1;
        close(ends[1]);
        char buffer[4096];
        const ssize_t got = read(ends[0], buffer, sizeof buffer);
        close(ends[0]);
        collected = QString::fromLocal8Bit(buffer, int(qMax<ssize_t>(got, 0)));
        return collected;
    }

private:
    int saved = -1;
    int ends[2] = {-1, -1};
    QString collected;
};

/** The process has no more rights than an ordinary user while one lives. */
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0)
            [] { QCOMPARE(seteuid(nobody), 0); }();
    }
    ~OrdinaryUser()
    {
        if (getuid() == 0)
            [] { QCOMPARE(seteuid(0), 0); }();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
};

void setMode(const QString& path, mode_t mode)
{
    QCOMPARE(chmod(QFile::encodeName(path).constData(), mode), 0);
}

struct stat infoOf(const QString& path)
{
    struct stat info = {};
    lstat(QFile::encodeName(path).constData(), &info);
    return info;
}

/** Lets a stopped script go on; null while no debugger shows one. */
QAction* continueActionOfDebugger()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* candidate : windows) {
        const auto* menu = qobject_cast<const QMenu*>(candidate);
        const QList<QAction*> actions = menu ? menu->actions() : QList<QAction*>();
        for (QAction* action : actions) {
            if (action->shortcut() == QKeySequence(Qt::Key_F5) && action->isEnabled())
                return action;
        }
    }
    return nullptr;
}

} // namespace

class TestZorvaTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingIsShownWithoutAPath_data();
    void nothingIsShownWithoutAPath();
    void formIsShownInTheWindow();
    void secondStartChangesNothing();
    void unreadableFormIsLoggedAndShowsNothing_data();
    void unreadableFormIsLoggedAndShowsNothing();
    void storedParametersAreReadBack_data();
    void storedParametersAreReadBack();
    void failedLoadReadsNoStoredParameters();
    void applyStoresAllParameters();
    void storedTextIsUtf8AndReplacesTheOld();
    void failedStoreKeepsTheOldFile();
    void unwritableFolderIsReported();
    void fileInALockedFolderIsWrittenOver();
    void failedWritingOverKeepsTheOldFile();
    void linksAndModesStay();
    void leftoversOfKilledStoresGo();
    void whatCannotBeReadIsSaid_data();
    void whatCannotBeReadIsSaid();
    void foreignParametersAreTold_data();
    void foreignParametersAreTold();
    void optionsOfTheShell();
    void reloading();
    void reloadingWithoutAForm();
    void debuggerIsAttachedOnlyForDebug_data();
    void debuggerIsAttachedOnlyForDebug();
    void debuggerStopsTheScript();
    void componentListGivesTabs();
    void listWithoutFormsShowsAnEmptyWindow_data();
    void listWithoutFormsShowsAnEmptyWindow();
    void formsOfAListStoreNothing();
    void closingTheWindowEndsTheApplication_data();
    void closingTheWindowEndsTheApplication();
    void instanceMayGoBeforeItsWindow();
    void windowMayGoBeforeItsInstance();
    void windowHasItsSizeHint();

private:
    ZorvaTest* start(const QStringList& fromFifth);
    ZorvaTestMain* window() const;
    QCheckBox* attenuation() const;
    void toggleAndApply();

    QString folderBefore;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<VelkApplication> host;
    std::unique_ptr<ZorvaTest> shell;
    std::unique_ptr<MessageGuard> messages;
};

void TestZorvaTest::init()
{
    messages = std::make_unique<MessageGuard>();
    messages->allow(QRegularExpression(QStringLiteral("propagateSizeHints")));
    folderBefore = QDir::currentPath();
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    QVERIFY(QDir::setCurrent(folder->path()));
}

void TestZorvaTest::cleanup()
{
    shell.reset();
    for (const auto& window : qAsConst(ZorvaTest::ShellWindows()))
        delete window.data();
    ZorvaTest::ShellWindows().clear();
    ZorvaTest::ShownForms().clear();
    host.reset();
    QDir::setCurrent(folderBefore);
    folder.reset();
    messages.reset();
    QCOMPARE(leftovers(), QString());
}

ZorvaTest* TestZorvaTest::start(const QStringList& fromFifth)
{
    host = std::make_unique<VelkApplication>(shellArguments(fromFifth));
    shell = std::make_unique<ZorvaTest>(QStringLiteral("test"));
    [this] { QVERIFY(shell->Start()); }();
    return shell.get();
}

ZorvaTestMain* TestZorvaTest::window() const
{
    return ZorvaTest::ShellWindows().last();
}

QCheckBox* TestZorvaTest::attenuation() const
{
    return window()->findChild<QCheckBox*>(QStringLiteral("Attenuation"));
}

void TestZorvaTest::toggleAndApply()
{
    auto* button = window()->findChild<QPushButton*>(QStringLiteral("applyButton"));
    QVERIFY(button);
    QVERIFY(attenuation());
    attenuation()->click();
    QVERIFY(button->isEnabled());
    QTest::mouseClick(button, Qt::LeftButton);
}

void TestZorvaTest::nothingIsShownWithoutAPath_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("no arguments") << QStringList();
    QTest::newRow("one short of a path") << shellArguments({});
}

void TestZorvaTest::nothingIsShownWithoutAPath()
{
    QFETCH(QStringList, arguments);
    host = std::make_unique<VelkApplication>(arguments);
    shell = std::make_unique<ZorvaTest>(QStringLiteral("test"));
    QVERIFY(shell->Start());
    QVERIFY(!window()->isVisible());
    QVERIFY(ZorvaTest::ShownForms().isEmpty());
}

void TestZorvaTest::formIsShownInTheWindow()
{
    start({dataFile("gain.zorva")});
    QVERIFY(window()->isVisible());
    QCOMPARE(ZorvaTest::ShownForms().size(), 1);
    const ZorvaTest::ShownForm form = ZorvaTest::ShownForms().first();
    QCOMPARE(window()->centralWidget(), form->GetGUI());
    QVERIFY(form->GetGUI()->isVisible());
    QCOMPARE(form->GetVTPath(), QStringLiteral("/ZorvaTest"));
    QVERIFY(window()->findChild<QPushButton*>(QStringLiteral("applyButton")));
    QVERIFY(attenuation());
}

void TestZorvaTest::secondStartChangesNothing()
{
    start({dataFile("gain.zorva")});
    const QWidget* gui = window()->centralWidget();
    QVERIFY(shell->Start());
    QCOMPARE(window()->centralWidget(), gui);
    QCOMPARE(ZorvaTest::ShownForms().size(), 1);
}

void TestZorvaTest::unreadableFormIsLoggedAndShowsNothing_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing") << QStringLiteral("/nowhere/form.zorva");
    QTest::newRow("no form in it") << dataFile("no-form.zorva");
    QTest::newRow("a folder") << QStringLiteral("folder.zorva");
    QTest::newRow("empty") << QStringLiteral("empty.zorva");
}

void TestZorvaTest::unreadableFormIsLoggedAndShowsNothing()
{
    QFETCH(QString, path);
    QVERIFY(QDir().mkpath(QStringLiteral("folder.zorva")));
    writeFile(QStringLiteral("empty.zorva"), QByteArray());

    const QByteArray line = QStringLiteral("** LoadZorva: Cannot load %1\n").arg(path).toUtf8();
    QTest::ignoreMessage(QtDebugMsg, line.constData());
    messages.reset();
    start({path});
    QVERIFY(!window()->isVisible());
    QVERIFY(ZorvaTest::ShownForms().isEmpty());
}

void TestZorvaTest::storedParametersAreReadBack_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<bool>("checked");
    QTest::newRow("no file") << QByteArray() << false;
    QTest::newRow("on") << attenuationOn << true;
    QTest::newRow("off") << QByteArray("<Parameters><Attenuation>false</Attenuation></Parameters>") << false;
    QTest::newRow("cut off behind the row")
        << QByteArray("<Parameters><Attenuation>true</Attenuation>") << true;
    QTest::newRow("another form's") << QByteArray("<Parameters><Gain>3</Gain></Parameters>") << false;
    QTest::newRow("no XML") << QByteArray("\x00\xff\xfe true", 8) << false;
}

void TestZorvaTest::storedParametersAreReadBack()
{
    QFETCH(QByteArray, stored);
    QFETCH(bool, checked);
    if (!stored.isNull())
        writeFile(storedParametersFile(), stored);
    start({dataFile("gain.zorva")});
    QVERIFY(attenuation());
    QCOMPARE(attenuation()->isChecked(), checked);
    QVERIFY(!window()->findChild<QPushButton*>(QStringLiteral("applyButton"))->isEnabled());
    QCOMPARE(contentOf(storedParametersFile()), stored);
}

void TestZorvaTest::failedLoadReadsNoStoredParameters()
{
    writeFile(storedParametersFile(), attenuationOn);
    messages->allow(QRegularExpression(QStringLiteral("LoadZorva")));
    start({QStringLiteral("missing.zorva")});
    QVERIFY(!window()->isVisible());
    QCOMPARE(contentOf(storedParametersFile()), attenuationOn);
}

void TestZorvaTest::applyStoresAllParameters()
{
    start({dataFile("gain.zorva")});
    QVERIFY(!QFile::exists(storedParametersFile()));
    toggleAndApply();
    const QByteArray stored = contentOf(storedParametersFile());
    QVERIFY2(stored.contains("<Attenuation>true</Attenuation>"), stored.constData());

    // A later start in the same folder begins where this one ended.
    delete window();
    ZorvaTest::ShownForms().clear();
    start({dataFile("gain.zorva")});
    QVERIFY(attenuation()->isChecked());
}

void TestZorvaTest::storedTextIsUtf8AndReplacesTheOld()
{
    writeFile(storedParametersFile(), QByteArray(100000, ' '));
    start({dataFile("gain.zorva")});
    toggleAndApply();
    const QByteArray stored = contentOf(storedParametersFile());
    QCOMPARE(QString::fromUtf8(stored).toUtf8(), stored);
    QVERIFY(stored.size() < 1000);
    QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden), QStringList(storedParametersFile()));
}

void TestZorvaTest::failedStoreKeepsTheOldFile()
{
    writeFile(storedParametersFile(), attenuationOn);
    start({dataFile("gain.zorva")});
    QStringList traces;
    SetTraceSink([&traces](const QString& message, const QString& file, unsigned short) {
        traces.append(file + QStringLiteral(": ") + message);
    });
    messages->allow(QRegularExpression(QStringLiteral("Cannot store the parameters")));
    QString shown;
    {
        const FullDisk full;
        StandardErrorCapture capture;
        toggleAndApply();
        shown = capture.text();
    }
    SetTraceSink(TraceSink());
    QVERIFY2(shown.contains(QStringLiteral("Cannot store the parameters in ")), qPrintable(shown));
    QVERIFY2(shown.contains(storedParametersFile()), qPrintable(shown));
    QCOMPARE(traces.size(), 1);
    QVERIFY2(traces.first().startsWith(QStringLiteral("zorvatest: Cannot store the parameters in ")),
             qPrintable(traces.first()));
    QCOMPARE(contentOf(storedParametersFile()), attenuationOn);
    QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden), QStringList(storedParametersFile()));
}

void TestZorvaTest::unwritableFolderIsReported()
{
    start({dataFile("gain.zorva")});
    // A folder in the file's place refuses everybody, the administrator too.
    QVERIFY(QDir().mkdir(storedParametersFile()));
    messages->allow(QRegularExpression(QStringLiteral("Cannot store the parameters")));
    StandardErrorCapture capture;
    toggleAndApply();
    const QString shown = capture.text();
    QVERIFY2(shown.contains(QStringLiteral("Cannot store the parameters in ")), qPrintable(shown));
    QVERIFY(QFileInfo(storedParametersFile()).isDir());
}

void TestZorvaTest::fileInALockedFolderIsWrittenOver()
{
    writeFile(storedParametersFile(), QByteArray("<Parameters/>") + QByteArray(100000, ' '));
    QCOMPARE(link("ZorvaTest_test.xml", "linked.xml"), 0);
    setMode(storedParametersFile(), 0666);
    start({dataFile("gain.zorva")});
    setMode(folder->path(), 0555);
    {
        const OrdinaryUser user;
        toggleAndApply();
    }
    setMode(folder->path(), 0755);
    const QByteArray stored = contentOf(storedParametersFile());
    QVERIFY2(stored.contains("<Attenuation>true</Attenuation>"), stored.constData());
    QVERIFY(stored.size() < 1000);
    QCOMPARE(contentOf(QStringLiteral("linked.xml")), stored);
    QCOMPARE(infoOf(storedParametersFile()).st_nlink, nlink_t(2));
}

void TestZorvaTest::failedWritingOverKeepsTheOldFile()
{
    writeFile(storedParametersFile(), "<Parameters/>");
    setMode(storedParametersFile(), 0666);
    start({dataFile("gain.zorva")});
    setMode(folder->path(), 0555);
    messages->allow(QRegularExpression(QStringLiteral("Cannot store the parameters")));
    StandardErrorCapture capture;
    {
        const FullDisk full;
        const OrdinaryUser user;
        toggleAndApply();
    }
    setMode(folder->path(), 0755);
    QVERIFY2(capture.text().contains(QStringLiteral("Cannot store")), qPrintable(capture.text()));
    QCOMPARE(contentOf(storedParametersFile()), QByteArray("<Parameters/>"));
}

void TestZorvaTest::linksAndModesStay()
{
    QVERIFY(QDir().mkdir(QStringLiteral("elsewhere")));
    writeFile(QStringLiteral("elsewhere/target.xml"), "<Parameters/>");
    setMode(QStringLiteral("elsewhere/target.xml"), 0640);
    QVERIFY(QFile::link(QStringLiteral("elsewhere/target.xml"), storedParametersFile()));
    start({dataFile("gain.zorva")});
    toggleAndApply();
    QVERIFY(S_ISLNK(infoOf(storedParametersFile()).st_mode));
    QCOMPARE(infoOf(QStringLiteral("elsewhere/target.xml")).st_mode & 0777, mode_t(0640));
    QVERIFY(contentOf(QStringLiteral("elsewhere/target.xml")).contains("true"));
}

void TestZorvaTest::leftoversOfKilledStoresGo()
{
    const QStringList kept = {
        QStringLiteral("ZorvaTest_test.xml.backup"),  QStringLiteral("ZorvaTest_test.xml.BACKUP"),
        QStringLiteral("ZorvaTest_test.xml.Backup2"), QStringLiteral("ZorvaTest_test.xmlAbCdEf"),
        QStringLiteral("ZorvaTest_test.xml.InUseQ"),
    };
    for (const QString& name : kept)
        writeFile(name, "mine");
    writeFile(QStringLiteral("ZorvaTest_test.xml.QwErTz"), "<Param");
    writeFile(QStringLiteral("ZorvaTest_test.xml.aBCDEF"), QByteArray());
    // Another program is at its store.
    QFile inUse(QStringLiteral("ZorvaTest_test.xml.InUseQ"));
    QVERIFY(inUse.open(QIODevice::ReadOnly));
    QCOMPARE(flock(inUse.handle(), LOCK_EX | LOCK_NB), 0);

    start({dataFile("gain.zorva")});
    toggleAndApply();
    QStringList names = kept + QStringList(storedParametersFile());
    names.sort();
    QStringList there = QDir().entryList(QDir::Files | QDir::Hidden);
    there.sort();
    QCOMPARE(there, names);
}

void TestZorvaTest::whatCannotBeReadIsSaid_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("reason");
    QTest::newRow("pipe") << QStringLiteral("pipe") << QStringLiteral("it is not a regular file");
    QTest::newRow("device") << QStringLiteral("device") << QStringLiteral("it is not a regular file");
    QTest::newRow("folder") << QStringLiteral("folder") << QStringLiteral("it is a folder");
    QTest::newRow("no permission") << QStringLiteral("locked") << QStringLiteral("Permission denied");
}

void TestZorvaTest::whatCannotBeReadIsSaid()
{
    QFETCH(QString, kind);
    QFETCH(QString, reason);
    if (kind == QLatin1String("pipe"))
        QCOMPARE(mkfifo("ZorvaTest_test.xml", 0666), 0);
    else if (kind == QLatin1String("device"))
        QVERIFY(QFile::link(QStringLiteral("/dev/zero"), storedParametersFile()));
    else if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(storedParametersFile()));
    else
        writeFile(storedParametersFile(), attenuationOn);
    QVERIFY(QFile::copy(dataFile("gain.zorva"), QStringLiteral("gain.zorva")));
    setMode(QStringLiteral("gain.zorva"), 0644);
    if (kind == QLatin1String("locked"))
        setMode(storedParametersFile(), 0);
    setMode(folder->path(), 0755);

    messages->allow(QRegularExpression(QStringLiteral("Cannot read the parameters")));
    StandardErrorCapture capture;
    {
        const OrdinaryUser user;
        start({QStringLiteral("gain.zorva")});
    }
    const QString said = capture.text();
    QVERIFY2(said.contains(QStringLiteral("Cannot read the parameters in ")), qPrintable(said));
    QVERIFY2(said.contains(reason), qPrintable(said));
    QVERIFY(window()->isVisible());
    QVERIFY(!attenuation()->isChecked());
}

void TestZorvaTest::foreignParametersAreTold_data()
{
    QTest::addColumn<QByteArray>("stored");
    QTest::addColumn<QString>("said");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("its own") << attenuationOn << QString();
    QTest::newRow("another form's")
        << QByteArray("<Parameters><Gain>1</Gain><Band>2</Band><Gain>3</Gain></Parameters>")
        << QStringLiteral("this one has no Gain, Band\n");
    QTest::newRow("another root") << QByteArray("<Scan><Attenuation>true</Attenuation></Scan>")
                                  << QStringLiteral("this one has no Scan\n");
    QTest::newRow("no XML") << QByteArray("words") << QString();
}

void TestZorvaTest::foreignParametersAreTold()
{
    QFETCH(QByteArray, stored);
    QFETCH(QString, said);
    if (!stored.isNull())
        writeFile(storedParametersFile(), stored);
    StandardErrorCapture capture;
    start({dataFile("gain.zorva")});
    QVERIFY2(capture.text().endsWith(said), qPrintable(capture.text()));
    QCOMPARE(capture.text().count(QLatin1Char('\n')), said.isEmpty() ? 0 : 1);
}

void TestZorvaTest::optionsOfTheShell()
{
    writeFile(storedParametersFile(), attenuationOn);
    writeFile(QStringLiteral("other.xml"), "<Parameters><Attenuation>false</Attenuation></Parameters>");
    const auto started = [this](const Orvane::FormShellOptions& options) {
        delete (ZorvaTest::ShellWindows().isEmpty() ? nullptr : window());
        ZorvaTest::ShownForms().clear();
        host = std::make_unique<VelkApplication>(shellArguments({dataFile("gain.zorva")}));
        shell = std::make_unique<ZorvaTest>(QStringLiteral("test"));
        shell->SetOptions(options);
        return shell->Start() && attenuation()->isChecked();
    };
    Orvane::FormShellOptions options;
    QVERIFY(started(options));
    options.storedAreRead = false;
    QVERIFY(!started(options));
    options.parameters = QStringList(QString::fromLatin1(attenuationOn));
    QVERIFY(started(options));
    options.storedAreRead = true;
    options.parameters =
        QStringList(QStringLiteral("<Parameters><Attenuation>false</Attenuation></Parameters>"));
    QVERIFY(!started(options));
    options.parameters.clear();
    options.parameterFile = QStringLiteral("other.xml");
    QVERIFY(!started(options));
    toggleAndApply();
    QVERIFY(contentOf(QStringLiteral("other.xml")).contains("<Attenuation>true<"));
    QCOMPARE(contentOf(storedParametersFile()), attenuationOn);
    options.overlays = QStringList(QStringLiteral("<KVParamGui><Sheet><Widget name=\"Attenuation\">"
                                                  "<Property name=\"enabled\"><Bool>false</Bool></Property>"
                                                  "</Widget></Sheet></KVParamGui>"));
    QVERIFY(started(options));
    QVERIFY(!attenuation()->isEnabled());
}

void TestZorvaTest::reloading()
{
    QFile original(dataFile("gain.zorva"));
    QVERIFY(original.open(QIODevice::ReadOnly));
    const QByteArray text = original.readAll();
    writeFile(QStringLiteral("form.zorva"), text);
    start({QStringLiteral("form.zorva")});
    toggleAndApply();
    for (int round = 0; round < 2; ++round) {
        const QByteArray caption = "Damping " + QByteArray::number(round);
        writeFile(QStringLiteral("form.zorva"),
                  QByteArray(text).replace("<String>Attenuation<", "<String>" + caption + '<'));
        QVERIFY(shell->Reload());
        QCOMPARE(ZorvaTest::ShownForms().size(), 1);
        QVERIFY(attenuation()->isChecked());
        QVERIFY(attenuation()->isVisible());
        QVERIFY(attenuation()->toolTip().contains(QString::fromLatin1(caption)));
    }
    toggleAndApply();
    QVERIFY(contentOf(storedParametersFile()).contains("<Attenuation>false<"));
}

void TestZorvaTest::reloadingWithoutAForm()
{
    QVERIFY(QFile::copy(dataFile("gain.zorva"), QStringLiteral("form.zorva")));
    start({QStringLiteral("form.zorva")});
    attenuation()->click();
    QVERIFY(QFile::remove(QStringLiteral("form.zorva")));
    QVERIFY(!shell->Reload());
    writeFile(QStringLiteral("form.zorva"), "<KVPa");
    QVERIFY(!shell->Reload());
    QVERIFY(attenuation()->isChecked());
    ZorvaTest idle(QStringLiteral("idle"));
    QVERIFY(!idle.Reload());
}

void TestZorvaTest::debuggerIsAttachedOnlyForDebug_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("five arguments") << QStringList();
    QTest::newRow("other case") << QStringList(QStringLiteral("Debug"));
    QTest::newRow("other word") << QStringList(QStringLiteral("debugger"));
    QTest::newRow("empty") << QStringList(QString());
}

void TestZorvaTest::debuggerIsAttachedOnlyForDebug()
{
    QFETCH(QStringList, options);
    // A script stopped in a debugger would keep Start() from returning.
    start(QStringList(dataFile("gain.zorva")) + options);
    QVERIFY(window()->isVisible());
    QVERIFY(
        !ZorvaTest::ShownForms().first()->GetScriptValues().value(QStringLiteral("started")).isUndefined());
    QCOMPARE(QApplication::topLevelWidgets().size(), 1);
}

void TestZorvaTest::debuggerStopsTheScript()
{
    bool stopped = false;
    messages.reset(); // the debugger's own chatter is not ours
    QTimer poll;
    connect(&poll, &QTimer::timeout, this, [&] {
        QAction* go = continueActionOfDebugger();
        if (!go || stopped)
            return;
        stopped = !window()->isVisible();
        go->trigger();
    });
    poll.start(20);
    start({dataFile("gain.zorva"), QStringLiteral("debug")});
    poll.stop();
    QVERIFY(stopped);
    QVERIFY(window()->isVisible());
    QCOMPARE(ZorvaTest::ShownForms().first()->GetScriptValues().value(QStringLiteral("started")).toInt32(),
             1);
}

void TestZorvaTest::componentListGivesTabs()
{
    start({dataFile("two.xml")});
    QVERIFY(window()->isVisible());
    auto* tabs = qobject_cast<QTabWidget*>(window()->centralWidget());
    QVERIFY(tabs);
    QCOMPARE(tabs->objectName(), QStringLiteral("ZorVaTest_TabWidget"));

    // Ahead of the first component there is no title; what is no form gives no tab.
    QCOMPARE(tabs->count(), 3);
    QCOMPARE(tabs->tabText(0), QString());
    QCOMPARE(tabs->tabText(1), QStringLiteral("Tuner"));
    QCOMPARE(tabs->tabText(2), QStringLiteral("Tuner"));
    const QList<ZorvaTest::ShownForm> forms = ZorvaTest::ShownForms();
    QCOMPARE(forms.size(), 3);
    for (int i = 0; i < forms.size(); ++i) {
        QCOMPARE(forms.at(i)->GetVTPath(), QStringLiteral("/ZorvaTest/Form_%1").arg(i + 1));
        QCOMPARE(forms.at(i)->GetVersion(), QString::number(i));
        QCOMPARE(tabs->widget(i), forms.at(i)->GetGUI());
    }
    QVERIFY(!window()->findChild<QPushButton*>(QStringLiteral("applyButton")));
}

void TestZorvaTest::listWithoutFormsShowsAnEmptyWindow_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("missing file") << QStringLiteral("/nowhere/list.xml");
    QTest::newRow("a folder") << QStringLiteral("/");
    QTest::newRow("no forms in it") << dataFile("empty-list.xml");
    QTest::newRow("no XML") << QStringLiteral("text.txt");
    QTest::newRow("a form under another ending") << QStringLiteral("form.ZORVA");
}

void TestZorvaTest::listWithoutFormsShowsAnEmptyWindow()
{
    QFETCH(QString, path);
    writeFile(QStringLiteral("text.txt"), "just < words");
    QVERIFY(QFile::copy(dataFile("gain.zorva"), QStringLiteral("form.ZORVA")));
    start({path});
    QVERIFY(window()->isVisible());
    auto* tabs = qobject_cast<QTabWidget*>(window()->centralWidget());
    QVERIFY(tabs);
    QCOMPARE(tabs->count(), 0);
}

void TestZorvaTest::formsOfAListStoreNothing()
{
    writeFile(storedParametersFile(), "<Parameters/>");
    start({dataFile("two.xml")});
    Q_EMIT ZorvaTest::ShownForms().first()->si_parametersModified();
    QCOMPARE(contentOf(storedParametersFile()), QByteArray("<Parameters/>"));
}

void TestZorvaTest::closingTheWindowEndsTheApplication_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("one form") << dataFile("gain.zorva");
    QTest::newRow("tabs") << dataFile("two.xml");
}

void TestZorvaTest::closingTheWindowEndsTheApplication()
{
    QFETCH(QString, path);
    start({path});
    // A second window shows that it is the closing that ends the application.
    QWidget other;
    other.show();
    QTimer::singleShot(0, window(), &QWidget::close);
    QCOMPARE(QApplication::exec(), 0);
    QVERIFY(!window()->isVisible());
    QVERIFY(other.isVisible());
}

void TestZorvaTest::instanceMayGoBeforeItsWindow()
{
    start({dataFile("gain.zorva")});
    shell.reset();
    toggleAndApply();
    QVERIFY(window()->isVisible());
    QVERIFY(!QFile::exists(storedParametersFile()));
}

void TestZorvaTest::windowMayGoBeforeItsInstance()
{
    start({dataFile("gain.zorva")});
    delete window();
    Q_EMIT ZorvaTest::ShownForms().first()->si_parametersModified();
    QVERIFY(QFile::exists(storedParametersFile()));
    QVERIFY(shell->Start());
    QCOMPARE(ZorvaTest::ShownForms().size(), 1);
}

void TestZorvaTest::windowHasItsSizeHint()
{
    const ZorvaTestMain main;
    QCOMPARE(main.sizeHint(), QSize(500, 800));
}

QTEST_MAIN(TestZorvaTest)
#include "tst_zorvatest.moc"
