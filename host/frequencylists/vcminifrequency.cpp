#include "frequencylists/vcminifrequency.h"

VCMiniFrequency::VCMiniFrequency(QWidget* parent, const char* name)
    : QToolButton(parent)
{
    setObjectName(QString::fromLatin1(name));
    setAutoRaise(true);
}
