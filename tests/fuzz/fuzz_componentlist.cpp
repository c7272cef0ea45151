// A component list of any kind, shown as tabs.
#include "harness.h"

#include <velkappstartup/velkapplication.h>
#include <zorvaparser/zorvatest.h>

#include <QTemporaryFile>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    // A form's script runs in this mode, and one that never ends is no finding.
    const QByteArray bytes = fuzz::bytesOf(data, size);
    if (bytes.contains("Script"))
        return 0;
    fuzz::ensureApplication();
    QTemporaryFile file;
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
        return 0;
    const VelkApplication application({QString(), QString(), QString(), QString(), file.fileName()});
    {
        Orvane::ZorvaTest shell(QStringLiteral("fuzz"));
        shell.Start();
    }
    for (const auto& window : qAsConst(Orvane::ZorvaTest::ShellWindows()))
        delete window;
    Orvane::ZorvaTest::ShellWindows().clear();
    Orvane::ZorvaTest::ShownForms().clear();
    return 0;
}
