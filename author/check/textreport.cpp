#include "report.h"

namespace Orvane {
namespace Author {

QString fixText(const Finding& finding)
{
    return finding.fix.isEmpty() ? QString() : QStringLiteral("did you mean `%1`?").arg(finding.fix);
}

namespace {

// A line of a terminal; what is longer shows the part around the place.
constexpr int widest = 160;
constexpr int before = 60;

const char* const bold = "\x1b[1m";
const char* const red = "\x1b[1;31m";
const char* const magenta = "\x1b[1;35m";
const char* const cyan = "\x1b[1;36m";
const char* const green = "\x1b[1;32m";
const char* const plain = "\x1b[0m";

const char* colourOf(Severity severity)
{
    return severity == Severity::Error ? red : severity == Severity::Warning ? magenta : cyan;
}

/** @p text with nothing in it that a terminal would obey: a broken file may hold any byte. */
QString harmless(QString text)
{
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control && c != QLatin1Char('\t'))
            c = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

class TextReport : public Report
{
public:
    TextReport(Sink sink, bool coloured)
        : Report(std::move(sink))
        , m_coloured(coloured)
    {
    }

    void add(const CheckedFile& file) override
    {
        for (const Finding& finding : file.findings)
            write(text(file, finding).toLocal8Bit());
    }

private:
    QString in(const char* colour, const QString& text) const
    {
        return m_coloured ? QLatin1String(colour) + text + QLatin1String(plain) : text;
    }

    QString text(const CheckedFile& file, const Finding& finding) const
    {
        const Place place = file.source.place(finding.range.begin);
        const QString where =
            QStringLiteral("%1:%2:%3:").arg(harmless(file.file)).arg(place.line).arg(place.column);
        QString whole = in(bold, where) + QLatin1Char(' ') +
                        in(colourOf(finding.severity), severityName(finding.severity) + QLatin1Char(':')) +
                        QLatin1Char(' ') + harmless(finding.message) +
                        QStringLiteral(" [%1]\n").arg(finding.id) + excerpt(file.source, finding, place);
        if (!finding.effect.isEmpty())
            whole += QStringLiteral("    %1\n").arg(harmless(finding.effect));
        if (!finding.fix.isEmpty())
            whole += QStringLiteral("    %1\n").arg(fixText(finding));
        return whole;
    }

    QString excerpt(const SourceText& source, const Finding& finding, const Place& place) const
    {
        // The line may be the whole file, and each of its findings comes here.
        const Range line = source.lineRange(place.line);
        const int at = qBound(line.begin, finding.range.begin, line.end);
        const int from = line.end - line.begin > widest ? qMax(line.begin, at - before) : line.begin;
        const QString shown = source.text().mid(from, qMin(widest, line.end - from));
        if (shown.trimmed().isEmpty())
            return QString();
        QString mark;
        for (const QChar c : shown.leftRef(at - from)) {
            if (!c.isLowSurrogate())
                mark += c == QLatin1Char('\t') ? QLatin1Char('\t') : QLatin1Char(' ');
        }
        const int length = qMin(finding.range.end - finding.range.begin, from + shown.size() - at);
        mark += in(green, QLatin1Char('^') + QString(qMax(0, length - 1), QLatin1Char('~')));
        return QStringLiteral("    %1\n    %2\n").arg(harmless(shown), mark);
    }

    bool m_coloured;
};

} // namespace

std::unique_ptr<Report> makeTextReport(Report::Sink sink, bool coloured)
{
    return std::make_unique<TextReport>(std::move(sink), coloured);
}

} // namespace Author
} // namespace Orvane
