#include "differences.h"

#include <QSet>

namespace Orvane {
namespace Author {

namespace {

Difference::Kind kindOf(const SettingsForm& form, const Setting* a, const Setting* b, bool isDifferent)
{
    const int row = (a ? a : b)->row;
    if (row < 0)
        return Difference::Unknown;
    if (!form.sends(row))
        return Difference::NotSent;
    if (!b)
        return Difference::OnlyInA;
    if (!a)
        return Difference::OnlyInB;
    return isDifferent ? Difference::Changed : Difference::Equal;
}

/** One of both may be null. */
Difference difference(const SettingsForm& form, const Setting* a, const Setting* b)
{
    const Setting& any = a ? *a : *b;
    Difference made;
    made.isDifferent = !a || !b || !meansTheSame(form.rows().kind(any.row), *a, *b);
    made.kind = kindOf(form, a, b, made.isDifferent);
    made.key = any.key;
    made.name = form.words().of(any).name();
    if (a) {
        made.textA = a->text();
        made.wordsA = form.words().of(*a).value;
    }
    if (b) {
        made.textB = b->text();
        made.wordsB = form.words().of(*b).value;
    }
    return made;
}

/** Rows of which the two exports of one form say different things. */
QSet<int> differentRows(const SettingsForm& form, const ParameterSet& a, const ParameterSet& b)
{
    QSet<int> rows;
    for (const Difference& one : differences(form, a, b)) {
        const Setting* const setting = a.find(one.key) ? a.find(one.key) : b.find(one.key);
        if (one.isDifferent && setting->row >= 0)
            rows.insert(setting->row);
    }
    return rows;
}

QVector<Setting> ofRows(const ParameterSet& set, const QSet<int>& rows)
{
    QVector<Setting> chosen;
    for (const Setting& setting : set.settings()) {
        if (rows.contains(setting.row))
            chosen.append(setting);
    }
    return chosen;
}

} // namespace

QString kindName(Difference::Kind kind)
{
    static const QStringList names{QStringLiteral("equal"),     QStringLiteral("changed"),
                                   QStringLiteral("only-in-a"), QStringLiteral("only-in-b"),
                                   QStringLiteral("unknown"),   QStringLiteral("not-sent")};
    return names.at(kind);
}

QVector<Difference> differences(const SettingsForm& form, const ParameterSet& a, const ParameterSet& b)
{
    QVector<Difference> all;
    for (const Setting& setting : a.settings())
        all.append(difference(form, &setting, b.find(setting.key)));
    for (const Setting& setting : b.settings()) {
        if (!a.find(setting.key))
            all.append(difference(form, nullptr, &setting));
    }
    return all;
}

Patch patch(const SettingsForm& form, const QString& a, const QString& b)
{
    const ParameterSet wanted = form.read(form.exportedAfter({b}));
    QSet<int> rows = differentRows(form, form.read(form.exportedAfter({a})), wanted);
    Patch made;
    while (true) {
        made.xml = parameterXml(form.emptyRoot(), ofRows(wanted, rows));
        const ParameterSet reached = form.read(form.exportedAfter({a, made.xml}));
        const QSet<int> left = differentRows(form, reached, wanted);
        if (rows.contains(left)) {
            for (const Setting& setting : ofRows(wanted, left))
                made.unreachable.append(form.words().of(setting).name());
            made.unreachable.removeDuplicates();
            return made;
        }
        rows += left;
    }
}

} // namespace Author
} // namespace Orvane
