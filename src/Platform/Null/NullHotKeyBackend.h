#pragma once

#include "Platform/HotKeyBackend.h"

// For windowing systems without global key grabs: every registration fails.
class NullHotKeyBackend final : public HotKeyBackend {
public:
    void installHandler(PressHandler) override {}
    bool registerHotKey(quint32, const KeyCombo&) override { return false; }
    void unregisterHotKey(quint32) override {}
};
