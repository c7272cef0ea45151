#include "withoutdisplay.h"

#include <QByteArray>

void leaveDisplay()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char* name : {"QT_QPA_PLATFORMTHEME", "QT_STYLE_OVERRIDE"})
        qunsetenv(name);
}
