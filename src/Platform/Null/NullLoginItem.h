#pragma once

#include "Platform/LoginItem.h"

// Where no login item can be made: always off, and turning it on fails.
class NullLoginItem final : public LoginItem {
public:
    bool isAvailable() const override { return false; }
    bool isEnabled() const override { return false; }
    bool setEnabled(bool enabled, const QString&) override { return !enabled; }
};
