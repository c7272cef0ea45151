#include "frequencylists/vcminifrequency.h"

VCMiniFrequency::VCMiniFrequency(QWidget* parent, const char* name)
    : QToolButton(parent)
{
    setObjectName(QString::fromUtf8(name));
    setAutoRaise(true);
}
