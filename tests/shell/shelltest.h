#ifndef ZORVA_TESTS_SHELLTEST_H
#define ZORVA_TESTS_SHELLTEST_H

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/** Runs the program in a folder of its own and looks at what it says and how it ends. */
class ShellTest : public QObject
{
    Q_OBJECT

protected:
    static QString dataFile(const char* name);
    static bool makeFile(const QString& path, const QByteArray& content);

    /** A null @p value takes the variable away. */
    void setEnvironment(const QString& name, const QString& value);
    void start(const QStringList& arguments);
    /** As start(), with the plugin that performs @p steps from inside the program. */
    void drive(const QStringList& arguments, const QString& steps);
    /** Until the program obeys requests to end; it ends by itself if there is nothing to show. */
    void waitUntilShown();
    /** Until the program has said @p words on stderr. */
    void waitUntilSaid(const QString& words);
    void finish();

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<QProcess> program;
    QString output;
    QString errors; // what has been read of it so far

private Q_SLOTS:
    void init();
    void cleanup();
};

#endif
