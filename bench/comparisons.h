#ifndef ZORVA_BENCH_COMPARISONS_H
#define ZORVA_BENCH_COMPARISONS_H

#include "comparison.h"
#include "formgenerator.h"

#include <QString>

#include <vector>

/// The texts of the load at one size.
struct Load
{
    explicit Load(int rows, Grouping grouping = Grouping::Twenty);

    /// Made when first asked for, and kept.
    static const Load& ofSize(int rows, Grouping grouping = Grouping::Twenty);

    FormGenerator form;
    QString description;
    QString parameters;
    QString changed;
    QString ui; // empty unless in groups of twenty, like the next one
    QString qml;
};

/// A comparison by name, to be made for a load of any size.
struct ComparisonKind
{
    const char* name;  ///< one word
    const char* title; ///< "ours / theirs"
    Comparison (*make)(const Load& load);
    bool counted; ///< worth counting instructions: they repeat
    /// What is missing here to run it, empty if nothing is; null: never anything.
    QString (*lack)() = nullptr;
};

/// False, with a note on standard error, if what it compares with is not there.
bool isAvailable(const ComparisonKind& kind);
const std::vector<ComparisonKind>& comparisonKinds();
/// Null if there is no such name.
const ComparisonKind* findComparison(const QString& name);

#endif
