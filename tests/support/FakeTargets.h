#pragma once

#include "Export/CopyTargets.h"

#include <QStringList>
#include <optional>

// Clipboard, heads-up message and paster in one, keeping what reached them.
struct FakeTargets : Clipboard, HeadsUp, Paster {
    std::optional<QString> text;
    QByteArray png;
    QStringList messages;
    bool trusted = true;
    int remembered = 0;
    int pastes = 0;

    void clear() override { text.reset(), png.clear(); }
    void putText(const QString& value) override { text = value; }
    void putPNG(const QByteArray& bytes, const QImage&) override { png = bytes; }
    void show(const QString& message) override { messages.append(message); }
    void rememberTarget() override { ++remembered; }
    bool isTrusted() const override { return trusted; }
    void paste() override { ++pastes; }
};
