// An overlay of any kind on a live form of every control kind.
#include "harness.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const fuzz::LiveForm form(fuzz::galleryDescription());
    const int rows = form->GetSheet().GetWidgetCount();
    form->SetChangedZORVA(fuzz::textOf(data, size));
    fuzz::require(form->GetSheet().GetWidgetCount() == rows, "an overlay neither adds nor removes rows");
    form->GetXmlString(false);
    return 0;
}
