#pragma once

class HotKeyCenter;
class IconUpdater;
class LoginItem;
class Paster;
class UserLibrary;

// What the settings and onboarding windows change besides the preferences,
// handed to the window manager by whoever wired the program together.
struct SettingsServices {
    UserLibrary& user;
    IconUpdater& updater;
    HotKeyCenter& hotKeys;
    LoginItem& loginItem;
    Paster& paster;
};
