#include "HeapTrim.h"

#include "Catalog/IconLibrary.h"

#include <QFile>

#if defined(__GLIBC__)
#include <malloc.h>
#endif
#if defined(__linux__)
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace HeapTrim {
namespace {

#if defined(__linux__)
// Whether [first, end) lies in one read-only private mapping of a file, by
// the process's own map: "start-end perms offset device inode path".
bool readOnlyFileMapping(quintptr first, quintptr end)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        return false;
    // A sequential file: readLine until the end, not atEnd.
    for (QByteArray line = maps.readLine(); !line.isEmpty(); line = maps.readLine()) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        const qsizetype dash = fields.value(0).indexOf('-');
        bool startOk = false;
        bool endOk = false;
        const quintptr start = fields.value(0).left(dash).toULongLong(&startOk, 16);
        const quintptr stop = fields.value(0).mid(dash + 1).toULongLong(&endOk, 16);
        if (!startOk || !endOk || first < start || first >= stop)
            continue;
        // Not writable, private, and with a file (an inode other than 0).
        const QByteArray perms = fields.value(1);
        return end <= stop && fields.size() >= 6 && perms.size() == 4 && perms[1] == '-' &&
               perms[3] == 'p' && fields[4] != "0";
    }
    return false;
}
#endif

// Whole pages of memory.
struct Pages {
    char* first = nullptr;
    qsizetype length = 0;
};

// The whole pages of `bytes` when they lie in a read-only private file
// mapping; none otherwise, since dropping them would lose what they hold.
Pages droppablePages(QByteArrayView bytes)
{
#if defined(__linux__)
    const auto page = qsizetype(sysconf(_SC_PAGESIZE));
    // madvise only drops the pages; nothing is written through this pointer.
    auto* base = const_cast<char*>(bytes.data());
    const auto start = qsizetype(reinterpret_cast<quintptr>(base) % quintptr(page));
    // Only whole pages of the bytes: a page they share with other data stays.
    const qsizetype skip = (page - start) % page;
    const qsizetype length = (bytes.size() - skip) / page * page;
    char* first = base + skip;
    if (length <= 0 || !readOnlyFileMapping(reinterpret_cast<quintptr>(first),
                                            reinterpret_cast<quintptr>(first + length)))
        return {};
    return {first, length};
#else
    Q_UNUSED(bytes);
    return {};
#endif
}

void dropPages(const Pages& pages)
{
#if defined(__linux__)
    if (pages.length > 0)
        madvise(pages.first, size_t(pages.length), MADV_DONTNEED);
#else
    Q_UNUSED(pages);
#endif
}

} // namespace

void releaseFreePages()
{
#if defined(__GLIBC__)
    malloc_trim(0);
#endif
}

void releaseMappedPages(QByteArrayView bytes)
{
    dropPages(droppablePages(bytes));
}

void releaseIdleMemory()
{
    releaseFreePages();
    // The compiled-in catalogue never moves: its pages are looked up once.
    static const Pages catalogue = droppablePages(IconLibrary::compiledInCatalogue());
    dropPages(catalogue);
}

} // namespace HeapTrim
