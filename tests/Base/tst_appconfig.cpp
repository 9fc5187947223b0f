#include "TestData.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

// The addresses the program opens or asks are deployment settings: they all
// live in AppConfig, so a packager or a fork changes each in one place.
class TestAppConfig : public QObject {
    Q_OBJECT

private slots:
    void noAddressOutsideAppConfig()
    {
        const QString top = TestData::sourcePath(u"src/"_qs);
        static const QRegularExpression address(u"(https?|ftp)://|mailto:[^\\s\"]*@"_qs);
        QStringList found;
        QDirIterator files(top, {u"*.cpp"_qs, u"*.h"_qs, u"*.qml"_qs, u"*.js"_qs}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString relative = path.mid(top.size());
            if (relative == u"Base/AppConfig.cpp")
                continue;
            QFile file(path);
            QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
            int number = 0;
            while (!file.atEnd()) {
                const QString line = QString::fromUtf8(file.readLine());
                ++number;
                // The SVG namespace is a name, not an address.
                if (line.contains(address) && !line.contains(u"http://www.w3.org/2000/svg"))
                    found.append(relative + u':' + QString::number(number));
            }
        }
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u", ")));
    }
};

QTEST_GUILESS_MAIN(TestAppConfig)
#include "tst_appconfig.moc"
