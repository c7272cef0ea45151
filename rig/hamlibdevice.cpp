#include "hamlibdevice.h"

#include "models.h"

#include <QByteArray>

#include <algorithm>

namespace radio {

using hostkit::Answer;

namespace {

QString errorWords(int result)
{
    return QString::fromLocal8Bit(rigerror2(result)).section(QLatin1Char('\n'), 0, 0).trimmed();
}

value_t valueOf(const Parameter& parameter, const QString& text)
{
    value_t value;
    if (parameter.whole)
        value.i = text.toInt();
    else
        value.f = text.toFloat();
    return value;
}

QString textOf(const Parameter& parameter, const value_t& value)
{
    return parameter.whole ? QString::number(value.i) : QString::number(static_cast<double>(value.f), 'f', 6);
}

QString hertzText(freq_t hertz)
{
    return QString::number(hertz, 'f', 0);
}

QString modeText(rmode_t mode, pbwidth_t width)
{
    return QStringLiteral("%1 %2").arg(QLatin1String(rig_strrmode(mode))).arg(width);
}

rmode_t modeIn(const QString& modeAndWidth)
{
    return rig_parse_mode(modeAndWidth.section(QLatin1Char(' '), 0, 0).toLatin1().constData());
}

pbwidth_t widthIn(const QString& modeAndWidth)
{
    return modeAndWidth.section(QLatin1Char(' '), 1, 1).toLong();
}

} // namespace

HamlibDevice::HamlibDevice(const HamlibSettings& settings, const QList<Parameter>& parameters)
    : RigDevice(parameters)
    , m_settings(settings)
{
}

HamlibDevice::~HamlibDevice()
{
    HamlibDevice::close();
}

Answer HamlibDevice::open()
{
    close();
    // This loads the whole list, without which Hamlib leaks at its first radio.
    Model model;
    if (findModel(m_settings.model, &model))
        m_rig = rig_init(m_settings.model);
    if (!m_rig)
        return Answer::lost(QStringLiteral("Hamlib has no model %1").arg(m_settings.model));
    const Answer configured = configure();
    if (configured.outcome != Answer::Done)
        return configured;
    const int result = rig_open(m_rig);
    if (result != RIG_OK)
        return Answer::lost(errorWords(result));
    // A value counts as read only if the radio said so just now.
    rig_set_cache_timeout_ms(m_rig, HAMLIB_CACHE_ALL, 0);
    return Answer::done();
}

Answer HamlibDevice::configure()
{
    QList<QPair<QString, QString>> all = m_settings.config;
    if (!m_settings.device.isEmpty())
        all.prepend({QStringLiteral("rig_pathname"), m_settings.device});
    for (const auto& setting : qAsConst(all)) {
        const token_t token = rig_token_lookup(m_rig, setting.first.toLocal8Bit().constData());
        const int result = token == RIG_CONF_END
                               ? -RIG_EINVAL
                               : rig_set_conf(m_rig, token, setting.second.toLocal8Bit().constData());
        if (result != RIG_OK)
            return Answer::lost(QStringLiteral("%1: %2").arg(setting.first, errorWords(result)));
    }
    return Answer::done();
}

void HamlibDevice::close()
{
    if (!m_rig)
        return;
    rig_close(m_rig);
    rig_cleanup(m_rig);
    m_rig = nullptr;
}

// An error that may be the line's shows by whether the radio still answers at all.
Answer HamlibDevice::answerTo(int result, const QString& text)
{
    if (result == RIG_OK)
        return Answer::done(text);
    const int code = std::abs(result);
    if (RIG_IS_SOFT_ERRCODE(code))
        return Answer::refused(errorWords(result));
    freq_t frequency = 0;
    const int probe = std::abs(rig_get_freq(m_rig, RIG_VFO_CURR, &frequency));
    const bool answers = probe == RIG_OK || RIG_IS_SOFT_ERRCODE(probe);
    return answers ? Answer::refused(errorWords(result)) : Answer::lost(errorWords(result));
}

Answer HamlibDevice::get(const Parameter& parameter)
{
    QString text;
    int result = RIG_OK;
    switch (parameter.call) {
    case Call::Level:
    case Call::Function:
    case Call::Setting:
        result = getNumber(parameter, &text);
        break;
    case Call::CtcssTone:
    case Call::CtcssSquelch:
    case Call::DcsCode:
    case Call::DcsSquelch:
        result = getTone(parameter, &text);
        break;
    case Call::TuningStep:
    case Call::Rit:
    case Call::Xit:
    case Call::RepeaterOffset:
        result = getOffset(parameter, &text);
        break;
    case Call::Split:
    case Call::TransmitFrequency:
    case Call::TransmitMode:
        result = getTransmitter(parameter, &text);
        break;
    default:
        result = getTuning(parameter, &text);
        break;
    }
    return answerTo(result, text);
}

int HamlibDevice::getNumber(const Parameter& parameter, QString* text)
{
    value_t value;
    value.i = 0;
    const int result = getSetting(parameter, &value);
    if (parameter.call == Call::Function)
        *text = value.i ? QStringLiteral("1") : QStringLiteral("0");
    else
        *text = textOf(parameter, value);
    return result;
}

int HamlibDevice::getSetting(const Parameter& parameter, value_t* value)
{
    const QByteArray word = parameter.word.toLatin1();
    const bool isExtra = parameter.token != 0;
    switch (parameter.call) {
    case Call::Function:
        return isExtra ? rig_get_ext_func(m_rig, RIG_VFO_CURR, parameter.token, &value->i)
                       : rig_get_func(m_rig, RIG_VFO_CURR, rig_parse_func(word.constData()), &value->i);
    case Call::Level:
        return isExtra ? rig_get_ext_level(m_rig, RIG_VFO_CURR, parameter.token, value)
                       : rig_get_level(m_rig, RIG_VFO_CURR, rig_parse_level(word.constData()), value);
    default:
        return isExtra ? rig_get_ext_parm(m_rig, parameter.token, value)
                       : rig_get_parm(m_rig, rig_parse_parm(word.constData()), value);
    }
}

int HamlibDevice::getTone(const Parameter& parameter, QString* text)
{
    tone_t tone = 0;
    int result = RIG_OK;
    if (parameter.call == Call::CtcssTone)
        result = rig_get_ctcss_tone(m_rig, RIG_VFO_CURR, &tone);
    else if (parameter.call == Call::CtcssSquelch)
        result = rig_get_ctcss_sql(m_rig, RIG_VFO_CURR, &tone);
    else if (parameter.call == Call::DcsCode)
        result = rig_get_dcs_code(m_rig, RIG_VFO_CURR, &tone);
    else
        result = rig_get_dcs_sql(m_rig, RIG_VFO_CURR, &tone);
    *text = QString::number(tone);
    return result;
}

int HamlibDevice::getTuning(const Parameter& parameter, QString* text)
{
    freq_t frequency = 0;
    rmode_t mode = RIG_MODE_NONE;
    pbwidth_t width = 0;
    vfo_t vfo = RIG_VFO_NONE;
    rptr_shift_t shift = RIG_RPT_SHIFT_NONE;
    value_t option;
    option.i = 0;
    ant_t current = 0;
    ant_t transmit = 0;
    ant_t receive = 0;
    int result = -RIG_EINVAL;
    switch (parameter.call) {
    case Call::Frequency:
        result = rig_get_freq(m_rig, RIG_VFO_CURR, &frequency);
        *text = hertzText(frequency);
        break;
    case Call::Mode:
    case Call::Passband:
        result = rig_get_mode(m_rig, RIG_VFO_CURR, &mode, &width);
        *text = modeText(mode, width);
        break;
    case Call::Vfo:
        result = rig_get_vfo(m_rig, &vfo);
        *text = QLatin1String(rig_strvfo(vfo));
        break;
    case Call::RepeaterShift:
        result = rig_get_rptr_shift(m_rig, RIG_VFO_CURR, &shift);
        *text = QLatin1String(rig_strptrshift(shift));
        break;
    case Call::Antenna:
        result = rig_get_ant(m_rig, RIG_VFO_CURR, RIG_ANT_CURR, &option, &current, &transmit, &receive);
        if (current != RIG_ANT_NONE && !(current & RIG_ANT_UNKNOWN))
            *text = QString::number(rig_setting2idx(current) + 1);
        return result;
    default:
        break;
    }
    return result;
}

int HamlibDevice::getOffset(const Parameter& parameter, QString* text)
{
    shortfreq_t offset = 0;
    int result = RIG_OK;
    if (parameter.call == Call::TuningStep)
        result = rig_get_ts(m_rig, RIG_VFO_CURR, &offset);
    else if (parameter.call == Call::Rit)
        result = rig_get_rit(m_rig, RIG_VFO_CURR, &offset);
    else if (parameter.call == Call::Xit)
        result = rig_get_xit(m_rig, RIG_VFO_CURR, &offset);
    else
        result = rig_get_rptr_offs(m_rig, RIG_VFO_CURR, &offset);
    *text = QString::number(offset);
    return result;
}

int HamlibDevice::getTransmitter(const Parameter& parameter, QString* text)
{
    split_t split = RIG_SPLIT_OFF;
    vfo_t vfo = RIG_VFO_NONE;
    freq_t frequency = 0;
    rmode_t mode = RIG_MODE_NONE;
    pbwidth_t width = 0;
    int result = RIG_OK;
    if (parameter.call == Call::TransmitFrequency) {
        result = rig_get_split_freq(m_rig, RIG_VFO_CURR, &frequency);
        *text = hertzText(frequency);
    } else if (parameter.call == Call::TransmitMode) {
        result = rig_get_split_mode(m_rig, RIG_VFO_CURR, &mode, &width);
        *text = modeText(mode, width);
    } else {
        result = rig_get_split_vfo(m_rig, RIG_VFO_CURR, &split, &vfo);
        *text =
            QStringLiteral("%1 %2").arg(split == RIG_SPLIT_ON ? 1 : 0).arg(QLatin1String(rig_strvfo(vfo)));
    }
    return result;
}

Answer HamlibDevice::set(const Parameter& parameter, const QString& text)
{
    switch (parameter.call) {
    case Call::Level:
    case Call::Function:
    case Call::Setting:
        return answerTo(setNumber(parameter, text));
    case Call::CtcssTone:
    case Call::CtcssSquelch:
    case Call::DcsCode:
    case Call::DcsSquelch:
        return answerTo(setTone(parameter, text));
    case Call::Split:
    case Call::TransmitFrequency:
    case Call::TransmitMode:
        return answerTo(setTransmitter(parameter, text));
    default:
        return answerTo(setTuning(parameter, text));
    }
}

int HamlibDevice::setNumber(const Parameter& parameter, const QString& text)
{
    return setSetting(parameter, valueOf(parameter, text));
}

int HamlibDevice::setSetting(const Parameter& parameter, const value_t& value)
{
    const QByteArray word = parameter.word.toLatin1();
    const bool isExtra = parameter.token != 0;
    switch (parameter.call) {
    case Call::Function:
        return isExtra ? rig_set_ext_func(m_rig, RIG_VFO_CURR, parameter.token, value.i)
                       : rig_set_func(m_rig, RIG_VFO_CURR, rig_parse_func(word.constData()), value.i);
    case Call::Level:
        return isExtra ? rig_set_ext_level(m_rig, RIG_VFO_CURR, parameter.token, value)
                       : rig_set_level(m_rig, RIG_VFO_CURR, rig_parse_level(word.constData()), value);
    default:
        return isExtra ? rig_set_ext_parm(m_rig, parameter.token, value)
                       : rig_set_parm(m_rig, rig_parse_parm(word.constData()), value);
    }
}

int HamlibDevice::setTone(const Parameter& parameter, const QString& text)
{
    const tone_t tone = text.toUInt();
    if (parameter.call == Call::CtcssTone)
        return rig_set_ctcss_tone(m_rig, RIG_VFO_CURR, tone);
    if (parameter.call == Call::CtcssSquelch)
        return rig_set_ctcss_sql(m_rig, RIG_VFO_CURR, tone);
    if (parameter.call == Call::DcsCode)
        return rig_set_dcs_code(m_rig, RIG_VFO_CURR, tone);
    return rig_set_dcs_sql(m_rig, RIG_VFO_CURR, tone);
}

int HamlibDevice::setTuning(const Parameter& parameter, const QString& text)
{
    const QByteArray word = text.toLatin1();
    const long number = text.toLong();
    value_t option;
    option.i = 0;
    switch (parameter.call) {
    case Call::Frequency:
        return rig_set_freq(m_rig, RIG_VFO_CURR, text.toDouble());
    case Call::Mode:
    case Call::Passband:
        return rig_set_mode(m_rig, RIG_VFO_CURR, modeIn(text), widthIn(text));
    case Call::Vfo:
        return rig_set_vfo(m_rig, rig_parse_vfo(word.constData()));
    case Call::RepeaterShift:
        return rig_set_rptr_shift(m_rig, RIG_VFO_CURR, rig_parse_rptr_shift(word.constData()));
    case Call::Antenna:
        return number < 1 || number > 30 ? -RIG_EINVAL
                                         : rig_set_ant(m_rig, RIG_VFO_CURR, RIG_ANT_N(number - 1), option);
    case Call::TuningStep:
        return rig_set_ts(m_rig, RIG_VFO_CURR, number);
    case Call::Rit:
        return rig_set_rit(m_rig, RIG_VFO_CURR, number);
    case Call::Xit:
        return rig_set_xit(m_rig, RIG_VFO_CURR, number);
    case Call::RepeaterOffset:
        return rig_set_rptr_offs(m_rig, RIG_VFO_CURR, number);
    default:
        return -RIG_EINVAL;
    }
}

int HamlibDevice::setTransmitter(const Parameter& parameter, const QString& text)
{
    if (parameter.call == Call::TransmitFrequency)
        return rig_set_split_freq(m_rig, RIG_VFO_CURR, text.toDouble());
    if (parameter.call == Call::TransmitMode)
        return rig_set_split_mode(m_rig, RIG_VFO_CURR, modeIn(text), widthIn(text));
    return rig_set_split_vfo(m_rig, RIG_VFO_CURR,
                             text.startsWith(QLatin1Char('1')) ? RIG_SPLIT_ON : RIG_SPLIT_OFF,
                             rig_parse_vfo(text.section(QLatin1Char(' '), 1, 1).toLatin1().constData()));
}

} // namespace radio
