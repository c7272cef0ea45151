#include <valueframework/valuecommentedrangemap.h>

#include <valueframework/format.h>

#include <tuple>

namespace values {

void CommentedRange::SetRangeStart(double hertz)
{
    convertNumber(hertz, &m_start);
}

void CommentedRange::SetRangeStop(double hertz)
{
    convertNumber(hertz, &m_stop);
}

void CommentedRange::SetFrequency(double hertz)
{
    convertNumber(hertz, &m_frequency);
}

void CommentedRange::SetBandwidth(double hertz)
{
    convertNumber(hertz, &m_bandwidth);
}

bool CommentedRange::operator<(const CommentedRange& other) const
{
    return std::tie(m_start, m_stop) < std::tie(other.m_start, other.m_stop);
}

bool CommentedRange::operator==(const CommentedRange& other) const
{
    return std::tie(m_start, m_stop, m_frequency, m_bandwidth, m_id) ==
           std::tie(other.m_start, other.m_stop, other.m_frequency, other.m_bandwidth, other.m_id);
}

QString CommentedRangeItemFormat::toText(const CommentedRange& range)
{
    return QStringList({numberText(range.GetRangeStart()), numberText(range.GetRangeStop()),
                        numberText(range.GetFrequency()), numberText(range.GetBandwidth())})
        .join(QLatin1Char(' '));
}

bool CommentedRangeItemFormat::fromText(const QString& text, CommentedRange* range)
{
    const QStringList fields = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    double start = 0.0;
    double stop = 0.0;
    double frequency = 0.0;
    double bandwidth = 0.0;
    if (fields.size() != 4 || !readNumber(fields[0], &start) || !readNumber(fields[1], &stop) ||
        !readNumber(fields[2], &frequency) || !readNumber(fields[3], &bandwidth))
        return false;
    range->SetRangeStart(start);
    range->SetRangeStop(stop);
    range->SetFrequency(frequency);
    range->SetBandwidth(bandwidth);
    return true;
}

ValueItemMapBase::~ValueItemMapBase()
{
    retire();
}

template class ValueFrequencyItemMap<CommentedRange, CommentedRangeItemFormat, CommentedRangeItemAdapter>;

ValueCommentedRangeMap::ValueCommentedRangeMap()
    : ValueCommentedRangeMap(QString())
{
}

ValueCommentedRangeMap::ValueCommentedRangeMap(QString name, TValueState state)
    : ValueFrequencyItemMap(name, state)
{
}

ValueCommentedRangeMap::~ValueCommentedRangeMap()
{
    retire();
}

} // namespace values
