#include "parameter.h"

#include "extras.h"
#include "words.h"

#include <QMap>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace radio {

namespace {

constexpr int settingBits = 63;
constexpr int modeBits = 63;
constexpr int vfoBits = 29; // above are marks, not VFOs
constexpr int mostHertzOffset = 1000000000;

QString text(const char* word)
{
    return QString::fromUtf8(word);
}

QString hertzWords(long hertz)
{
    if (hertz % 1000000 == 0 && hertz != 0)
        return QStringLiteral("%1 MHz").arg(hertz / 1000000);
    if (std::labs(hertz) >= 1000)
        return QStringLiteral("%1 kHz").arg(static_cast<double>(hertz) / 1000.0);
    return QStringLiteral("%1 Hz").arg(hertz);
}

/** A choice that Hamlib numbers, and its name. */
struct NumberedName
{
    int number;
    const char* name;
};

const NumberedName meterNames[] = {{RIG_METER_SWR, "SWR"},     {RIG_METER_COMP, "Compression"},
                                   {RIG_METER_ALC, "ALC"},     {RIG_METER_IC, "Current"},
                                   {RIG_METER_DB, "Level"},    {RIG_METER_PO, "Power out"},
                                   {RIG_METER_VDD, "Voltage"}, {RIG_METER_TEMP, "Temperature"}};

const NumberedName bandNames[] = {
    {RIG_BAND_160M, "160 m"},     {RIG_BAND_80M, "80 m"},     {RIG_BAND_60M, "60 m"},
    {RIG_BAND_40M, "40 m"},       {RIG_BAND_30M, "30 m"},     {RIG_BAND_20M, "20 m"},
    {RIG_BAND_17M, "17 m"},       {RIG_BAND_15M, "15 m"},     {RIG_BAND_12M, "12 m"},
    {RIG_BAND_10M, "10 m"},       {RIG_BAND_6M, "6 m"},       {RIG_BAND_GEN, "General"},
    {RIG_BAND_MW, "Medium wave"}, {RIG_BAND_AIR, "Air band"}, {RIG_BAND_144MHZ, "144 MHz"},
    {RIG_BAND_430MHZ, "430 MHz"}};

const NumberedName announcementNames[] = {{RIG_ANN_OFF, "Off"},        {RIG_ANN_FREQ, "Frequency"},
                                          {RIG_ANN_RXMODE, "Mode"},    {RIG_ANN_CW, "In CW"},
                                          {RIG_ANN_ENG, "In English"}, {RIG_ANN_JAP, "In Japanese"}};

template <std::size_t Count>
QList<Choice> numbered(const NumberedName (&names)[Count])
{
    QList<Choice> choices;
    for (const NumberedName& entry : names)
        choices.append({text(entry.name), QString::number(entry.number)});
    return choices;
}

QString scopeModeName(int mode)
{
    switch (mode) {
    case RIG_SPECTRUM_MODE_CENTER:
        return QStringLiteral("Centred");
    case RIG_SPECTRUM_MODE_FIXED:
        return QStringLiteral("Fixed");
    case RIG_SPECTRUM_MODE_CENTER_SCROLL:
        return QStringLiteral("Centred, scrolling");
    case RIG_SPECTRUM_MODE_FIXED_SCROLL:
        return QStringLiteral("Fixed, scrolling");
    default:
        return QString::number(mode);
    }
}

/** One list of a model stands for one region; the first that is filled is taken. */
QList<freq_range_t> firstFilled(std::initializer_list<const freq_range_t*> lists)
{
    QList<freq_range_t> ranges;
    for (const freq_range_t* const list : lists) {
        for (int i = 0; i < HAMLIB_FRQRANGESIZ && !RIG_IS_FRNG_END(list[i]); ++i)
            ranges.append(list[i]);
        if (!ranges.isEmpty())
            break;
    }
    return ranges;
}

/** Tells over one model's capabilities, part by part. */
class Survey
{
public:
    explicit Survey(const rig_caps& capabilities)
        : m_caps(capabilities)
    {
        gatherRanges();
    }

    QList<Parameter> take()
    {
        addTuning();
        addModes();
        addTransmitMode();
        addSettings(m_caps.has_get_level, m_caps.has_set_level, &Survey::addLevel);
        addAntennas();
        addTones();
        addSettings(m_caps.has_get_func, m_caps.has_set_func, &Survey::addFunction);
        addSettings(m_caps.has_get_parm, m_caps.has_set_parm, &Survey::addSetting);
        m_parameters += extrasOf(m_caps);
        for (Parameter& parameter : m_parameters)
            dropTwins(parameter.choices);
        return m_parameters;
    }

private:
    using AddSetting = void (Survey::*)(int bit, bool readable, bool writable);

    void gatherRanges();
    void addTuning();
    QList<Choice> vfoChoices() const;
    void addVfos();
    void addFrequency(double step);
    bool canSplit() const;
    void addSplit(double step);
    void addTransmitMode();
    static void takeRange(Parameter& parameter, const QList<freq_range_t>& ranges, double step);
    static QList<Choice> modeChoices(rmode_t modes);
    QList<Choice> stepChoices() const;
    void addOffset(const char* path, const char* caption, Call call, bool readable, double lowest,
                   double highest);
    void addModes();
    void addPassbands(const QStringList& modes);
    void addSettings(setting_t readable, setting_t writable, AddSetting add);
    void addLevel(int bit, bool readable, bool writable);
    void addFunction(int bit, bool readable, bool writable);
    void addSetting(int bit, bool readable, bool writable);
    void addAntennas();
    void addTones();
    void addTone(const char* path, const char* caption, Call call, bool readable, bool writable);

    Parameter* add(const char* path, Call call, Look look, const char* group, const char* caption,
                   const char* tip, bool readable, bool writable);
    Parameter fromWords(const Words& words, bool readable, bool writable) const;
    static void narrow(Parameter& parameter, const gran_t& granularity, bool isFloat);
    QList<Choice> levelChoices(const QString& word) const;
    QList<Choice> scopeChoices(const QString& word) const;
    static QList<Choice> decibels(const int* list);
    QList<Choice> agcChoices() const;
    static QString words(const QList<freq_range_t>& ranges);
    static void dropTwins(QList<Choice>& choices);

    const rig_caps& m_caps;
    QList<Parameter> m_parameters;
    QList<freq_range_t> m_ranges;
    QList<freq_range_t> m_transmitRanges;
    rmode_t m_modes = 0;
    rmode_t m_transmitModes = 0;
    vfo_t m_vfos = 0;
    ant_t m_antennas = 0;
};

void Survey::gatherRanges()
{
    m_ranges = firstFilled({m_caps.rx_range_list1, m_caps.rx_range_list2, m_caps.rx_range_list3,
                            m_caps.rx_range_list4, m_caps.rx_range_list5});
    m_transmitRanges = firstFilled({m_caps.tx_range_list1, m_caps.tx_range_list2, m_caps.tx_range_list3,
                                    m_caps.tx_range_list4, m_caps.tx_range_list5});
    for (const freq_range_t& range : qAsConst(m_ranges)) {
        m_modes |= range.modes;
        m_vfos |= range.vfo;
        m_antennas |= range.ant;
    }
    for (const freq_range_t& range : qAsConst(m_transmitRanges))
        m_transmitModes |= range.modes;
}

Parameter* Survey::add(const char* path, Call call, Look look, const char* group, const char* caption,
                       const char* tip, bool readable, bool writable)
{
    if (!readable && !writable)
        return nullptr;
    Parameter parameter;
    parameter.path = text(path);
    parameter.call = call;
    parameter.look = look;
    parameter.group = text(group);
    parameter.caption = text(caption);
    parameter.tip = text(tip);
    parameter.readable = readable;
    parameter.writable = writable;
    m_parameters.append(parameter);
    return &m_parameters.last();
}

QString Survey::words(const QList<freq_range_t>& ranges)
{
    QStringList all;
    for (const freq_range_t& range : ranges) {
        all.append(
            QStringLiteral("%1 to %2")
                .arg(hertzWords(static_cast<long>(range.startf)), hertzWords(static_cast<long>(range.endf))));
    }
    all.removeDuplicates();
    return all.join(QLatin1String(", "));
}

// Some drivers list the same thing twice.
void Survey::dropTwins(QList<Choice>& choices)
{
    QSet<QString> seen;
    const auto isTwin = [&seen](const Choice& choice) {
        const bool twin = seen.contains(choice.name) || seen.contains(choice.value + QLatin1Char('\n'));
        seen << choice.name << choice.value + QLatin1Char('\n');
        return twin;
    };
    choices.erase(std::remove_if(choices.begin(), choices.end(), isTwin), choices.end());
}

void Survey::addTuning()
{
    addVfos();
    const QList<Choice> steps = stepChoices();
    const double step = steps.isEmpty() ? 100.0 : steps.first().value.toDouble();
    addFrequency(step);
    if (!steps.isEmpty() && m_caps.set_ts)
        add("Tuning/Step", Call::TuningStep, Look::Choice, tuningGroup, "Tuning step",
            "Step of the radio's tuning knob", m_caps.get_ts, true)
            ->choices = steps;
    const double rit = static_cast<double>(m_caps.max_rit);
    const double xit = static_cast<double>(m_caps.max_xit);
    if (m_caps.set_rit)
        addOffset("Tuning/RIT", "RIT offset", Call::Rit, m_caps.get_rit, -rit, rit);
    if (m_caps.set_xit)
        addOffset("Tuning/XIT", "XIT offset", Call::Xit, m_caps.get_xit, -xit, xit);
    if (m_caps.set_rptr_shift)
        add("Tuning/RepeaterShift", Call::RepeaterShift, Look::Choice, tuningGroup, "Repeater shift",
            "Where the repeater listens", m_caps.get_rptr_shift, true)
            ->choices = {{QStringLiteral("None"), QStringLiteral("None")},
                         {QStringLiteral("Below (-)"), QStringLiteral("-")},
                         {QStringLiteral("Above (+)"), QStringLiteral("+")}};
    if (m_caps.set_rptr_offs)
        addOffset("Tuning/RepeaterOffset", "Repeater offset", Call::RepeaterOffset, m_caps.get_rptr_offs, 0.0,
                  mostHertzOffset);
    addSplit(step);
}

QList<Choice> Survey::vfoChoices() const
{
    QList<Choice> choices;
    for (int bit = 0; bit < vfoBits; ++bit) {
        const vfo_t vfo = RIG_VFO_N(bit);
        const QString word = m_vfos & vfo ? text(rig_strvfo(vfo)) : QString();
        if (!word.isEmpty())
            choices.append({word, word});
    }
    return choices;
}

void Survey::addVfos()
{
    const QList<Choice> choices = vfoChoices();
    if (choices.isEmpty())
        return;
    Parameter* const row = add("Tuning/VFO", Call::Vfo, Look::Choice, tuningGroup, "VFO",
                               "Which of the radio's VFOs is used", m_caps.get_vfo, m_caps.set_vfo);
    if (row)
        row->choices = choices;
}

void Survey::addFrequency(double step)
{
    if (m_ranges.isEmpty())
        return;
    Parameter* const row = add("Tuning/Frequency", Call::Frequency, Look::Frequency, tuningGroup, "Frequency",
                               "", m_caps.get_freq, m_caps.set_freq);
    if (!row)
        return;
    row->tip = QStringLiteral("Receives ") + words(m_ranges);
    takeRange(*row, m_ranges, step);
}

void Survey::takeRange(Parameter& parameter, const QList<freq_range_t>& ranges, double step)
{
    parameter.minimum = ranges.first().startf;
    for (const freq_range_t& range : ranges) {
        parameter.minimum = std::min(parameter.minimum, range.startf);
        parameter.maximum = std::max(parameter.maximum, range.endf);
    }
    parameter.step = step;
    parameter.unit = QStringLiteral("Hz");
}

bool Survey::canSplit() const
{
    return m_caps.set_split_vfo && vfoChoices().size() > 1 && !m_transmitRanges.isEmpty();
}

// Hamlib tunes the transmitting VFO of radios that cannot do so by switching VFOs to and fro, while the
// operator listens: those have no rows for it.
void Survey::addSplit(double step)
{
    if (!canSplit())
        return;
    const QList<Choice> vfos = vfoChoices();
    Parameter* const split = add("Tuning/Split", Call::Split, Look::Choice, tuningGroup, "Split",
                                 "Transmit on another VFO than the receiver's", m_caps.get_split_vfo, true);
    split->choices.append({QStringLiteral("Off"), QStringLiteral("Off")});
    for (const Choice& vfo : vfos)
        split->choices.append({QStringLiteral("Transmit on %1").arg(vfo.name), vfo.value});
    if (m_caps.get_split_freq && m_caps.set_split_freq) {
        Parameter* const row = add("Tuning/TransmitFrequency", Call::TransmitFrequency, Look::Frequency,
                                   tuningGroup, "Transmit frequency", "", true, true);
        row->tip = QStringLiteral("In split operation. Transmits ") + words(m_transmitRanges);
        takeRange(*row, m_transmitRanges, step);
    }
}

void Survey::addTransmitMode()
{
    const QList<Choice> modes = modeChoices(m_transmitModes);
    if (canSplit() && m_caps.get_split_mode && m_caps.set_split_mode && !modes.isEmpty())
        add("Mode/TransmitMode", Call::TransmitMode, Look::Choice, modeGroup, "Transmit mode",
            "Modulation in split operation", true, true)
            ->choices = modes;
}

QList<Choice> Survey::stepChoices() const
{
    QList<Choice> steps;
    for (int i = 0; i < HAMLIB_TSLSTSIZ && !RIG_IS_TS_END(m_caps.tuning_steps[i]); ++i) {
        const long step = m_caps.tuning_steps[i].ts;
        if (step > 0)
            steps.append({hertzWords(step), QString::number(step)});
    }
    return steps;
}

void Survey::addOffset(const char* path, const char* caption, Call call, bool readable, double lowest,
                       double highest)
{
    if (highest <= 0.0)
        return;
    Parameter* const row = add(path, call, Look::Number, tuningGroup, caption, "", readable, true);
    row->minimum = lowest;
    row->maximum = highest;
    row->step = 10.0;
    row->unit = QStringLiteral("Hz");
}

QList<Choice> Survey::modeChoices(rmode_t modes)
{
    QList<Choice> choices;
    for (int bit = 0; bit < modeBits; ++bit) {
        const rmode_t mode = CONSTANT_64BIT_FLAG(bit);
        const QString word = modes & mode ? text(rig_strrmode(mode)) : QString();
        const auto isSame = [&word](const Choice& choice) { return choice.value == word; };
        if (!word.isEmpty() && std::none_of(choices.begin(), choices.end(), isSame))
            choices.append({modeName(word), word});
    }
    return choices;
}

void Survey::addModes()
{
    const QList<Choice> choices = modeChoices(m_modes);
    if (choices.isEmpty() || !add("Mode/Mode", Call::Mode, Look::Choice, modeGroup, "Mode", "Demodulation",
                                  m_caps.get_mode, m_caps.set_mode))
        return;
    m_parameters.last().choices = choices;
    QStringList words;
    for (const Choice& choice : choices)
        words.append(choice.value);
    addPassbands(words);
}

// Modes with the same filters share a row.
void Survey::addPassbands(const QStringList& modes)
{
    QMap<QString, QList<long>> widthsOf;
    for (const QString& word : modes) {
        const rmode_t mode = rig_parse_mode(word.toLatin1().constData());
        QList<long>& widths = widthsOf[word];
        for (int i = 0; i < HAMLIB_FLTLSTSIZ && !RIG_IS_FLT_END(m_caps.filters[i]); ++i) {
            const long width = m_caps.filters[i].width;
            if ((m_caps.filters[i].modes & mode) && width > 0 && !widths.contains(width))
                widths.append(width);
        }
        std::sort(widths.begin(), widths.end());
    }
    QSet<QString> done;
    for (const QString& word : modes) {
        const QList<long> widths = widthsOf.value(word);
        if (widths.isEmpty() || done.contains(word))
            continue;
        QStringList sharing;
        for (const QString& other : modes) {
            if (widthsOf.value(other) == widths)
                sharing.append(other);
        }
        done += QSet<QString>(sharing.begin(), sharing.end());
        QString suffix = word;
        suffix.remove(QLatin1Char('-'));
        Parameter* const row =
            add("", Call::Passband, Look::Choice, modeGroup, "Filter", "", m_caps.get_mode, m_caps.set_mode);
        row->path = QStringLiteral("Mode/Passband_") + suffix;
        row->tip = QStringLiteral("Width of the filter for ") + sharing.join(QLatin1String(", "));
        row->modes = sharing;
        for (const long width : widths)
            row->choices.append({hertzWords(width), QString::number(width)});
    }
}

void Survey::addSettings(setting_t readable, setting_t writable, AddSetting addOne)
{
    for (int bit = 0; bit < settingBits; ++bit) {
        const setting_t flag = CONSTANT_64BIT_FLAG(bit);
        if ((readable | writable) & flag)
            (this->*addOne)(bit, readable & flag, writable & flag);
    }
}

Parameter Survey::fromWords(const Words& words, bool readable, bool writable) const
{
    Parameter parameter;
    parameter.word = text(words.word);
    parameter.group = text(words.group);
    parameter.caption = text(words.caption);
    parameter.tip = text(words.tip);
    parameter.unit = text(words.unit);
    parameter.factor = words.factor;
    parameter.decimals = words.decimals;
    parameter.minimum = words.minimum;
    parameter.maximum = words.maximum;
    parameter.step = words.step;
    parameter.readable = readable;
    parameter.writable = writable && words.group != meterGroup;
    parameter.look = parameter.writable ? Look::Number : Look::Reading;
    return parameter;
}

// What Hamlib tells of a model's range wins over the usual one.
void Survey::narrow(Parameter& parameter, const gran_t& granularity, bool isFloat)
{
    const auto number = [isFloat](const value_t& value) {
        return isFloat ? static_cast<double>(value.f) : static_cast<double>(value.i);
    };
    const double minimum = number(granularity.min) * parameter.factor;
    const double maximum = number(granularity.max) * parameter.factor;
    const double digit = std::pow(10.0, -parameter.decimals);
    if (maximum > minimum && maximum - minimum >= digit) {
        parameter.minimum = std::round(minimum / digit) * digit;
        parameter.maximum = std::round(maximum / digit) * digit;
    }
    const double step = std::round(number(granularity.step) * parameter.factor / digit) * digit;
    if (step > parameter.step && step <= parameter.maximum - parameter.minimum)
        parameter.step = step;
}

void Survey::addLevel(int bit, bool readable, bool writable)
{
    const setting_t level = CONSTANT_64BIT_FLAG(bit);
    const QString word = text(rig_strlevel(level));
    const Words* const words = levelWords(word);
    if (!words)
        return;
    Parameter parameter = fromWords(*words, readable, writable);
    if (parameter.look == Look::Reading && !readable)
        return;
    parameter.call = Call::Level;
    parameter.path = QStringLiteral("Level/") + word;
    parameter.whole = !RIG_LEVEL_IS_FLOAT(level);
    parameter.choices = levelChoices(word);
    if (parameter.writable && !parameter.choices.isEmpty())
        parameter.look = Look::Choice;
    else if (parameter.writable && word.startsWith(QLatin1String("SPECTRUM_EDGE")))
        parameter.look = Look::Frequency;
    else if (parameter.writable && word == QLatin1String("IF") && m_caps.max_ifshift > 0)
        parameter.minimum = -(parameter.maximum = static_cast<double>(m_caps.max_ifshift));
    else if (parameter.writable)
        narrow(parameter, m_caps.level_gran[bit], !parameter.whole);
    if (parameter.look == Look::Frequency && !m_ranges.isEmpty())
        parameter.maximum = std::max(m_ranges.last().endf, m_ranges.first().endf);
    if (parameter.look == Look::Number && parameter.maximum <= parameter.minimum)
        parameter.maximum = parameter.minimum + rangeOfUnknown;
    m_parameters.append(parameter);
}

QList<Choice> Survey::decibels(const int* list)
{
    QList<Choice> choices{{QStringLiteral("Off"), QStringLiteral("0")}};
    for (int i = 0; i < HAMLIB_MAXDBLSTSIZ && !RIG_IS_DBLST_END(list[i]); ++i)
        choices.append({QStringLiteral("%1 dB").arg(list[i]), QString::number(list[i])});
    return choices;
}

QList<Choice> Survey::agcChoices() const
{
    static const QMap<int, QString> names{
        {RIG_AGC_OFF, QStringLiteral("Off")},   {RIG_AGC_SUPERFAST, QStringLiteral("Super fast")},
        {RIG_AGC_FAST, QStringLiteral("Fast")}, {RIG_AGC_SLOW, QStringLiteral("Slow")},
        {RIG_AGC_USER, QStringLiteral("User")}, {RIG_AGC_MEDIUM, QStringLiteral("Medium")},
        {RIG_AGC_AUTO, QStringLiteral("Auto")}, {RIG_AGC_LONG, QStringLiteral("Long")},
        {RIG_AGC_ON, QStringLiteral("On")},     {RIG_AGC_NONE, QStringLiteral("None")}};
    QList<Choice> choices;
    const int count = qBound(0, m_caps.agc_level_count, HAMLIB_MAX_AGC_LEVELS);
    for (int i = 0; i < count; ++i)
        choices.append({names.value(m_caps.agc_levels[i]), QString::number(m_caps.agc_levels[i])});
    if (!choices.isEmpty())
        return choices;
    for (const int level : {RIG_AGC_OFF, RIG_AGC_SUPERFAST, RIG_AGC_FAST, RIG_AGC_MEDIUM, RIG_AGC_SLOW,
                            RIG_AGC_AUTO, RIG_AGC_USER})
        choices.append({names.value(level), QString::number(level)});
    return choices;
}

QList<Choice> Survey::levelChoices(const QString& word) const
{
    if (word == QLatin1String("PREAMP"))
        return decibels(m_caps.preamp);
    if (word == QLatin1String("ATT"))
        return decibels(m_caps.attenuator);
    if (word == QLatin1String("SPECTRUM_ATT"))
        return decibels(m_caps.spectrum_attenuator);
    if (word == QLatin1String("AGC"))
        return agcChoices();
    if (word == QLatin1String("METER"))
        return numbered(meterNames);
    if (word == QLatin1String("BAND_SELECT"))
        return numbered(bandNames);
    return word.startsWith(QLatin1String("SPECTRUM_")) ? scopeChoices(word) : QList<Choice>();
}

QList<Choice> Survey::scopeChoices(const QString& word) const
{
    QList<Choice> choices;
    if (word == QLatin1String("SPECTRUM_MODE")) {
        for (int i = 0; i < HAMLIB_MAX_SPECTRUM_MODES && m_caps.spectrum_modes[i] > 0; ++i) {
            const int mode = m_caps.spectrum_modes[i];
            choices.append({scopeModeName(mode), QString::number(mode)});
        }
    } else if (word == QLatin1String("SPECTRUM_SPAN")) {
        for (int i = 0; i < HAMLIB_MAX_SPECTRUM_SPANS && m_caps.spectrum_spans[i] > 0; ++i) {
            const long span = static_cast<long>(m_caps.spectrum_spans[i]);
            choices.append({hertzWords(span), QString::number(span)});
        }
    } else if (word == QLatin1String("SPECTRUM_AVG")) {
        for (int i = 0; i < HAMLIB_MAX_SPECTRUM_AVG_MODES && m_caps.spectrum_avg_modes[i].name; ++i)
            choices.append(
                {text(m_caps.spectrum_avg_modes[i].name), QString::number(m_caps.spectrum_avg_modes[i].id)});
    }
    return choices;
}

void Survey::addFunction(int bit, bool readable, bool writable)
{
    const QString word = text(rig_strfunc(CONSTANT_64BIT_FLAG(bit)));
    const Words* const words = functionWords(word);
    if (!words)
        return;
    Parameter parameter = fromWords(*words, readable, writable);
    parameter.call = Call::Function;
    parameter.path = QStringLiteral("Function/") + word;
    if (parameter.writable)
        parameter.look = Look::Switch;
    else
        parameter.choices = Parameter::offAndOn();
    m_parameters.append(parameter);
}

void Survey::addSetting(int bit, bool readable, bool writable)
{
    const setting_t setting = CONSTANT_64BIT_FLAG(bit);
    const QString word = text(rig_strparm(setting));
    const Words* const words = settingWords(word);
    if (!words || (!writable && !readable))
        return;
    Parameter parameter = fromWords(*words, readable, writable);
    parameter.call = Call::Setting;
    parameter.path = QStringLiteral("Setting/") + word;
    parameter.whole = !RIG_PARM_IS_FLOAT(setting);
    if (!writable) {
        parameter.look = Look::Reading;
    } else if (word == QLatin1String("BEEP")) {
        parameter.look = Look::Switch;
    } else if (word == QLatin1String("ANN")) {
        parameter.look = Look::Choice;
        parameter.choices = numbered(announcementNames);
    } else {
        narrow(parameter, m_caps.parm_gran[bit], !parameter.whole);
    }
    m_parameters.append(parameter);
}

void Survey::addAntennas()
{
    QList<Choice> choices;
    for (int number = 0; number < 10; ++number) {
        if (m_antennas & RIG_ANT_N(number))
            choices.append({QStringLiteral("Antenna %1").arg(number + 1), QString::number(number + 1)});
    }
    if (choices.size() > 1 && m_caps.set_ant)
        add("Receiver/Antenna", Call::Antenna, Look::Choice, receiverGroup, "Antenna",
            "Antenna that is connected through", m_caps.get_ant, true)
            ->choices = choices;
}

void Survey::addTone(const char* path, const char* caption, Call call, bool readable, bool writable)
{
    const bool isDcs = call == Call::DcsCode || call == Call::DcsSquelch;
    const tone_t* const list = isDcs ? m_caps.dcs_list : m_caps.ctcss_list;
    if (!list || !writable)
        return;
    QList<Choice> choices{{QStringLiteral("None"), QStringLiteral("0")}};
    for (int i = 0; i < (isDcs ? DCS_LIST_SIZE : CTCSS_LIST_SIZE) && list[i] != 0; ++i) {
        const QString name = isDcs ? QStringLiteral("%1").arg(list[i], 3, 10, QLatin1Char('0'))
                                   : QStringLiteral("%1 Hz").arg(list[i] / 10.0, 0, 'f', 1);
        choices.append({name, QString::number(list[i])});
    }
    add(path, call, Look::Choice, toneGroup, caption,
        isDcs ? "Code that opens the other side's squelch" : "Tone below the voice", readable, true)
        ->choices = choices;
}

void Survey::addTones()
{
    addTone("Tone/CTCSS", "CTCSS tone", Call::CtcssTone, m_caps.get_ctcss_tone, m_caps.set_ctcss_tone);
    addTone("Tone/CTCSSSquelch", "CTCSS squelch tone", Call::CtcssSquelch, m_caps.get_ctcss_sql,
            m_caps.set_ctcss_sql);
    addTone("Tone/DCS", "DCS code", Call::DcsCode, m_caps.get_dcs_code, m_caps.set_dcs_code);
    addTone("Tone/DCSSquelch", "DCS squelch code", Call::DcsSquelch, m_caps.get_dcs_sql, m_caps.set_dcs_sql);
}

} // namespace

QList<Parameter> parametersOf(const rig_caps& capabilities)
{
    return Survey(capabilities).take();
}

QList<Choice> Parameter::offAndOn()
{
    return {{QStringLiteral("off"), QStringLiteral("0")}, {QStringLiteral("on"), QStringLiteral("1")}};
}

QString Parameter::toForm(const QString& radioText) const
{
    if (look == Look::Choice || look == Look::Switch)
        return radioText;
    for (const Choice& choice : choices) {
        if (choice.value == radioText)
            return choice.name;
    }
    bool ok = false;
    const double number = radioText.toDouble(&ok) * factor;
    if (!ok)
        return QString();
    if (word == QLatin1String("STRENGTH"))
        return strengthWords(number);
    QString shown = QString::number(number, 'f', decimals);
    if (shown.startsWith(QLatin1Char('-')) && shown.toDouble() == 0.0)
        shown.remove(0, 1);
    return look == Look::Reading && !unit.isEmpty() ? shown + QLatin1Char(' ') + unit : shown;
}

QString Parameter::toRadio(const QString& formText) const
{
    if (look == Look::Choice || look == Look::Switch)
        return formText;
    bool ok = false;
    const double number = formText.toDouble(&ok) / factor;
    if (!ok || !std::isfinite(number))
        return QString();
    return whole ? QString::number(std::round(number), 'f', 0) : QString::number(number, 'f', 6);
}

QString Parameter::rowName() const
{
    QString name = path;
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    name[0] = name.at(0).toLower();
    return name;
}

} // namespace radio
