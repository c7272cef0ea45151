#include "contrast.h"

#include <QtGlobal>

#include <cmath>

namespace {

double luminance(QRgb colour)
{
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

} // namespace

double contrast(QRgb a, QRgb b)
{
    const double lighter = qMax(luminance(a), luminance(b));
    const double darker = qMin(luminance(a), luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}
