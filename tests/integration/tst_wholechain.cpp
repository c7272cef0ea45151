// The module as a host's loader has it: nothing of the library is linked. From a
// click in the shell's window to the text in the parameter file, and back. Forms
// live as long as their process, so each session is a process of its own.
#include <velkappstartup/velkapplication.h>
#include <zorvaparser/loadinterface.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLibrary>
#include <QLineEdit>
#include <QMainWindow>
#include <QProcess>
#include <QProcessEnvironment>
#include <QPushButton>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <cstdio>

namespace {

/// Names the session that this process is to be.
const char* const sessionVariable = "ZORVA_SESSION";
const char* const parameterFile = "ZorvaTest_test.xml";

/// The text of the element at `path` below the root; null if there is none.
QString storedText(const QString& path)
{
    QFile file(QString::fromLatin1(parameterFile));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    QXmlStreamReader reader(&file);
    QStringList place;
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement)
            place << reader.name().toString();
        else if (token == QXmlStreamReader::EndElement)
            place.removeLast();
        else if (token == QXmlStreamReader::Characters && place.mid(1).join(QLatin1Char('/')) == path)
            return reader.text().toString();
    }
    return QString();
}

/// A module instance that shows the receiver's form until the process ends.
class Shell
{
public:
    explicit Shell(QLibrary& library)
        : m_destroy(reinterpret_cast<void (*)(IDllInstance*)>(library.resolve("VKDestroy")))
    {
        const auto create = reinterpret_cast<IDllInstance* (*)(const wchar_t*)>(library.resolve("VKCreate"));
        m_instance = create ? create(L"whole chain") : nullptr;
        if (!m_instance || !m_instance->Start())
            return;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget* const candidate : windows) {
            if (qobject_cast<QMainWindow*>(candidate))
                m_window = candidate;
        }
    }
    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;
    /// The hooks and the instance, as when a host ends.
    ~Shell()
    {
        if (!m_instance)
            return;
        m_instance->Stop();
        m_instance->Shutdown();
        m_destroy(m_instance);
    }

    QWidget* window() const { return m_window; }
    template <typename Control>
    Control* control(const char* name) const
    {
        return m_window->findChild<Control*>(QString::fromLatin1(name));
    }
    QPushButton* applyButton() const { return control<QPushButton>("applyButton"); }

private:
    void (*m_destroy)(IDllInstance*);
    IDllInstance* m_instance = nullptr;
    QWidget* m_window = nullptr;
};

void clickBox(QCheckBox* box)
{
    QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
}

/// Ends a session with the words of what does not hold.
#define EXPECT(condition)                                                                                    \
    do {                                                                                                     \
        if (!(condition))                                                                                    \
            return QStringLiteral(#condition);                                                               \
    } while (false)

// Each session returns what went wrong; empty if nothing.

QString waitForAutoApply(const Shell& shell)
{
    EXPECT(!QFile::exists(QString::fromLatin1(parameterFile)));
    clickBox(shell.control<QCheckBox>("mute"));
    EXPECT(shell.applyButton()->isEnabled());
    // The form's own timer applies after a second and a half.
    EXPECT(QTest::qWaitFor([&shell] { return !shell.applyButton()->isEnabled(); }, 20000));
    EXPECT(storedText(QStringLiteral("Audio/Mute")) == QStringLiteral("true"));
    // All parameters are stored, not only what was changed.
    EXPECT(storedText(QStringLiteral("Tuner/Frequency")) == QStringLiteral("98500000"));
    return QString();
}

QString pressApply(const Shell& shell)
{
    auto* const autoApply = shell.control<QCheckBox>("autoApply");
    EXPECT(autoApply->isChecked());
    clickBox(autoApply);
    EXPECT(!autoApply->isChecked());
    clickBox(shell.control<QCheckBox>("afc"));
    QTest::keyClick(shell.control<QComboBox>("palette"), Qt::Key_Down);
    // The range of the bandwidth follows the demodulation.
    QTest::keyClick(shell.control<QComboBox>("demodulation"), Qt::Key_Down);
    EXPECT(!QFile::exists(QString::fromLatin1(parameterFile)));
    QTest::mouseClick(shell.applyButton(), Qt::LeftButton);
    EXPECT(!shell.applyButton()->isEnabled());
    EXPECT(storedText(QStringLiteral("Tuner/Demodulation")) == QStringLiteral("AM"));
    EXPECT(storedText(QStringLiteral("Tuner/Bandwidth")) == QStringLiteral("50000"));
    // Return in a line of text applies at once.
    auto* const title = shell.control<QLineEdit>("displayName");
    title->selectAll();
    QTest::keyClicks(title, QStringLiteral("Hilltop & <co>"));
    QTest::keyClick(title, Qt::Key_Return);
    EXPECT(storedText(QStringLiteral("Display/Title")) == QStringLiteral("Hilltop & <co>"));
    return QString();
}

QString findSettingsAgain(const Shell& shell)
{
    EXPECT(shell.control<QCheckBox>("afc")->isChecked());
    EXPECT(shell.control<QLineEdit>("displayName")->text() == QStringLiteral("Hilltop & <co>"));
    EXPECT(shell.control<QComboBox>("palette")->currentText() == QStringLiteral("Heat"));
    EXPECT(shell.control<QComboBox>("demodulation")->currentText() == QStringLiteral("AM"));
    // What was read back is no edit.
    EXPECT(!shell.applyButton()->isEnabled());
    return QString();
}

QString leaveWithoutApplying(const Shell& shell)
{
    clickBox(shell.control<QCheckBox>("squelch"));
    EXPECT(!shell.control<QCheckBox>("squelch")->isChecked());
    EXPECT(shell.applyButton()->isEnabled());
    return QString();
}

QString findNothingNew(const Shell& shell)
{
    EXPECT(shell.control<QCheckBox>("squelch")->isChecked());
    return QString();
}

struct Session
{
    const char* name;
    QString (*run)(const Shell& shell);
};

const Session sessions[] = {{"wait for auto apply", waitForAutoApply},
                            {"press Apply", pressApply},
                            {"find settings again", findSettingsAgain},
                            {"leave without applying", leaveWithoutApplying},
                            {"find nothing new", findNothingNew}};

/// What a process of its own does; its fault goes to standard error.
int runSession(const QString& name)
{
    const VelkApplication host(QStringList{QStringLiteral("host"), QStringLiteral("-a"), QStringLiteral("-b"),
                                           QStringLiteral("-c"),
                                           QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva")});
    QLibrary library(QStringLiteral(ZORVA_MODULE_FILE));
    const Shell shell(library);
    QString fault = QStringLiteral("no such session");
    for (const Session& session : sessions) {
        if (name == QLatin1String(session.name))
            fault = shell.window() ? session.run(shell) : QStringLiteral("no window");
    }
    std::fprintf(stderr, "%s\n", qPrintable(fault));
    return fault.isEmpty() ? 0 : 1;
}

} // namespace

class TestWholeChain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sessionsShareTheFile_data();
    void sessionsShareTheFile();
};

void TestWholeChain::sessionsShareTheFile_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("auto-apply fires") << QStringList{QStringLiteral("wait for auto apply")};
    QTest::newRow("Apply is pressed, and a restart finds the settings")
        << QStringList{QStringLiteral("press Apply"), QStringLiteral("find settings again")};
    QTest::newRow("edits that nobody applied are lost")
        << QStringList{QStringLiteral("leave without applying"), QStringLiteral("find nothing new")};
}

void TestWholeChain::sessionsShareTheFile()
{
    QFETCH(QStringList, names);
    const QTemporaryDir folder;
    for (const QString& name : names) {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(sessionVariable), name);
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(), QStringList());
        QVERIFY(process.waitForFinished(100000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QVERIFY2(process.exitCode() == 0, process.readAllStandardError().constData());
    }
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (qEnvironmentVariableIsSet(sessionVariable))
        return runSession(qEnvironmentVariable(sessionVariable));
    TestWholeChain test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_wholechain.moc"
