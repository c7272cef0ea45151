// Texts typed into a frequency edit; what is shown for a number reads back as that number.
#include "harness.h"

#include <basicvaluewidgets/frequencytext.h>
#include <basicvaluewidgets/vclineedit.h>
#include <valueframework/valuenumeric.h>

#include <cmath>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::ensureApplication();
    const QString text = fuzz::textOf(data, size);
    double hertz = 0.0;
    if (FrequencyText::Parse(text, &hertz) && std::isfinite(hertz) && std::abs(hertz) < 1e12) {
        double again = 0.0;
        fuzz::require(FrequencyText::Parse(FrequencyText::Format(hertz), &again),
                      "what is shown is readable");
        fuzz::require(std::abs(again - hertz) <= 0.5e-3 + std::abs(hertz) * 1e-15, "no hertz is lost");
    }
    values::NumericDouble value(QStringLiteral("frequency"), 0);
    value.SetMinMax(0.0, 26.5e9, 1.0, nullptr);
    VCLineEdit edit(nullptr, "edit", static_cast<VCLineEdit::LineEditType>(1));
    edit.SetValueBase(&value);
    edit.clear();
    edit.insert(text);
    edit.endEdit();
    fuzz::require(value.GetValue() >= 0.0 && value.GetValue() <= 26.5e9, "the range is held");
    return 0;
}
