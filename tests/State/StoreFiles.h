#pragma once

#include "State/SettingsStore.h"

#include <QFile>
#include <QTemporaryDir>
#include <memory>

// Settings files in a temporary folder. QSettings keeps what it read and
// wrote in a per-process cache keyed by path, so "the next launch" copies the
// file to a fresh name: the copy is parsed from its text, as at a real start.
class StoreFiles {
public:
    QString path(const QString& name) const { return m_dir.filePath(name); }

    std::unique_ptr<SettingsStore> fresh() { return open(nextName()); }

    // The file as a new process would read it; the old store is closed first.
    std::unique_ptr<SettingsStore> relaunch(std::unique_ptr<SettingsStore> store)
    {
        const QString old = store->filePath();
        store.reset();
        const QString name = nextName();
        if (QFile::exists(old))
            QFile::copy(old, path(name));
        return open(name);
    }

    // A store over text as a user might have written it.
    std::unique_ptr<SettingsStore> withText(const QByteArray& text)
    {
        const QString name = nextName();
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        file.close();
        return open(name);
    }

private:
    QString nextName() { return QStringLiteral("settings-%1.conf").arg(++m_count); }
    std::unique_ptr<SettingsStore> open(const QString& name)
    {
        return std::make_unique<SettingsStore>(path(name));
    }

    QTemporaryDir m_dir;
    int m_count = 0;
};
