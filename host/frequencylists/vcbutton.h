#ifndef ZORVA_VCBUTTON_H
#define ZORVA_VCBUTTON_H

#include <frequencylists/frequencylists_export.h>

#include <QPushButton>

/// The flat push button of the frequency controls, as high as their edit.
class FREQUENCYLISTS_EXPORT VCButton : public QPushButton
{
    Q_OBJECT

public:
    /// name is the object name, null for none.
    VCButton(QWidget* parent, const char* name);
};

#endif
