#include "debuggerplace.h"

#include <QApplication>
#include <QSettings>
#include <QStandardPaths>
#include <QVariant>

namespace {

constexpr char property[] = "debugger-geometry";
const QLatin1String key("debugger/geometry");

QString settingsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QLatin1String("/zorvashell.ini");
}

} // namespace

DebuggerPlace::DebuggerPlace()
{
    const QSettings settings(settingsFile(), QSettings::IniFormat);
    qApp->setProperty(property, settings.value(key));
}

DebuggerPlace::~DebuggerPlace()
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    const QVariant place = qApp->property(property);
    if (place.isValid() && place != settings.value(key))
        settings.setValue(key, place);
}
