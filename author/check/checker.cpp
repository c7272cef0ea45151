#include "checker.h"

#include "effects.h"
#include "families.h"
#include "subject.h"
#include "suppressions.h"

#include <algorithm>

namespace Orvane {
namespace Author {

bool CheckedFile::has(Severity severity) const
{
    return std::any_of(findings.cbegin(), findings.cend(),
                       [severity](const Finding& finding) { return finding.severity >= severity; });
}

CheckedFile check(const QString& file, const QByteArray& bytes, ScriptRunner* runner)
{
    Subject subject(SourceText(bytes), runner);
    for (const Family* const family : families()) {
        if (family->check)
            family->check(subject);
    }
    addEffects(subject);
    applySuppressions(subject);
    CheckedFile checked;
    checked.file = file;
    checked.source = subject.source();
    checked.form = subject.reading().hasForm();
    checked.findings = subject.findings();
    checked.lost = lossesOf(subject);
    std::stable_sort(checked.findings.begin(), checked.findings.end(),
                     [](const Finding& left, const Finding& right) {
                         return left.range.begin < right.range.begin ||
                                (left.range.begin == right.range.begin && left.severity > right.severity);
                     });
    return checked;
}

} // namespace Author
} // namespace Orvane
