#include "rigdevice.h"

#include <algorithm>

namespace radio {

using hostkit::Answer;

namespace {

const QLatin1String frequencyPath("Tuning/Frequency");
const QLatin1String modePath("Mode/Mode");
const QLatin1String anyPassbandPath("Mode/Passband");
const QLatin1String vfoPath("Tuning/VFO");
const QLatin1String splitPath("Tuning/Split");
const QLatin1String transmitFrequencyPath("Tuning/TransmitFrequency");
const QLatin1String transmitModePath("Mode/TransmitMode");

/** All passbands of a round are told by one answer of the mode, in milliseconds. */
constexpr int answerHolds = 50;

/** Among the VFOs that may transmit: none but the receiver's. */
const QLatin1String splitOff("Off");

QString modeOf(const QString& modeAndWidth)
{
    return modeAndWidth.section(QLatin1Char(' '), 0, 0);
}

QString widthOf(const QString& modeAndWidth)
{
    return modeAndWidth.section(QLatin1Char(' '), 1, 1);
}

/** Hamlib has two words for a VFO, and a radio may be asked by the one and answer with the other. */
QString otherName(const QString& vfo)
{
    static const QHash<QString, QString> names{{QStringLiteral("VFOA"), QStringLiteral("Main")},
                                               {QStringLiteral("VFOB"), QStringLiteral("Sub")},
                                               {QStringLiteral("Main"), QStringLiteral("VFOA")},
                                               {QStringLiteral("Sub"), QStringLiteral("VFOB")}};
    return names.value(vfo);
}

/** Of what a radio tells, as much as the parameter is about. */
QString ownPart(const Parameter& parameter, const QString& text)
{
    if (parameter.isMode())
        return modeOf(text);
    if (parameter.call != Call::Split)
        return text;
    return text.startsWith(QLatin1Char('1')) ? text.section(QLatin1Char(' '), 1, 1) : splitOff;
}

} // namespace

RigDevice::RigDevice(const QList<Parameter>& parameters)
{
    for (const Parameter& parameter : parameters) {
        m_parameters.insert(parameter.path, parameter);
        if (parameter.call == Call::Passband)
            m_passbands.append(parameter.path);
    }
    if (m_parameters.contains(modePath) && !m_parameters.contains(anyPassbandPath)) {
        Parameter any = m_parameters.value(modePath);
        any.path = anyPassbandPath;
        any.call = Call::Passband;
        m_parameters.insert(any.path, any);
        m_passbands.append(any.path);
    }
}

bool RigDevice::knows(const QString& path) const
{
    return m_parameters.contains(path);
}

bool RigDevice::isLive(const QString& path) const
{
    return m_parameters.value(path).look == Look::Reading;
}

Answer RigDevice::read(const QString& path)
{
    const auto found = m_parameters.constFind(path);
    if (found == m_parameters.constEnd())
        return Answer::refused(QStringLiteral("this radio does not have it"));
    if (!found->readable)
        return Answer::refused(QStringLiteral("the radio does not tell"));
    if (found->call == Call::Passband)
        return readPassband(*found);
    bool split = true;
    const Answer asked = found->isOfSplit() ? isSplit(&split) : Answer::done();
    if (asked.outcome != Answer::Done || !split)
        return split ? asked : Answer::done(QString());
    const Answer answer = get(*found);
    if (answer.outcome != Answer::Done || answer.text.isNull())
        return answer;
    const QString own = asWritten(*found, ownPart(*found, answer.text));
    if (own.isEmpty())
        return Answer::done(QString());
    const QString text = found->toForm(own);
    return text.isNull() ? Answer::refused(QStringLiteral("unreadable answer: ") + answer.text)
                         : Answer::done(text);
}

QString RigDevice::asWritten(const Parameter& parameter, const QString& text) const
{
    const bool isVfo = parameter.call == Call::Vfo || parameter.call == Call::Split;
    const QString written = isVfo ? m_written.value(parameter.path) : QString();
    return !written.isEmpty() && written == otherName(text) ? written : text;
}

Answer RigDevice::getRecent(Recent& recent, const Parameter& parameter)
{
    if (!recent.until.hasExpired())
        return recent.answer;
    const Answer answer = get(parameter);
    if (answer.outcome == Answer::Done) {
        recent.answer = answer;
        recent.until.setRemainingTime(answerHolds);
    }
    return answer;
}

Answer RigDevice::isSplit(bool* split)
{
    *split = true;
    const auto row = m_parameters.constFind(splitPath);
    if (row == m_parameters.constEnd() || !row->readable)
        return Answer::done();
    const Answer answer = getRecent(m_split, *row);
    if (answer.outcome == Answer::Done)
        *split = ownPart(*row, answer.text) != splitOff;
    return answer;
}

// A passband that belongs to another mode has no meaning just now.
Answer RigDevice::readPassband(const Parameter& parameter)
{
    const Answer answer = getRecent(m_mode, parameter);
    if (answer.outcome != Answer::Done)
        return answer;
    const bool applies = parameter.modes.isEmpty() || parameter.modes.contains(modeOf(answer.text));
    return Answer::done(applies ? widthOf(answer.text) : QString());
}

Answer RigDevice::write(const QString& path, const QString& text)
{
    const auto found = m_parameters.constFind(path);
    if (found == m_parameters.constEnd() || !found->writable)
        return Answer::refused(QStringLiteral("this radio cannot set it"));
    m_mode.until.setRemainingTime(0);
    m_split.until.setRemainingTime(0);
    m_written.insert(path, text);
    if (found->call == Call::Passband)
        return writePassband(*found, text);
    if (found->call == Call::Split)
        return writeSplit(*found, text);
    bool split = true;
    if (found->isOfSplit() && isSplit(&split).outcome == Answer::Done && !split)
        return Answer::refused(QStringLiteral("there is no split operation"));
    const QString radioText = found->toRadio(text);
    if (radioText.isEmpty())
        return Answer::refused(QStringLiteral("no number"));
    // The width is left to the radio: that of the mode before seldom fits.
    return set(*found, found->isMode() ? radioText + QLatin1String(" 0") : radioText);
}

// Drivers want to know which VFO transmits also where that is the receiver's.
Answer RigDevice::writeSplit(const Parameter& parameter, const QString& vfo)
{
    if (vfo != splitOff)
        return set(parameter, QLatin1String("1 ") + vfo);
    const auto row = m_parameters.constFind(vfoPath);
    const bool tells = row != m_parameters.constEnd() && row->readable;
    const Answer answer = tells ? get(*row) : Answer::done(parameter.choices.value(1).value);
    return answer.outcome == Answer::Done ? set(parameter, QLatin1String("0 ") + answer.text) : answer;
}

Answer RigDevice::writePassband(const Parameter& parameter, const QString& width)
{
    const Answer answer = get(parameter);
    if (answer.outcome != Answer::Done)
        return answer;
    const QString mode = modeOf(answer.text);
    if (!parameter.modes.isEmpty() && !parameter.modes.contains(mode))
        return Answer::refused(mode.isEmpty() ? QStringLiteral("the mode is not known")
                                              : QStringLiteral("the mode is ") + mode);
    return set(parameter, mode + QLatin1Char(' ') + width);
}

QStringList RigDevice::affectedBy(const QString& path) const
{
    const Parameter parameter = m_parameters.value(path);
    QStringList others;
    if (parameter.call == Call::Mode)
        others = m_passbands;
    else if (parameter.call == Call::Split)
        others = QStringList{transmitFrequencyPath, transmitModePath};
    else if (parameter.call == Call::Vfo || parameter.word == QLatin1String("BAND_SELECT"))
        others = QStringList{frequencyPath, modePath} + m_passbands;
    const auto isUnknown = [this](const QString& other) { return !knows(other); };
    others.erase(std::remove_if(others.begin(), others.end(), isUnknown), others.end());
    return others;
}

} // namespace radio
