#include "FileLock.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

std::optional<FileLock> FileLock::acquire(const QString& path, QString* error)
{
    const QByteArray name = QFile::encodeName(path);
    const int descriptor = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0) {
        *error = QString::fromLocal8Bit(std::strerror(errno));
        return std::nullopt;
    }
    int result = 0;
    do {
        result = ::flock(descriptor, LOCK_EX);
    } while (result != 0 && errno == EINTR);
    if (result != 0) {
        *error = QString::fromLocal8Bit(std::strerror(errno));
        ::close(descriptor);
        return std::nullopt;
    }
    return FileLock(descriptor);
}

FileLock::FileLock(FileLock&& other) noexcept : m_descriptor(other.m_descriptor)
{
    other.m_descriptor = -1;
}

FileLock::~FileLock()
{
    // Closing the last descriptor of the open file releases the lock.
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}
