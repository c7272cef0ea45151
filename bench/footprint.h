#ifndef ZORVA_BENCH_FOOTPRINT_H
#define ZORVA_BENCH_FOOTPRINT_H

#include <QString>
#include <QStringList>

/// Memory of one thing, in bytes. Each is taken in a process of its own, so that
/// nothing is left over from another one.
struct Footprint
{
    qint64 heap = 0;
    qint64 resident = 0;
    bool valid = false;
};

/// What can be asked for: "floor-parsed", "ours-parsed", "floor-whole", "ours-whole"
/// and "uiloader-whole".
QStringList footprintNames();
/// Starts this program again to take one.
Footprint takeFootprint(const QString& name, int rows);
/// What that other process does: prints two numbers. Its exit code.
int printFootprint(const QString& name, int rows);

/// Arrangements of a shown form, counted at an item that is in its layout.
struct Arrangements
{
    int perResize = 0;
    int perGroup = 0; ///< closing and opening one group, per switch
};
Arrangements countArrangements(int rows);

#endif
