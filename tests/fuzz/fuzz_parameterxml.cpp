// Parameter XML of any kind on a live form of every control kind.
#include "harness.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const fuzz::LiveForm form(fuzz::galleryDescription());
    form->GetXmlString(false);
    form->SetXmlString(fuzz::textOf(data, size));
    fuzz::require(!form->GetSheet().isModified(), "reading parameters does not mark the sheet");
    fuzz::require(form->GetSheet().isActive(), "the sheet is active again after reading");
    form->SetXmlString(form->GetXmlString(false));
    return 0;
}
