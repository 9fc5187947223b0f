#pragma once

#include <QString>
#include <optional>

// An exclusive advisory lock (flock) on a file, held until destruction.
// Waiters sleep in the kernel and are woken as soon as the holder lets go,
// and the kernel drops the lock of a process that dies, so a crash never
// leaves a stale lock behind.
class FileLock {
public:
    // Creates the file if needed and waits for the lock. Nullopt, with *error
    // set to the system's reason, when the file cannot be opened or locked.
    static std::optional<FileLock> acquire(const QString& path, QString* error);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&&) = delete;
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    explicit FileLock(int descriptor) : m_descriptor(descriptor) {}
    int m_descriptor;
};
