#include "zorvarun.h"

#include <QProcess>

ZorvaRun runProgram(const QString& program, const QStringList& arguments, const QByteArray& input,
                    const QString& folder)
{
    QProcess process;
    if (!folder.isNull())
        process.setWorkingDirectory(folder);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit)
        return ZorvaRun();
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

ZorvaRun runZorva(const QStringList& arguments, const QByteArray& input, const QString& folder)
{
    return runProgram(QStringLiteral(ZORVA_PROGRAM), arguments, input, folder);
}
