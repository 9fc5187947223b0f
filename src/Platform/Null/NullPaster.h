#pragma once

#include "Export/CopyTargets.h"

// Where no synthetic key presses can be sent: paste-after-copy is off.
class NullPaster : public Paster {
public:
    void rememberTarget() override {}
    bool isTrusted() const override { return false; }
    void paste() override {}
};
