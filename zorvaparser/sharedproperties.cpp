#include "sharedproperties_p.h"

#include "bounds_p.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>

namespace Orvane {

namespace {

/** The names that rows have in one place, and each as text. */
QHash<QByteArray, QString>& sharedNames()
{
    static auto* const names = new QHash<QByteArray, QString>; // never destroyed
    return *names;
}

} // namespace

void sharePropertyNames(const QObject& row)
{
    QHash<QByteArray, QString>& shared = sharedNames();
    const QList<QByteArray> names = row.dynamicPropertyNames();
    // From the newest on, as those before it were seen to already.
    for (auto name = names.crbegin(); name != names.crend(); ++name) {
        const auto same = shared.constFind(*name);
        if (same == shared.cend()) {
            if (shared.size() < mostSharedNames && name->size() <= longestSharedText)
                shared.insert(*name, QString::fromLatin1(*name));
            continue;
        }
        if (same.key().constData() == name->constData())
            break;
        // This list is the row's own, not a copy, and an equal name takes the place of its like.
        const_cast<QByteArray&>(*name) = same.key();
    }
}

QString propertyNameText(const QByteArray& name)
{
    const QHash<QByteArray, QString>& shared = sharedNames();
    const auto same = shared.constFind(name);
    return same == shared.cend() ? QString::fromLatin1(name) : *same;
}

QString sharedPropertyText(const QByteArray& name, const QString& text)
{
    static auto* const newest = new QHash<QByteArray, QString>; // never destroyed
    // A null text equals an empty one, and is something else to those who ask.
    if (text.isEmpty() || text.size() > longestSharedText || name.size() > longestSharedText)
        return text;
    const auto last = newest->find(name);
    if (last == newest->end()) {
        if (newest->size() < mostSharedNames)
            newest->insert(name, text);
        return text;
    }
    if (*last != text)
        *last = text;
    return *last;
}

} // namespace Orvane
