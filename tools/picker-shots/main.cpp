// Shows the picker's views in a window over the shipped catalogue, with
// settings in a throw-away folder, and saves a PNG of each state:
//   picker-shots [OUTPUT_DIR] [--measure]
// With --measure it also prints how long the first load, a search and a
// scroll of the full grid take (run with QT_QUICK_BACKEND=software).
#include "Panel/PanelPlacement.h"
#include "Panel/PickerController.h"
#include "Panel/PopoverState.h"
#include "Panel/Views/PictrayQml.h"
#include "PickerFixture.h"
#include "QuickItems.h"
#include "Ui/Kit/Appearance.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <memory>

namespace {

void setTemporaryXdgDirs(const QTemporaryDir& dir)
{
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(name, QDir(dir.path()).filePath(QString::fromLatin1(name)).toLocal8Bit());
}

// Processes events until the window has rendered a frame.
double waitForFrame(QQuickWindow& window)
{
    QElapsedTimer timer;
    timer.start();
    // Shared with the slot: a queued call may still arrive after this returns.
    const auto swapped = std::make_shared<bool>(false);
    const auto connection = QObject::connect(
        &window, &QQuickWindow::frameSwapped, &window, [swapped] { *swapped = true; },
        Qt::QueuedConnection);
    window.update();
    while (!*swapped && timer.elapsed() < 5000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QObject::disconnect(connection);
    return timer.nsecsElapsed() / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    QTemporaryDir home;
    setTemporaryXdgDirs(home);
    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("Pictray"));
    const QStringList args = app.arguments().mid(1);
    const bool measure = args.contains(QStringLiteral("--measure"));
    QString outDir = QStringLiteral(".");
    for (const QString& arg : args) {
        if (!arg.startsWith(u'-'))
            outDir = arg;
    }
    QDir().mkpath(outDir);
    QTextStream out(stdout);

    PickerFixture picker;
    for (const char* name : {"heart", "star", "bolt", "brand-github", "coffee", "rocket"})
        picker.user->toggleFavorite(QString::fromLatin1(name));
    PickerModel& model = *picker.model;
    // A controller whose copies and drags reach nothing outside.
    PickerController controller(model, picker.prefs, *picker.user, *picker.copy, picker.targets);
    PopoverState popover;
    Appearance appearance;
    appearance.setMode(AppearanceMode::light);

    QQuickWindow window;
    window.setColor(Qt::transparent);
    window.resize(780, 741);
    QQmlEngine engine;
    registerPictrayQml(engine, *picker.library);

    QElapsedTimer created;
    created.start();
    QQmlComponent component(&engine, QUrl(QStringLiteral("qrc:/Pictray/Picker/PopoverRoot.qml")));
    std::unique_ptr<QObject> rootObject(component.createWithInitialProperties(
        {{QStringLiteral("model"), QVariant::fromValue<QObject*>(&model)},
         {QStringLiteral("popover"), QVariant::fromValue<QObject*>(&popover)},
         {QStringLiteral("controller"), QVariant::fromValue<QObject*>(&controller)},
         {QStringLiteral("appearance"), QVariant::fromValue<QObject*>(&appearance)}}));
    auto* root = qobject_cast<QQuickItem*>(rootObject.get());
    if (!root) {
        out << component.errorString() << Qt::endl;
        return 1;
    }
    const double createMs = created.nsecsElapsed() / 1e6;
    root->setParentItem(window.contentItem());
    window.show();
    const double firstFrameMs = waitForFrame(window) + createMs;
    model.prepareForShow();

    const auto shoot = [&](const QString& name) {
        waitForFrame(window);
        QTimer::singleShot(50, &app, [] {});
        QCoreApplication::processEvents();
        waitForFrame(window);
        QImage image = window.grabWindow();
        // Without the arrow the body alone is the panel.
        if (!popover.hasArrow())
            image = image.copy(0, 0, 780, popover.bodyHeight());
        const QString path = QDir(outDir).filePath(name + QStringLiteral(".png"));
        image.save(path);
        out << "saved " << path << Qt::endl;
        // The arrow, six times enlarged over grey, to judge its joint with the body.
        if (popover.hasArrow()) {
            const int tip = qRound(popover.arrowX());
            const QRect around(tip - 30, popover.arrowDown() ? image.height() - 24 : 0, 60, 24);
            QImage detail(around.size(), QImage::Format_ARGB32_Premultiplied);
            detail.fill(QColor(0x7a, 0x7a, 0x7a));
            QPainter(&detail).drawImage(0, 0, image.copy(around));
            detail.scaled(around.size() * 6)
                .save(QDir(outDir).filePath(name + QStringLiteral("-detail.png")));
        }
    };

    shoot(QStringLiteral("default"));
    model.setQuery(QStringLiteral("arrow"));
    shoot(QStringLiteral("search-arrow"));
    model.setQuery(QStringLiteral("zzzz"));
    shoot(QStringLiteral("no-results"));
    model.setTab(PickerTab::favorites());
    model.setQuery(QStringLiteral("arrow"));
    shoot(QStringLiteral("search-all"));
    model.setTab(PickerTab::all());
    model.setQuery(QStringLiteral("arow"));
    shoot(QStringLiteral("typo"));
    model.setQuery(QString());
    model.setStyle(IconStyle::filled);
    model.setColor(QStringLiteral("#DC2626"));
    model.setFormat(ExportFormat::tailwind);
    shoot(QStringLiteral("filled"));
    model.setStyle(IconStyle::outline);
    model.setColor(QStringLiteral("currentColor"));
    QObject* formats = findItem(root, QStringLiteral("formatChoice"))
                           ->findChild<QObject*>(QStringLiteral("formatPopup"));
    QMetaObject::invokeMethod(formats, "open");
    shoot(QStringLiteral("copy-as"));
    QMetaObject::invokeMethod(formats, "close");
    model.setFormat(ExportFormat::jsx);
    appearance.setMode(AppearanceMode::dark);
    model.setTab(PickerTab::favorites());
    shoot(QStringLiteral("dark"));
    model.setTab(PickerTab::all());
    model.setQuery(QStringLiteral("qqqq"));
    shoot(QStringLiteral("dark-no-results"));
    model.setQuery(QString());
    appearance.setMode(AppearanceMode::light);
    popover.setArrowX(620);
    shoot(QStringLiteral("arrow"));
    popover.setArrowDown(true);
    appearance.setMode(AppearanceMode::dark);
    shoot(QStringLiteral("arrow-down-dark"));
    popover.setArrowDown(false);
    popover.setArrowX(-1);
    appearance.setMode(AppearanceMode::light);
    // What a 1280 x 720 screen with a bottom panel leaves.
    popover.setBodyHeight(PanelPlacement::minBodyHeight);
    model.prepareForShow();
    shoot(QStringLiteral("short-screen"));
    popover.setBodyHeight(PanelPlacement::bodyHeight);
    findItem(root, QStringLiteral("swatches"))->forceActiveFocus(Qt::TabFocusReason);
    shoot(QStringLiteral("focus-swatches"));
    findItem(root, QStringLiteral("styleControl"))->forceActiveFocus(Qt::TabFocusReason);
    shoot(QStringLiteral("focus-style"));
    model.requestSearchFocus();
    model.setColor(QStringLiteral("#FFFFFF"));
    shoot(QStringLiteral("white-on-light"));
    model.setColor(QStringLiteral("currentColor"));

    if (measure) {
        out << "create PopoverRoot: " << createMs << " ms; to first frame: " << firstFrameMs
            << " ms" << Qt::endl;
        for (const char* query : {"a", "arrow", "zzzz", ""}) {
            waitForFrame(window);
            QElapsedTimer timer;
            timer.start();
            model.setQuery(QString::fromLatin1(query));
            const double setMs = timer.nsecsElapsed() / 1e6;
            waitForFrame(window);
            out << "query \"" << query << "\": set " << setMs << " ms, to next frame "
                << timer.nsecsElapsed() / 1e6 << " ms" << Qt::endl;
        }
        QQuickItem* grid = findItem(root, QStringLiteral("iconGrid"));
        const double contentHeight = grid->property("contentHeight").toDouble();
        QElapsedTimer total;
        total.start();
        int frames = 0;
        double worst = 0;
        for (double y = 0; y < contentHeight - grid->height(); y += 120, ++frames) {
            QElapsedTimer frame;
            frame.start();
            grid->setProperty("contentY", y);
            waitForFrame(window);
            worst = std::max(worst, frame.nsecsElapsed() / 1e6);
        }
        out << "scroll All (" << model.resultCount() << " icons, 120 px steps): " << frames
            << " frames, mean " << total.nsecsElapsed() / 1e6 / std::max(frames, 1) << " ms, worst "
            << worst << " ms" << Qt::endl;
    }
    return 0;
}
