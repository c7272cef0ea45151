// The ranges of both exclusion objects, read and written back.
#include "harness.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const fuzz::LiveForm form(fuzz::galleryDescription());
    const QString ranges = fuzz::textOf(data, size);
    form->SetXmlString(
        QStringLiteral("<Gallery><Special><ExclusionRanges>%1</ExclusionRanges></Special></Gallery>")
            .arg(ranges));
    form->SetXmlString(QStringLiteral("<Gallery><Special><ExclusionFrequencyList>%1</ExclusionFrequencyList>"
                                      "</Special></Gallery>")
                           .arg(ranges));
    const QString written = form->GetXmlString(false);
    form->SetXmlString(written);
    fuzz::require(form->GetXmlString(false).size() > 0, "there is always something to write");
    return 0;
}
