#include <author/preview/authoreditor.h>

#include <QDesktopServices>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

using namespace Orvane::Author;

/// How an editor is asked to show a place.
class TestAuthorEditor : public QObject
{
    Q_OBJECT

    QUrl m_opened;

public Q_SLOTS:
    void open(const QUrl& url) { m_opened = url; }

private Q_SLOTS:
    void calls_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("call");
        const auto row = [](const char* command, const char* call) {
            QTest::newRow(command) << QString::fromLatin1(command) << QString::fromLatin1(call);
        };
        row("gvim", "gvim|+7|/a b/%l.zorva");
        row("/usr/bin/emacs -nw", "/usr/bin/emacs|-nw|+7|/a b/%l.zorva");
        row("kate", "kate|--line|7|--column|3|/a b/%l.zorva");
        row("code --wait", "code|--wait|--goto|/a b/%l.zorva:7:3");
        row("vim", "x-terminal-emulator|-e|vim|+7|/a b/%l.zorva");
        row("edit --at=%l:%c %f", "edit|--at=7:3|/a b/%l.zorva");
        row("\"/my tools/edit\" 100%% %f", "/my tools/edit|100%|/a b/%l.zorva");
        row("", "");
        row("   ", "");
    }
    void calls()
    {
        QFETCH(QString, command);
        QFETCH(QString, call);
        const EditorCall made = editorCall(command, QStringLiteral("/a b/%l.zorva"), 7, 3);
        QCOMPARE((QStringList(made.program) + made.arguments).join(QLatin1Char('|')), call);
    }
    void theUsersOwnComesFirst()
    {
        qputenv("VISUAL", "second");
        qputenv("ZORVA_EDITOR", "first");
        QCOMPARE(editorOfUser(), QStringLiteral("first"));
        qunsetenv("ZORVA_EDITOR");
        QCOMPARE(editorOfUser(), QStringLiteral("second"));
        qunsetenv("VISUAL");
        QCOMPARE(editorOfUser(), QString());
    }
    void theDesktopsOpensItIfNobodyHasSaid()
    {
        qunsetenv("ZORVA_EDITOR");
        qunsetenv("VISUAL");
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("form.zorva")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open");
        QCOMPARE(openInEditor(file.fileName(), 12, 1), QString());
        QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
        QCOMPARE(m_opened, QUrl::fromLocalFile(file.fileName()));
    }
    void aProgramIsStarted()
    {
        const QTemporaryDir folder;
        const QString script = folder.filePath(QStringLiteral("editor"));
        QFile file(script);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\nprintf '%s ' \"$@\" > \"$0.new\" && mv \"$0.new\" \"$0.called\"\n");
        file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
        file.close();
        qputenv("ZORVA_EDITOR", script.toLocal8Bit());
        QCOMPARE(openInEditor(QStringLiteral("/form.zorva"), 12, 1), QString());
        QFile called(script + QStringLiteral(".called"));
        QTRY_VERIFY(called.exists());
        QVERIFY(called.open(QIODevice::ReadOnly));
        QCOMPARE(called.readAll(), QByteArray("+12 /form.zorva "));
        qputenv("ZORVA_EDITOR", "/there/is/none");
        QVERIFY(openInEditor(QStringLiteral("/form.zorva"), 1, 1).contains(QLatin1String("does not start")));
        qunsetenv("ZORVA_EDITOR");
    }
};

QTEST_GUILESS_MAIN(TestAuthorEditor)
#include "tst_authoreditor.moc"
