#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>
#include <functional>

// The places a copy reaches beyond the program, each behind a small interface
// so the copy service stays free of windows and can be tested with fakes.

// The system clipboard.
class Clipboard {
public:
    virtual ~Clipboard() = default;
    virtual void clear() = 0;
    virtual void putText(const QString& text) = 0;
    // The encoded bytes and the image itself, so every receiver finds a format.
    virtual void putPNG(const QByteArray& png, const QImage& image) = 0;
};

// A short message that confirms a copy and goes away by itself.
class HeadsUp {
public:
    virtual ~HeadsUp() = default;
    virtual void show(const QString& message) = 0;
};

// Sends the paste keystroke to the application the user was working in.
class Paster {
public:
    virtual ~Paster() = default;
    // Notes the window that has the keyboard now, before the picker takes it.
    virtual void rememberTarget() = 0;
    // False where synthetic key presses cannot be sent (no XTest, a Wayland
    // desktop without the remote desktop portal, or the user refused it).
    virtual bool isTrusted() const = 0;
    virtual void paste() = 0;

    // The line the settings show under "After copying": why nothing is
    // pasted, or what the first paste will ask; empty when pasting just works.
    virtual QString note() const
    {
        return isTrusted() ? QString()
                           : QStringLiteral("This desktop does not let Pictray type into other "
                                            "windows, so \u201CClose and paste\u201D only copies.");
    }
    // Called whenever note() changes.
    virtual void installNoteHandler(const std::function<void()>& /*changed*/) {}
};
