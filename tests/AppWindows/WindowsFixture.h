#pragma once

#include "AppWindows/WindowManager.h"
#include "Catalog/IconLibrary.h"
#include "Catalog/IconUpdater.h"
#include "FakeTargets.h"
#include "Platform/HotKeyBackend.h"
#include "Platform/HotKeyCenter.h"
#include "Platform/LoginItem.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"
#include "TestData.h"

#include <QQuickWindow>
#include <QTemporaryDir>
#include <functional>
#include <memory>

// A hot key backend that counts what it is asked and refuses what it is told to.
struct CountingHotKeys : HotKeyBackend {
    int registrations = 0;
    int withdrawals = 0;
    std::optional<KeyCombo> taken; // held by another program
    QString note;                  // what a desktop that owns the keys says
    std::function<void()> notesChanged;

    void installHandler(PressHandler) override {}
    QString desktopNote(quint32) const override { return note; }
    void installNotesHandler(const std::function<void()>& changed) override
    {
        notesChanged = changed;
    }
    bool registerHotKey(quint32, const KeyCombo& combo) override
    {
        ++registrations;
        return combo != taken;
    }
    void unregisterHotKey(quint32) override { ++withdrawals; }
};

// A login item that can be told to refuse.
struct FakeLoginItem : LoginItem {
    bool enabled = false;
    bool refuses = false;
    bool isAvailable() const override { return true; }
    bool isEnabled() const override { return enabled; }
    bool setEnabled(bool value, const QString&) override
    {
        if (refuses)
            return false;
        enabled = value;
        return true;
    }
};

// The windows over the shipped catalogue, with settings in a throw-away
// folder and fakes for everything beyond the program.
struct WindowsFixture {
    QTemporaryDir dir;
    IconLibrary& library;
    SettingsStore store{dir.filePath("Pictray.conf")};
    Preferences prefs{store};
    UserLibrary user{store, prefs,
                     [this](const QString& name) { return !library.icon(name).isNull(); }};
    IconUpdater updater{library};
    CountingHotKeys* hotKeyBackend = new CountingHotKeys;
    HotKeyCenter hotKeys{std::unique_ptr<HotKeyBackend>(hotKeyBackend)};
    FakeLoginItem loginItem;
    FakeTargets paster;
    WindowManager windows{prefs, library,
                          SettingsServices{user, updater, hotKeys, loginItem, paster}};

    explicit WindowsFixture(IconLibrary& catalogue) : library(catalogue) {}

    // Once per test program: the renderer and controls style the program
    // uses, and the shipped catalogue.
    static std::unique_ptr<IconLibrary> prepare()
    {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
        WindowManager::chooseControlsStyle();
        return std::make_unique<IconLibrary>(
            IconLibrary::Sources{TestData::shippedCatalogue(), QString()});
    }
};
