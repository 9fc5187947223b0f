#pragma once

#include "Catalog/IconLibrary.h"
#include "Catalog/PackageConverter.h"
#include "Export/CopyService.h"
#include "FakeTargets.h"
#include "Picker/PickerModel.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"
#include "State/UserLibrary.h"

#include <QFile>
#include <QTemporaryDir>
#include <memory>

// The picker's model and the copy service over a catalogue, with settings in a
// throw-away folder and copies that reach fake targets.
struct PickerFixture {
    QTemporaryDir dir;
    SettingsStore store{dir.filePath(QStringLiteral("settings.conf"))};
    Preferences prefs{store};
    FakeTargets targets;
    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<UserLibrary> user;
    std::unique_ptr<CopyService> copy;
    std::unique_ptr<PickerModel> model;

    // Over the shipped catalogue.
    PickerFixture() { loadFile(IconLibrary::shippedFilePath()); }
    explicit PickerFixture(const std::vector<PackageConverter::OutEntry>& icons) { load(icons); }

    // Another catalogue under the same settings and user lists.
    void load(const std::vector<PackageConverter::OutEntry>& icons)
    {
        QFile file(dir.filePath(QStringLiteral("catalogue-%1.json").arg(++m_catalogues)));
        if (!file.open(QIODevice::WriteOnly) ||
            !file.write(PackageConverter::OutFile{QStringLiteral("1.0"), icons}.encode()))
            qFatal("cannot write the catalogue");
        file.close();
        loadFile(file.fileName());
    }
    void loadFile(const QString& catalogue)
    {
        model.reset();
        copy.reset();
        user.reset();
        library = std::make_unique<IconLibrary>(IconLibrary::Sources{catalogue, {}});
        user = std::make_unique<UserLibrary>(
            store, prefs, [this](const QString& name) { return !library->icon(name).isNull(); });
        copy = std::make_unique<CopyService>(*library, *user, prefs, targets, targets, targets);
        model = std::make_unique<PickerModel>(*library, *user, prefs, copy.get());
    }

private:
    int m_catalogues = 0;
};
