#include "scenes.h"

#include <QProcess>

#include <cstring>

void addScenes(const QVector<Scene>& scenes)
{
    QTest::addColumn<bool>("stops");
    for (const Scene& scene : scenes) {
#ifdef QT_NO_DEBUG
        if (scene.stops)
            continue;
#endif
        QTest::newRow(scene.name) << scene.stops;
    }
}

QByteArray playedApart(bool stops)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--play"), QString::fromLatin1(QTest::currentDataTag())});
    const bool hasEnded = process.waitForFinished();
    const QByteArray errors = process.readAllStandardError();
    [&] {
        QVERIFY2(hasEnded, errors.constData());
        QCOMPARE(process.exitStatus(), stops ? QProcess::CrashExit : QProcess::NormalExit);
    }();
    return errors;
}

bool playsScene(const QVector<Scene>& scenes, int argc, char** argv)
{
    if (argc != 3 || std::strcmp(argv[1], "--play") != 0)
        return false;
    for (const Scene& scene : scenes) {
        if (std::strcmp(scene.name, argv[2]) == 0)
            scene.play();
    }
    return true;
}
