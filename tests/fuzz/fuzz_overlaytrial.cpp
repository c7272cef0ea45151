// What is told of an overlay of any kind on a form of every control kind.
#include "harness.h"

#include <author/compatibility/overlaytrial.h>

#include <algorithm>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace Orvane::Author;
    fuzz::ensureApplication();
    const OverlayTrial trial(fuzz::galleryDescription(), fuzz::bytesOf(data, size));
    fuzz::require(trial.exists(), "the form is there whatever lies on it");
    fuzz::require(
        std::all_of(trial.losses().cbegin(), trial.losses().cend(),
                    [](const OverlayLoss& loss) { return loss.line > 0 && !loss.reason.isEmpty(); }),
        "every loss has its place and its reason");
    fuzz::require(!overlayText(QStringLiteral("overlay.zorva"), trial).isEmpty(), "there is always a report");
    overlayJson(trial);
    return 0;
}
