#ifndef ZORVA_AUTHOR_REPORT_H
#define ZORVA_AUTHOR_REPORT_H

#include "checker.h"

#include <QByteArray>

#include <functional>
#include <memory>

namespace Orvane {
namespace Author {

/**
 * Writes what was found, file by file, so that a run over many forms holds one at a
 * time. Call begin(), add() for each file, end().
 */
class Report
{
public:
    /** Takes the text in pieces; UTF-8 for programs, the locale's encoding for people. */
    using Sink = std::function<void(const QByteArray&)>;

    explicit Report(Sink sink)
        : m_sink(std::move(sink))
    {
    }
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;
    virtual ~Report() = default;

    virtual void begin() {}
    virtual void add(const CheckedFile& file) = 0;
    virtual void end() {}

protected:
    void write(const QByteArray& text) { m_sink(text); }

private:
    Sink m_sink;
};

/** As compilers write it, with the line and a mark below the place. */
std::unique_ptr<Report> makeTextReport(Report::Sink sink, bool coloured);
/** One object for the run; its form is fixed by its version. */
std::unique_ptr<Report> makeJsonReport(Report::Sink sink);
/** SARIF 2.1.0. */
std::unique_ptr<Report> makeSarifReport(Report::Sink sink);

/** The fix of a finding in words; empty if it has none. */
QString fixText(const Finding& finding);

} // namespace Author
} // namespace Orvane

#endif
