#include "Base/WatchedFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

// Every way a writer changes the file is noticed, and keeps being noticed.
class TestWatchedFile : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    int m_runs = 0;

private slots:
    void noticesEachChange_data()
    {
        QTest::addColumn<bool>("atomic");
        QTest::addColumn<bool>("existsBefore");
        QTest::newRow("replaced atomically") << true << true;
        QTest::newRow("written in place") << false << true;
        QTest::newRow("created later") << true << false;
    }
    void noticesEachChange()
    {
        QFETCH(bool, atomic);
        QFETCH(bool, existsBefore);
        const QString path = m_dir.filePath(QStringLiteral("%1/Pictray.conf").arg(++m_runs));
        const auto write = [&](const QByteArray& text) {
            if (atomic) {
                QSaveFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly));
                file.write(text);
                QVERIFY(file.commit());
            } else {
                QFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
                file.write(text);
            }
        };
        QDir().mkpath(QFileInfo(path).absolutePath());
        if (existsBefore)
            write("a=1\n");
        WatchedFile watched(path);
        watched.setSettleTime(std::chrono::milliseconds(20));
        QSignalSpy changed(&watched, &WatchedFile::changed);
        // The second change proves the watch survived the first replacement.
        write("a=22\n");
        QTRY_COMPARE(changed.size(), 1);
        write("a=333\n");
        QTRY_COMPARE(changed.size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestWatchedFile)
#include "tst_watchedfile.moc"
