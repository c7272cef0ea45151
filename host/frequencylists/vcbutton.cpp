#include "frequencylists/vcbutton.h"

VCButton::VCButton(QWidget* parent, const char* name)
    : QPushButton(parent)
{
    setObjectName(QString::fromLatin1(name));
    setAutoDefault(false); // Return belongs to the frequency
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}
