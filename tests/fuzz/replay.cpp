// Runs a fuzz target over files and folders of files, in builds without libFuzzer.
#include "harness.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

bool replay(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return false;
    }
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t*>(bytes.constData()),
                           static_cast<size_t>(bytes.size()));
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        const QString path = QString::fromLocal8Bit(argv[i]);
        if (!QFileInfo(path).isDir()) {
            if (!replay(path))
                return 1;
            ++count;
            continue;
        }
        QDirIterator files(path, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            if (!replay(files.next()))
                return 1;
            ++count;
        }
    }
    std::printf("%d inputs replayed\n", count);
    return count > 0 ? 0 : 1;
}
