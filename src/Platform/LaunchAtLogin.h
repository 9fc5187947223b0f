#pragma once

#include <QString>

// Starting Pictray when the user logs in: an XDG autostart entry,
// $XDG_CONFIG_HOME/autostart/pictray.desktop, that runs this executable.
namespace LaunchAtLogin {

QString entryPath();
bool isEnabled();
// Writes or removes the entry. A failure is only logged, as
// "Pictray: launch at login change failed: " and the reason; returns false.
bool set(bool enabled, const QString& executable);

} // namespace LaunchAtLogin
