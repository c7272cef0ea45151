#ifndef ZORVA_TESTS_RANGEMAPS_H
#define ZORVA_TESTS_RANGEMAPS_H

#include <valueframework/tree.h>
#include <valueframework/valuecommentedrangemap.h>

#include <QString>
#include <QStringList>

/// The map at that path of the value tree; null if there is none.
inline values::ValueCommentedRangeMap* rangeMapAt(const QString& path)
{
    return dynamic_cast<values::ValueCommentedRangeMap*>(values::Tree::Instance()->GetValue(path));
}

inline void setRange(values::ValueCommentedRangeMap* map, unsigned int key, double start, double stop)
{
    values::CommentedRange range;
    range.SetRangeStart(start);
    range.SetRangeStop(stop);
    map->SetAt(key, range, nullptr);
}

/// "key:start-stop" for each range, with blanks between them.
inline QString rangesText(const values::ValueCommentedRangeMap* map)
{
    QStringList texts;
    for (const auto& entry : map->data())
        texts << QStringLiteral("%1:%2-%3")
                     .arg(entry.first)
                     .arg(entry.second.GetRangeStart(), 0, 'g', 15)
                     .arg(entry.second.GetRangeStop(), 0, 'g', 15);
    return texts.join(QLatin1Char(' '));
}

#endif
