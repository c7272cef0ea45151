#include "shelltest.h"

#include <QRegularExpression>

namespace {

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool run(const QString& tool, const QStringList& arguments)
{
    return QProcess::execute(tool, arguments) == 0;
}

/// Each text stands in marks, as its own translation.
QString translated(QString ts)
{
    static const QRegularExpression open(
        QStringLiteral("<source>([^<]*)</source>(\\s*)<translation type=\"unfinished\">\\s*</translation>"));
    return ts.replace(open, QString::fromUtf8("<source>\\1</source>\\2<translation>«\\1»</translation>"));
}

QStringList sourcesOf(const QString& ts)
{
    QStringList sources;
    auto found = QRegularExpression(QStringLiteral("<source>([^<]*)</source>")).globalMatch(ts);
    while (found.hasNext())
        sources << found.next().captured(1).replace(QLatin1String("&amp;"), QLatin1String("&"));
    return sources;
}

} // namespace

/// A form in another language, from its description to the window of the shell.
class TestShellTranslations : public ShellTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextOfTheReceiver();

private:
    QStringList shownTexts(const QStringList& arguments);
    QString inFolder(const char* name) const { return folder->filePath(QLatin1String(name)); }
};

QStringList TestShellTranslations::shownTexts(const QStringList& arguments)
{
    setEnvironment(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(ZORVA_SHELL_PLUGINS));
    setEnvironment(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("shelldriver"));
    setEnvironment(QStringLiteral("ZORVA_SHELL_STEPS"), QStringLiteral("say texts;close all"));
    start(arguments);
    finish();
    QStringList texts;
    for (const QString& line : errors.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("text: ")))
            texts << line.mid(6);
    }
    return texts;
}

void TestShellTranslations::everyTextOfTheReceiver()
{
    QVERIFY(QFile::copy(QStringLiteral(ZORVA_EXAMPLES_DIR "/receiver.zorva"), inFolder("receiver.zorva")));
    const QString ts = inFolder("receiver_de.ts");
    QVERIFY(run(QStringLiteral(ZORVA_PROGRAM),
                {QStringLiteral("strings"), inFolder("receiver.zorva"), QStringLiteral("--ts"), ts}));
    const QString done = translated(QString::fromUtf8(read(ts)));
    QVERIFY(!done.contains(QLatin1String("unfinished")));
    QVERIFY(makeFile(ts, done.toUtf8()));
    QVERIFY(run(QStringLiteral(ZORVA_LRELEASE),
                {QStringLiteral("-silent"), ts, QStringLiteral("-qm"), inFolder("receiver_de.qm")}));

    const QStringList texts =
        shownTexts({QStringLiteral("--language"), QStringLiteral("de"), QStringLiteral("--translations"),
                    QStringLiteral("."), QStringLiteral("--fresh"), QStringLiteral("receiver.zorva")});
    // The library's own words, what the script computes, and what stands in edits.
    const QStringList others = {QStringLiteral("Anwenden"),  QStringLiteral("Automatisch anwenden"),
                                QStringLiteral("Abstimmen"), QStringLiteral("1.25 kHz"),
                                QString::fromUtf8("800 µs"), QStringLiteral("Receiver 1")};
    static const QRegularExpression number(QString::fromUtf8("^[-0-9.]+ ?(Hz|kHz|MHz|dB|dBµV|s|%)?$"));
    QVERIFY(texts.contains(others.first()) && texts.contains(others.at(1)));
    for (const QString& text : texts) {
        const bool isWord = text.contains(QRegularExpression(QStringLiteral("[A-Za-z]")));
        const bool isKnown =
            text.startsWith(QChar(0xab)) || others.contains(text) || number.match(text).hasMatch();
        QVERIFY2(!isWord || isKnown, qPrintable(text));
    }
    for (const QString& source : sourcesOf(done)) {
        const QString text = QChar(0xab) + source + QChar(0xbb);
        const bool isToolTip = source.endsWith(QLatin1String("%1"));
        const bool isReplacedByScript = source == QLatin1String("-");
        QVERIFY2(isToolTip || isReplacedByScript || texts.contains(text), qPrintable(text));
    }
}

QTEST_GUILESS_MAIN(TestShellTranslations)
#include "tst_shelltranslations.moc"
