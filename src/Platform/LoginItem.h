#pragma once

#include <QString>

// Starting Pictray when the user logs in, in the desktop's own way.
class LoginItem {
public:
    virtual ~LoginItem() = default;

    // False where the desktop offers no way to start programs at login.
    virtual bool isAvailable() const = 0;
    virtual bool isEnabled() const = 0;
    // Turns starting at login on, running `executable`, or off. A failure is
    // only logged, as "Pictray: launch at login change failed: " and the
    // reason; then it returns false.
    virtual bool setEnabled(bool enabled, const QString& executable) = 0;
};
