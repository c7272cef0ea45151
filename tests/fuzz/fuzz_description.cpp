// A description of any kind: parsed, bound, built, written and read back.
#include "harness.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const fuzz::LiveForm form(fuzz::bytesOf(data, size));
    if (!form)
        return 0;
    const QString parameters = form->GetXmlString(false);
    form->SetXmlString(parameters);
    form->GetXmlString(true);
    form->GetEmptyXmlElement();
    form->EnableInput(false);
    form->GetSheet().SetCollapsed({QStringLiteral("group")});
    form->EnableInput(true);
    return 0;
}
