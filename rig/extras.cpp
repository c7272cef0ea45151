#include "extras.h"

#include "words.h"

#include <algorithm>
#include <cmath>

namespace radio {

namespace {

constexpr int mostDecimals = 6;

/** One of a model's lists, and how its entries are read and written. */
struct ExtraList
{
    const confparams* entries; ///< ends with RIG_CONF_END; null for none
    Call call;
    const char* folder; ///< of the path
    bool readable;
    bool writable;
};

// Models of one maker share a list; which entries are theirs stands beside it.
bool belongsTo(const rig_caps& capabilities, token_t token)
{
    const int* own = capabilities.ext_tokens;
    if (!own)
        return true;
    while (*own > 0 && *own != token)
        ++own;
    return *own > 0;
}

/**
 * Hamlib's dummies have examples of extra levels, and fall over them, the whole process with them, on any VFO
 * but the first two.
 */
const confparams* levelsOf(const rig_caps& capabilities)
{
    const bool isDummy =
        capabilities.rig_model == RIG_MODEL_DUMMY || capabilities.rig_model == RIG_MODEL_DUMMY_NOVFO;
    return isDummy ? nullptr : capabilities.extlevels;
}

/** An element's name must not begin with a digit. */
QString leafOf(const QString& word)
{
    return word.at(0).isLetter() ? word : QLatin1Char('_') + word;
}

int decimalsOf(double step)
{
    return step > 0.0 && step < 1.0
               ? std::min(mostDecimals, static_cast<int>(std::ceil(-std::log10(step) - 1e-6)))
               : 0;
}

/** Hamlib has no place for a unit; some drivers' words tell it. */
QString unitOf(const confparams& entry)
{
    if (QString::fromUtf8(entry.tooltip).endsWith(QLatin1String("(dB)")))
        return QStringLiteral("dB");
    const bool isFrequency =
        QString::fromUtf8(entry.label).endsWith(QLatin1String("frequency"), Qt::CaseInsensitive);
    return isFrequency ? QStringLiteral("Hz") : QString();
}

void takeRange(Parameter& parameter, const confparams& entry)
{
    parameter.whole = false;
    parameter.unit = unitOf(entry);
    parameter.minimum = static_cast<double>(entry.u.n.min);
    parameter.maximum = static_cast<double>(entry.u.n.max);
    parameter.decimals = decimalsOf(static_cast<double>(entry.u.n.step));
    const double digit = std::pow(10.0, -parameter.decimals);
    parameter.step = std::max(digit, std::round(static_cast<double>(entry.u.n.step) / digit) * digit);
    if (parameter.maximum <= parameter.minimum)
        parameter.maximum = parameter.minimum + rangeOfUnknown;
}

void takeChoices(Parameter& parameter, const confparams& entry)
{
    for (int i = 0; i < RIG_COMBO_MAX && entry.u.c.combostr[i]; ++i)
        parameter.choices.append({QString::fromUtf8(entry.u.c.combostr[i]), QString::number(i)});
}

bool isShown(const confparams& entry)
{
    return entry.name && *entry.name &&
           (entry.type == RIG_CONF_NUMERIC || entry.type == RIG_CONF_CHECKBUTTON ||
            (entry.type == RIG_CONF_COMBO && entry.u.c.combostr[0]));
}

Look lookOf(const confparams& entry)
{
    if (entry.type == RIG_CONF_CHECKBUTTON)
        return Look::Switch;
    return entry.type == RIG_CONF_COMBO ? Look::Choice : Look::Number;
}

Parameter parameterOf(const ExtraList& list, const confparams& entry)
{
    Parameter parameter;
    parameter.call = list.call;
    parameter.token = entry.token;
    parameter.word = QString::fromUtf8(entry.name);
    parameter.path = QString::fromLatin1(list.folder) + leafOf(parameter.word);
    const bool isOfScope = parameter.word.startsWith(QLatin1String("SPECTRUM_"));
    parameter.group = QString::fromUtf8(isOfScope ? scopeGroup : extraGroup);
    const QString label = QString::fromUtf8(entry.label).trimmed();
    parameter.caption = label.isEmpty() ? parameter.word : label;
    const QString tip = QString::fromUtf8(entry.tooltip).trimmed();
    parameter.tip = tip == parameter.caption ? QString() : tip;
    parameter.readable = list.readable;
    parameter.writable = list.writable && !isReport(parameter.word);
    parameter.look = parameter.writable ? lookOf(entry) : Look::Reading;
    if (entry.type == RIG_CONF_NUMERIC)
        takeRange(parameter, entry);
    else if (entry.type == RIG_CONF_COMBO)
        takeChoices(parameter, entry);
    else if (parameter.look == Look::Reading)
        parameter.choices = Parameter::offAndOn();
    return parameter;
}

} // namespace

QList<Parameter> extrasOf(const rig_caps& capabilities)
{
    const ExtraList lists[] = {{levelsOf(capabilities), Call::Level, "Level/",
                                capabilities.get_ext_level != nullptr, capabilities.set_ext_level != nullptr},
                               {capabilities.extfuncs, Call::Function, "Function/",
                                capabilities.get_ext_func != nullptr, capabilities.set_ext_func != nullptr},
                               {capabilities.extparms, Call::Setting, "Setting/",
                                capabilities.get_ext_parm != nullptr, capabilities.set_ext_parm != nullptr}};
    QList<Parameter> extras;
    for (const ExtraList& list : lists) {
        for (const confparams* entry = list.entries; entry && entry->token != RIG_CONF_END; ++entry) {
            if (!isShown(*entry) || !belongsTo(capabilities, entry->token))
                continue;
            const Parameter parameter = parameterOf(list, *entry);
            if (parameter.writable || parameter.readable)
                extras.append(parameter);
        }
    }
    return extras;
}

} // namespace radio
