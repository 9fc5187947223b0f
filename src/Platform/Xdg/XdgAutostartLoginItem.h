#pragma once

#include "Platform/LoginItem.h"

// An XDG autostart entry, $XDG_CONFIG_HOME/autostart/ named by the
// application id, that runs the executable when the desktop session starts.
class XdgAutostartLoginItem final : public LoginItem {
public:
    static QString entryPath();

    bool isAvailable() const override { return true; }
    bool isEnabled() const override;
    bool setEnabled(bool enabled, const QString& executable) override;
};
