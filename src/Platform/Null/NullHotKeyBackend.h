#pragma once

#include "Platform/HotKeyBackend.h"

#include <map>

// For windowing systems without global key grabs: every registration fails.
// The notes say what to do instead (bind a command in the desktop).
class NullHotKeyBackend final : public HotKeyBackend {
public:
    NullHotKeyBackend() = default;
    explicit NullHotKeyBackend(std::map<quint32, QString> notes) : m_notes(std::move(notes)) {}

    void installHandler(PressHandler) override {}
    bool registerHotKey(quint32, const KeyCombo&) override { return false; }
    void unregisterHotKey(quint32) override {}
    QString desktopNote(quint32 number) const override
    {
        const auto found = m_notes.find(number);
        return found == m_notes.end() ? QString() : found->second;
    }
    // Notes are given where the desktop binds commands instead.
    bool desktopOwnsKeys() const override { return !m_notes.empty(); }

private:
    std::map<quint32, QString> m_notes;
};
