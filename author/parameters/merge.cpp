#include "merge.h"

namespace Orvane {
namespace Author {

namespace {

/** One of the sets may lack the setting; then its pointer is null. */
struct Sides
{
    const Setting* base;
    const Setting* ours;
    const Setting* theirs;
};

class Merger
{
public:
    Merger(const SettingsForm& form, Preference preference)
        : m_form(form)
        , m_preference(preference)
    {
    }

    void take(const Sides& sides)
    {
        const Setting* const chosen = choose(sides);
        if (chosen)
            m_settings.append(*chosen);
    }

    Merge result() const { return {parameterXml(m_form.emptyRoot(), m_settings), m_conflicts}; }

private:
    bool same(const Setting* left, const Setting* right) const
    {
        return left && right ? meansTheSame(m_form.rows().kind(left->row), *left, *right) : left == right;
    }

    const Setting* choose(const Sides& sides)
    {
        if (same(sides.ours, sides.theirs) || same(sides.base, sides.theirs))
            return sides.ours;
        if (same(sides.base, sides.ours))
            return sides.theirs;
        m_conflicts.append(conflict(sides));
        switch (m_preference) {
        case Preference::Ours:
            return sides.ours;
        case Preference::Theirs:
            return sides.theirs;
        case Preference::Neither:
            break;
        }
        return sides.base;
    }

    QString words(const Setting* setting) const
    {
        return setting ? m_form.words().of(*setting).value : QString();
    }

    Conflict conflict(const Sides& sides) const
    {
        const Setting& any = sides.base ? *sides.base : sides.ours ? *sides.ours : *sides.theirs;
        const auto text = [](const Setting* setting) { return setting ? setting->text() : QString(); };
        return {any.key,
                m_form.words().of(any).name(),
                text(sides.base),
                text(sides.ours),
                text(sides.theirs),
                words(sides.base),
                words(sides.ours),
                words(sides.theirs)};
    }

    const SettingsForm& m_form;
    Preference m_preference;
    QVector<Setting> m_settings;
    QVector<Conflict> m_conflicts;
};

} // namespace

Merge merge(const SettingsForm& form, const ParameterSet& base, const ParameterSet& ours,
            const ParameterSet& theirs, Preference preference)
{
    Merger merger(form, preference);
    for (const Setting& setting : base.settings())
        merger.take({&setting, ours.find(setting.key), theirs.find(setting.key)});
    for (const Setting& setting : ours.settings()) {
        if (!base.find(setting.key))
            merger.take({nullptr, &setting, theirs.find(setting.key)});
    }
    for (const Setting& setting : theirs.settings()) {
        if (!base.find(setting.key) && !ours.find(setting.key))
            merger.take({nullptr, nullptr, &setting});
    }
    return merger.result();
}

} // namespace Author
} // namespace Orvane
