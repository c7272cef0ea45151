#include "shelltest.h"

#include <QFile>

#include <csignal>

QString ShellTest::dataFile(const char* name)
{
    return QStringLiteral(ZORVA_TEST_DATA_DIR "/shell/") + QLatin1String(name);
}

bool ShellTest::makeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

void ShellTest::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
    program = std::make_unique<QProcess>();
    program->setWorkingDirectory(folder->path());
    output.clear();
    errors.clear();
    setEnvironment(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    setEnvironment(QStringLiteral("XDG_CONFIG_HOME"), folder->path());
}

void ShellTest::cleanup()
{
    if (program->state() != QProcess::NotRunning) {
        program->kill();
        program->waitForFinished();
    }
    program.reset();
    folder.reset();
}

void ShellTest::setEnvironment(const QString& name, const QString& value)
{
    QProcessEnvironment environment = program->processEnvironment();
    if (environment.isEmpty())
        environment = QProcessEnvironment::systemEnvironment();
    if (value.isNull())
        environment.remove(name);
    else
        environment.insert(name, value);
    program->setProcessEnvironment(environment);
}

void ShellTest::start(const QStringList& arguments)
{
    program->start(QStringLiteral(ZORVA_SHELL_PROGRAM), arguments, QIODevice::ReadOnly);
    QVERIFY2(program->waitForStarted(), qPrintable(program->errorString()));
}

void ShellTest::drive(const QStringList& arguments, const QString& steps)
{
    setEnvironment(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(ZORVA_SHELL_PLUGINS));
    setEnvironment(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("shelldriver"));
    setEnvironment(QStringLiteral("ZORVA_SHELL_STEPS"), steps);
    start(arguments);
}

void ShellTest::waitUntilShown()
{
    // The handlers are there before the form is read; what matters is that they are.
    const QString status = QStringLiteral("/proc/%1/status").arg(program->processId());
    const auto catchesTermination = [&status] {
        QFile file(status);
        if (!file.open(QIODevice::ReadOnly))
            return false;
        const QList<QByteArray> lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith("SigCgt:"))
                return (line.mid(7).trimmed().toULongLong(nullptr, 16) >> (SIGTERM - 1) & 1) == 1;
        }
        return false;
    };
    QTRY_VERIFY_WITH_TIMEOUT(catchesTermination(), 20000);
}

void ShellTest::waitUntilSaid(const QString& words)
{
    const auto wasSaid = [this, &words] {
        errors += QString::fromLocal8Bit(program->readAllStandardError());
        return errors.contains(words);
    };
    QTRY_VERIFY2_WITH_TIMEOUT(wasSaid() || program->state() == QProcess::NotRunning, qPrintable(errors),
                              20000);
    QVERIFY2(wasSaid(), qPrintable(errors));
}

void ShellTest::finish()
{
    const bool hasEnded = program->waitForFinished(30000);
    output = QString::fromLocal8Bit(program->readAllStandardOutput());
    errors += QString::fromLocal8Bit(program->readAllStandardError());
    QVERIFY2(hasEnded, qPrintable(QStringLiteral("the program does not end: ") + errors));
    QVERIFY2(program->exitStatus() == QProcess::NormalExit, qPrintable(errors));
}
