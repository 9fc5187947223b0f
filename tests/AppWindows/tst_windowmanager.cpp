#include "AppWindows/AboutInfo.h"
#include "TestData.h"
#include "WindowsFixture.h"

#include <QApplication>
#include <QKeyEvent>
#include <QQuickItem>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

// Every text the item and the items in it show.
void collectTexts(const QQuickItem* item, QStringList& list)
{
    const QVariant text = item->property("text");
    if (text.isValid() && !text.toString().isEmpty())
        list.append(text.toString());
    for (const QQuickItem* child : item->childItems())
        collectTexts(child, list);
}

QStringList texts(const QQuickWindow* window)
{
    QStringList list;
    collectTexts(window->contentItem(), list);
    return list;
}

void processDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class TestWindowManager : public QObject {
    Q_OBJECT

    std::unique_ptr<IconLibrary> library;
    std::unique_ptr<WindowsFixture> fixture;
    SettingsStore* store = nullptr;
    Preferences* prefs = nullptr;
    WindowManager* windows = nullptr;

    static void press(QWindow* window, int key, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(window, &event);
    }

private slots:
    void initTestCase() { library = WindowsFixture::prepare(); }

    void init()
    {
        fixture = std::make_unique<WindowsFixture>(*library);
        store = &fixture->store;
        prefs = &fixture->prefs;
        windows = &fixture->windows;
    }

    void cleanup() { fixture.reset(); }

    void settingsIsOneWindowThatSwitchesTabs()
    {
        windows->showSettings(WindowManager::Tab::general);
        QQuickWindow* settings = windows->settingsWindow();
        QVERIFY(settings);
        QVERIFY(settings->isVisible());
        QCOMPARE(settings->title(), QString("General"));

        windows->showSettings(WindowManager::Tab::about);
        QCOMPARE(windows->settingsWindow(), settings);
        QCOMPARE(windows->settingsTab(), std::optional(WindowManager::Tab::about));

        // Escape closes it; it is kept, with its tab.
        press(settings, Qt::Key_Escape);
        QTRY_VERIFY(!settings->isVisible());
        processDeletes();
        QCOMPARE(windows->settingsWindow(), settings);
        QVERIFY(!windows->hasVisibleWindow());
        windows->showSettings(WindowManager::Tab::copy);
        QCOMPARE(windows->settingsWindow(), settings);
        QCOMPARE(windows->settingsTab(), std::optional(WindowManager::Tab::copy));
    }

    void closedAboutWindowIsMadeAfresh()
    {
        windows->showAbout();
        QPointer<QQuickWindow> first = windows->aboutWindow();
        QVERIFY(first);
        QCOMPARE(first->title(), QString("About Pictray"));
        press(first, Qt::Key_W, Qt::ControlModifier);
        QTRY_VERIFY(!windows->aboutWindow());
        processDeletes();
        QVERIFY(!first);
        windows->showAbout();
        QVERIFY(windows->aboutWindow());
        QVERIFY(windows->aboutWindow()->isVisible());
    }

    // The texts the about window works out: the rest are literals in its QML.
    void aboutViewTexts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("version") << "Version " PICTRAY_VERSION " (1)";
        QTest::newRow("tagline") << "A tray picker for the Tabler icon set."; // Linux words
        QTest::newRow("catalogue") << "Tabler Icons " + library->version();
        QTest::newRow("credit") << "Icons from <a href=\"https://tabler.io/icons\">Tabler Icons</a>"
                                   " by Paweł Kuna and contributors, under the MIT License.";
    }

    void aboutViewTexts()
    {
        QFETCH(QString, text);
        windows->showAbout();
        const QStringList shown = texts(windows->aboutWindow());
        QVERIFY2(shown.contains(text), qPrintable(shown.join(" | ")));
    }

    void licenceIsBuiltIn()
    {
        const QString licence = AboutInfo::licenceText();
        QVERIFY(licence.startsWith("MIT License"));
        QVERIFY(licence.contains("Paweł Kuna"));
    }

    void appearanceReachesTheKeptSettingsWindow()
    {
        windows->showSettings();
        QQuickWindow* settings = windows->settingsWindow();
        settings->close();
        prefs->setAppearance(AppearanceMode::dark);
        windows->applyAppearance();
        QVERIFY(windows->appearance().dark());
        QCOMPARE(settings->color(), QColor("#1E1F22"));

        prefs->setAppearance(AppearanceMode::light);
        windows->applyAppearance();
        QVERIFY(!windows->appearance().dark());
        QCOMPARE(settings->color(), QColor("#F5F5F7"));
    }

    // Closed without finishing, onboarding comes again at the next start and
    // opens no picker; finishing is walked through in tst_settingsviews.
    void closedOnboardingIsNotCompleted()
    {
        QSignalSpy pickerRequested(windows, &WindowManager::pickerRequested);
        windows->showOnboarding();
        QQuickWindow* window = windows->onboardingWindow();
        QVERIFY(window);
        QCOMPARE(window->title(), QString("Welcome to Pictray"));
        QVERIFY(texts(window).join(u' ').contains(u"lives in your tray."));
        window->close();
        QVERIFY(!windows->onboardingWindow());
        QVERIFY(!store->boolValue("hasCompletedOnboarding"));
        QCOMPARE(pickerRequested.size(), 0);
    }
};

QTEST_MAIN(TestWindowManager)
#include "tst_windowmanager.moc"
