#pragma once

#include "Export/CopyTargets.h"

#include <QByteArray>
#include <QImage>
#include <QString>

// Copies, pastes and announces nothing, so the panel benchmarks measure the
// panel alone.
struct NullTargets : Clipboard, HeadsUp, Paster {
    void clear() override {}
    void putText(const QString&) override {}
    void putPNG(const QByteArray&, const QImage&) override {}
    void show(const QString&) override {}
    void rememberTarget() override {}
    bool isTrusted() const override { return false; }
    void paste() override {}
};
