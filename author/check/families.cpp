#include "families.h"

#include <QHash>

namespace Orvane {
namespace Author {

const QVector<const Family*>& families()
{
    static const QVector<const Family*> all{&documentFamily,     &typesFamily, &namesFamily,
                                            &enumerationsFamily, &rowsFamily,  &pathsFamily,
                                            &scriptFamily,       &reachFamily, &suppressionFamily};
    return all;
}

const Rule* findRule(const QString& id)
{
    static const QHash<QString, const Rule*> rules = [] {
        QHash<QString, const Rule*> all;
        for (const Family* const family : families()) {
            for (const Rule& rule : family->rules)
                all.insert(QLatin1String(rule.id), &rule);
        }
        return all;
    }();
    return rules.value(id, nullptr);
}

QStringList ruleIds()
{
    QStringList ids;
    for (const Family* const family : families()) {
        for (const Rule& rule : family->rules)
            ids.append(QLatin1String(rule.id));
    }
    return ids;
}

} // namespace Author
} // namespace Orvane
