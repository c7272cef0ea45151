#include "basicvaluewidgets/readonlylook_p.h"

#include <QPalette>
#include <QWidget>

void ReadOnlyLook::Apply(QWidget* edit, bool readOnly)
{
    QPalette own; // what is not set in it is inherited
    if (readOnly) {
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            own.setBrush(group, QPalette::Base, edit->palette().brush(group, QPalette::Window));
    }
    edit->setPalette(own);
}
