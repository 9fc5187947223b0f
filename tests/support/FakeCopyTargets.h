#pragma once

#include "Export/CopyTargets.h"

#include <QStringList>

// What a copy reaches, recorded instead of done: the messages shown, how
// often the paste target was noted and how often a paste was sent.
struct FakeCopyTargets : Clipboard, HeadsUp, Paster {
    QStringList messages;
    int remembered = 0;
    int pastes = 0;
    void clear() override {}
    void putText(const QString&) override {}
    void putPNG(const QByteArray&, const QImage&) override {}
    void show(const QString& message) override { messages.append(message); }
    void rememberTarget() override { ++remembered; }
    bool isTrusted() const override { return true; }
    void paste() override { ++pastes; }
};
