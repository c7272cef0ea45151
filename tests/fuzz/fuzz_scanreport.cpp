// A scan report of any kind, shown on the labels of a live form.
#include "harness.h"

#include <zorvaparser/zorvadelegate.h>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const fuzz::LiveForm form(fuzz::galleryDescription());
    Orvane::ZorvaDelegate* const scanner =
        form->GetSheet().FindWidget(QStringLiteral("SpecialObject_DSC"))->GetDelegate();
    const bool invoked =
        QMetaObject::invokeMethod(scanner, "sl_setScanRanges", Q_ARG(QString, fuzz::textOf(data, size)));
    fuzz::require(invoked, "the scan object takes reports");
    return 0;
}
