#include "App/Shell/HeapTrim.h"
#include "Catalog/IconLibrary.h"

#include <QFile>
#include <QTemporaryFile>
#include <QTest>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

// Resident kilobytes of the mapping that starts at `address`, from smaps.
int residentKb(const void* address)
{
    QFile smaps(QStringLiteral("/proc/self/smaps"));
    if (!smaps.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray start = QByteArray::number(reinterpret_cast<quintptr>(address), 16) + '-';
    bool inside = false;
    for (QByteArray line = smaps.readLine(); !line.isEmpty(); line = smaps.readLine()) {
        if (line.startsWith(start))
            inside = true;
        else if (inside && line.startsWith("Rss:"))
            return line.mid(4).trimmed().split(' ').first().toInt();
    }
    return -1;
}

// A file of `pages` pages, each filled with its own number.
QByteArray pagesOfNumbers(int pages)
{
    QByteArray bytes;
    for (int page = 0; page < pages; ++page)
        bytes.append(QByteArray(int(sysconf(_SC_PAGESIZE)), char('a' + page % 26)));
    return bytes;
}

class Mapping {
public:
    Mapping(const QString& path, qsizetype size, int protection) : m_size(size)
    {
        const int fd = open(QFile::encodeName(path).constData(), O_RDWR);
        m_data = static_cast<char*>(mmap(nullptr, size_t(size), protection, MAP_PRIVATE, fd, 0));
        close(fd);
    }
    ~Mapping() { munmap(m_data, size_t(m_size)); }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;
    char* data() const { return m_data; }
    QByteArrayView view() const { return {m_data, m_size}; }

private:
    char* m_data = nullptr;
    qsizetype m_size;
};

} // namespace

class TestHeapTrim : public QObject {
    Q_OBJECT

private slots:
    void dropsOnlyPagesThatReadBackTheSame()
    {
        const QByteArray contents = pagesOfNumbers(8);
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(contents);
        file.flush();

        const Mapping readOnly(file.fileName(), contents.size(), PROT_READ);
        QCOMPARE(readOnly.view(), contents); // every page read, so resident
        QVERIFY(residentKb(readOnly.data()) > 0);
        HeapTrim::releaseMappedPages(readOnly.view());
        QCOMPARE(residentKb(readOnly.data()), 0);
        QCOMPARE(readOnly.view(), contents);

        // A private page once written holds the only copy of what was
        // written: it must stay, and so must the heap's.
        const Mapping written(file.fileName(), contents.size(), PROT_READ | PROT_WRITE);
        written.data()[0] = '!';
        HeapTrim::releaseMappedPages(written.view());
        QCOMPARE(written.data()[0], '!');
        QCOMPARE(written.view().sliced(1), QByteArrayView(contents).sliced(1));
        const QByteArray heap(contents.constData(), contents.size()); // a buffer of its own
        HeapTrim::releaseMappedPages(heap);
        QCOMPARE(heap, contents);
    }

    void theCatalogueReadsTheSameAfterItsPagesAreDropped()
    {
        const IconLibrary library({IconLibrary::shippedFilePath(), {}});
        const Icon home = library.icon(u"home");
        const auto paths = home.paths(IconStyle::outline);
        const QStringList tags = home.tags();
        QVERIFY(paths && !tags.isEmpty());
        QVERIFY(!IconLibrary::compiledInCatalogue().isNull());
        HeapTrim::releaseIdleMemory();
        QCOMPARE(home.paths(IconStyle::outline), paths);
        QCOMPARE(home.tags(), tags);
    }
};

QTEST_GUILESS_MAIN(TestHeapTrim)
#include "tst_heaptrim.moc"
