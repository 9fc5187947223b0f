#pragma once

#include "Export/CopyTargets.h"

#include <QByteArray>
#include <QString>
#include <optional>

// Clipboard, heads-up message and paster in one, keeping what reached them
// (only the last of each, so a benchmark can copy without end).
struct FakeTargets : Clipboard, HeadsUp, Paster {
    std::optional<QString> text;
    QByteArray png;
    QString message; // the last one
    int messages = 0;
    bool trusted = true;
    int remembered = 0;
    int pastes = 0;

    void clear() override { text.reset(), png.clear(); }
    void putText(const QString& value) override { text = value; }
    void putPNG(const QByteArray& bytes, const QImage&) override { png = bytes; }
    void show(const QString& value) override { message = value, ++messages; }
    void rememberTarget() override { ++remembered; }
    bool isTrusted() const override { return trusted; }
    void paste() override { ++pastes; }
};
