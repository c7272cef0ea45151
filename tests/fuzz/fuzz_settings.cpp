// Parameter XML of any kind against a form of every control kind: checked, told in words, compared, merged.
#include "harness.h"

#include <author/parameters/differences.h>
#include <author/parameters/merge.h>
#include <author/parameters/parametercheck.h>
#include <author/parameters/parameterreports.h>
#include <author/parameters/settingsform.h>

#include <algorithm>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Orvane::Author;
    fuzz::ensureApplication();
    // Lives as long as the process: making it takes longer than all that follows.
    static const SettingsForm& form = *new SettingsForm(fuzz::galleryDescription());
    static const ParameterSet& usual = *new ParameterSet(form.read(form.exportedAfter({})));

    const CheckedFile checked =
        checkParameters(form, QStringLiteral("settings.xml"), fuzz::bytesOf(data, size));
    const ParameterSet set(form.rows(), checked.source);
    explanationText(form, set);
    fuzz::require(!explanationJson(form, set).isEmpty(), "there are always words for programs");
    const QVector<Difference> none = differences(form, set, set);
    fuzz::require(std::none_of(none.cbegin(), none.cend(),
                               [](const Difference& difference) { return difference.isDifferent; }),
                  "settings are like themselves");
    differencesJson(differences(form, usual, set));
    fuzz::require(merge(form, usual, set, set, Preference::Neither).conflicts.isEmpty(),
                  "what both sides changed alike is no conflict");
    merge(form, set, usual, set, Preference::Ours);
    return 0;
}
