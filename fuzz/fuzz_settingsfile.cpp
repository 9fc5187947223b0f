// Arbitrary bytes as the settings file: reading every setting must never
// crash, and every number must come out inside its range.
#include "State/PreferenceRanges.h"
#include "State/Preferences.h"
#include "State/SettingsStore.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static QTemporaryDir dir;
    static int count = 0;
    // A new name each time: QSettings caches what it read by path, size and time.
    const QString path = dir.filePath(QStringLiteral("settings-%1.conf").arg(++count));
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly))
            std::abort();
        file.write(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    }
    {
        SettingsStore store(path);
        const Preferences preferences(store);
        for (const QString& key : Preferences::keys())
            (void)preferences.valueText(key);
        (void)store.stringListValue(QStringLiteral("favorites"));
        (void)store.bytesValue(QStringLiteral("lastCopy"));
        if (!PreferenceRanges::iconSize.contains(double(preferences.defaultSize())) ||
            !PreferenceRanges::stroke.contains(preferences.defaultStroke()) ||
            !PreferenceRanges::recentsLimit.contains(double(preferences.recentsLimit())) ||
            !PreferenceRanges::pngPadding.contains(double(preferences.pngPadding())))
            std::abort(); // a number read from the file escaped its range
    }
    QFile::remove(path);
    return 0;
}
