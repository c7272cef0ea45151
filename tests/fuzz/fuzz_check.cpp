// The whole check of a description of any kind; its script is read and not run.
#include "harness.h"

#include <author/check/checker.h>
#include <author/check/report.h>
#include <zorvaparser/zorvaparser.h>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Orvane::Author;
    fuzz::ensureApplication();
    const CheckedFile checked = check(QStringLiteral("form.zorva"), fuzz::bytesOf(data, size));
    const QExplicitlySharedDataPointer<Orvane::ZorvaFormular> form(
        Orvane::ZorvaParser().ParseZORVA(checked.source.engineBytes()));
    fuzz::require(checked.form == static_cast<bool>(form),
                  "what is said of the form is what the engine makes");
    fuzz::require(checked.form || checked.has(Severity::Error), "no form without an error");
    QByteArray text;
    const auto sink = [&text](const QByteArray& piece) { text += piece; };
    for (const auto& report : {makeTextReport(sink, true), makeJsonReport(sink), makeSarifReport(sink)}) {
        report->begin();
        report->add(checked);
        report->end();
    }
    fuzz::require(!text.isEmpty(), "there is always a report");
    return 0;
}
