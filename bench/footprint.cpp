#include "footprint.h"

#include "comparisons.h"
#include "floorform.h"
#include "handform.h"
#include "liveform.h"
#include "peerform.h"

#include <QCoreApplication>
#include <QFile>
#include <QLayout>
#include <QLayoutItem>
#include <QProcess>

#include <cstdio>
#include <malloc.h>
#include <unistd.h>

namespace {

qint64 heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks) + qint64(info.hblkhd);
}

qint64 residentNow()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').value(1).toLongLong() * sysconf(_SC_PAGESIZE);
}

/// Keeps what was made until the numbers are taken.
struct Kept
{
    std::unique_ptr<FloorForm> floor;
    std::unique_ptr<HandForm> hand;
    std::unique_ptr<LiveForm> ours;
    std::unique_ptr<PeerForm> peer;
};

bool make(const QString& name, const Load& load, Kept& kept)
{
    if (name.startsWith(QLatin1String("floor"))) {
        kept.floor = std::make_unique<FloorForm>();
        kept.floor->parse(load.description);
    } else if (name.startsWith(QLatin1String("ours"))) {
        kept.ours = std::make_unique<LiveForm>(load.description);
    } else {
        kept.peer = std::make_unique<PeerForm>(load.ui);
        return kept.peer->show();
    }
    if (!name.endsWith(QLatin1String("whole")))
        return true;
    if (kept.ours) {
        kept.ours->bringUp();
        return true;
    }
    kept.floor->buildElements();
    kept.floor->createValues();
    kept.hand = std::make_unique<HandForm>(load.form, HandForm::FloatLayout);
    return showAndPaint(kept.hand->window(), kept.hand->content());
}

class CountingItem : public QLayoutItem
{
public:
    QSize sizeHint() const override
    {
        ++asked;
        return QSize(10, 2);
    }
    QSize minimumSize() const override { return QSize(10, 2); }
    QSize maximumSize() const override { return QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX); }
    Qt::Orientations expandingDirections() const override { return {}; }
    void setGeometry(const QRect&) override {}
    QRect geometry() const override { return QRect(); }
    bool isEmpty() const override { return false; }

    mutable int asked = 0;
};

} // namespace

QStringList footprintNames()
{
    return {QStringLiteral("floor-parsed"), QStringLiteral("ours-parsed"), QStringLiteral("floor-whole"),
            QStringLiteral("ours-whole"), QStringLiteral("uiloader-whole")};
}

Footprint takeFootprint(const QString& name, int rows)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(),
                  {QStringLiteral("--footprint"), name, QStringLiteral("--rows"), QString::number(rows)});
    process.waitForFinished(-1);
    const QList<QByteArray> numbers = process.readAllStandardOutput().trimmed().split(' ');
    if (process.exitCode() != 0 || numbers.size() != 2)
        return {};
    return {numbers.at(0).toLongLong(), numbers.at(1).toLongLong(), true};
}

int printFootprint(const QString& name, int rows)
{
    if (!footprintNames().contains(name))
        return 2;
    {
        // What Qt makes once is made before the count.
        Kept warm;
        make(name, Load::ofSize(20), warm);
        settle();
    }
    const Load& load = Load::ofSize(rows);
    malloc_trim(0);
    const qint64 heap = heapInUse();
    const qint64 resident = residentNow();
    Kept kept;
    if (!make(name, load, kept))
        return 1;
    std::printf("%lld %lld\n", heapInUse() - heap, residentNow() - resident);
    std::fflush(stdout);
    return 0;
}

Arrangements countArrangements(int rows)
{
    LiveForm form(Load::ofSize(rows).description);
    form.bringUp();
    auto* const item = new CountingItem;
    form.content()->layout()->addItem(item);
    form.content()->layout()->update();
    settle();
    form.window()->resize(300, windowHeight);
    settle();

    Arrangements counted;
    item->asked = 0;
    form.window()->resize(1600, windowHeight);
    settle();
    counted.perResize = item->asked;
    Orvane::ZorvaSheet& sheet = form->GetSheet();
    for (const bool open : {false, true}) {
        item->asked = 0;
        sheet.setGroupVisible(sheet.GetWidgetAt(0).data(), open);
        settle();
        counted.perGroup = qMax(counted.perGroup, item->asked);
    }
    return counted;
}
