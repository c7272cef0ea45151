#ifndef ZORVA_TESTS_SCENES_H
#define ZORVA_TESTS_SCENES_H

#include <QByteArray>
#include <QCoreApplication>
#include <QVector>
#include <QtTest>

/// What a program of its own does, as it may end for it.
struct Scene
{
    const char* name;
    void (*play)();
    bool stops; ///< a debug build stops there
};

/// A column "stops" and a row for each scene; without those that stop where nobody looks.
void addScenes(const QVector<Scene>& scenes);
/// Plays the scene of the current row in a process of this program; what it said on stderr.
/// The test fails if that did not end as `stops` says.
QByteArray playedApart(bool stops);
/// Plays the scene if the command line asks for one, as playedApart() does; false if not.
bool playsScene(const QVector<Scene>& scenes, int argc, char** argv);

/// The main function of a test that plays scenes.
template <typename Test>
int runWithScenes(const QVector<Scene>& scenes, int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (playsScene(scenes, argc, argv))
        return 0;
    Test test;
    return QTest::qExec(&test, argc, argv);
}

#endif
