#include "IconUpdater.h"

#include "Base/AppConfig.h"
#include "IconLibrary.h"
#include "PackageConverter.h"
#include "ReleaseVersion.h"
#include "WebFetch.h"

#include <QFutureWatcher>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>
#include <array>
#include <memory>
#include <utility>

namespace {

constexpr int transferTimeoutMs = 30'000;

// What the worker hands back: the saved catalogue, or why there is none.
struct Prepared {
    std::optional<CatalogueFile> file;
    QString error;
};

// The slow part of an update, safe off the main thread: it touches only its
// arguments and the downloaded file.
Prepared prepare(const QString& version, const QList<QByteArray>& files, const QString& path,
                 int loadedIcons)
{
    Prepared prepared;
    const auto meta = PackageConverter::metadata(files[0], &prepared.error);
    if (!meta) {
        prepared.error = QStringLiteral("The icon list of release %1 is damaged: %2.")
                             .arg(version, prepared.error);
        return prepared;
    }
    const PackageConverter::OutFile catalogue = PackageConverter::build(
        version, *meta, PackageConverter::nodes(files[1]), PackageConverter::nodes(files[2]));
    // One broken node file only costs its own style; both broken, or a
    // release far smaller than what is loaded, is not worth replacing it with.
    const auto icons = static_cast<qsizetype>(catalogue.icons.size());
    if (icons == 0 || double(icons) < IconUpdater::minimumShareOfIcons * loadedIcons) {
        prepared.error =
            QStringLiteral("release %1 looks damaged (%2 icons).").arg(version).arg(icons);
        return prepared;
    }
    prepared.file = IconLibrary::save(catalogue.encode(), path, &prepared.error);
    return prepared;
}

} // namespace

QString IconUpdater::State::text() const
{
    switch (kind) {
    case Kind::downloading:
        return QStringLiteral("Downloading Tabler Icons %1\u2026").arg(value);
    case Kind::updated:
        return QStringLiteral("Updated to Tabler Icons %1.").arg(value);
    case Kind::failed:
        return QStringLiteral("Couldn\u2019t update: %1").arg(value);
    case Kind::upToDate:
        return QStringLiteral("You have the newest icons.");
    case Kind::idle:
    case Kind::checking:
        break;
    }
    return {};
}

IconUpdater::IconUpdater(IconLibrary& library, QObject* parent)
    : IconUpdater(library, *QThreadPool::globalInstance(), parent)
{
}

IconUpdater::IconUpdater(IconLibrary& library, QThreadPool& workers, QObject* parent)
    : QObject(parent), m_library(library), m_workers(workers)
{
    m_network.setTransferTimeout(transferTimeoutMs);
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(defaultDeadline);
    connect(&m_deadline, &QTimer::timeout, this, &IconUpdater::giveUp);
}

IconUpdater& IconUpdater::shared()
{
    static auto* updater = new IconUpdater(IconLibrary::shared());
    return *updater;
}

bool IconUpdater::isBusy() const
{
    return m_state.kind == State::Kind::checking || m_state.kind == State::Kind::downloading;
}

void IconUpdater::setState(State::Kind kind, const QString& value)
{
    m_state = State{kind, value};
    if (!isBusy())
        m_deadline.stop();
    emit stateChanged();
}

void IconUpdater::fail(quint64 check, const QString& message)
{
    if (check == m_check)
        setState(State::Kind::failed, message);
}

void IconUpdater::giveUp()
{
    const auto waitedFor = m_pending.isEmpty()
                               ? QStringLiteral("the release to be prepared")
                               : QStringLiteral("an answer from %1")
                                     .arg(m_pending.constFirst()->url().toDisplayString());
    const auto minutes =
        std::chrono::duration<double, std::ratio<60>>(m_deadline.intervalAsDuration());
    fail(m_check, QStringLiteral("gave up after %1 minutes waiting for %2.")
                      .arg(QString::number(minutes.count(), 'g', 3), waitedFor));
    ++m_check; // whatever the abandoned check still receives is dropped
    for (QNetworkReply* reply : std::exchange(m_pending, {}))
        reply->abort();
}

void IconUpdater::checkForNewIcons()
{
    if (isBusy())
        return;
    const quint64 check = ++m_check;
    m_deadline.start();
    setState(State::Kind::checking);
    fetch(AppConfig::tablerLatestURL(), check, [this, check](const QByteArray& body) {
        const QJsonValue version =
            QJsonDocument::fromJson(body).object().value(QLatin1String("version"));
        if (!version.isString()) {
            fail(check, QStringLiteral("The answer about the newest release has no version."));
            return;
        }
        // The version ends up in download addresses and in the catalogue.
        const QString latest = version.toString();
        const auto release = ReleaseVersion::parse(latest);
        if (!release) {
            fail(check, QStringLiteral("The newest release has an unusable version number."));
            return;
        }
        // A loaded catalogue without a release number is older than any release.
        const auto loaded = ReleaseVersion::parse(m_library.version());
        if (loaded && release->compare(*loaded) <= 0) {
            setState(State::Kind::upToDate);
            return;
        }
        download(latest, check);
    });
}

void IconUpdater::download(const QString& version, quint64 check)
{
    setState(State::Kind::downloading, version);
    static const std::array<QString, 3> files{QStringLiteral("icons.json"),
                                              QStringLiteral("tabler-nodes-outline.json"),
                                              QStringLiteral("tabler-nodes-filled.json")};
    // The three files come in parallel; the last one to arrive installs.
    auto bodies = std::make_shared<std::array<std::optional<QByteArray>, 3>>();
    for (std::size_t i = 0; i < files.size(); ++i) {
        fetch(AppConfig::tablerFileURL(version, files[i]), check,
              [this, check, version, bodies, i](const QByteArray& body) {
                  (*bodies)[i] = body;
                  QList<QByteArray> complete;
                  for (const auto& part : *bodies) {
                      if (!part)
                          return;
                      complete.append(*part);
                  }
                  install(version, check, complete);
              });
    }
}

void IconUpdater::install(const QString& version, quint64 check, const QList<QByteArray>& files)
{
    // A child of this updater: if the updater goes first, nobody is told.
    auto* watcher = new QFutureWatcher<Prepared>(this);
    connect(watcher, &QFutureWatcher<Prepared>::finished, this, [this, watcher, version, check] {
        watcher->deleteLater();
        Prepared prepared = watcher->result();
        if (check != m_check)
            return;
        if (!prepared.file) {
            fail(check, prepared.error);
            return;
        }
        m_library.adopt(std::move(*prepared.file));
        setState(State::Kind::updated, version);
    });
    watcher->setFuture(QtConcurrent::run(&m_workers, prepare, version, files,
                                         m_library.sources().downloadedPath,
                                         m_library.iconCount()));
}

void IconUpdater::fetch(const QUrl& url, quint64 check, Done done)
{
    QNetworkReply* reply =
        WebFetch::get(m_network, url, maxResponseBytes, this,
                      [this, check, done = std::move(done)](const WebFetch::Outcome& outcome) {
                          if (check != m_check)
                              return; // a check that failed, followed by a new one
                          if (outcome.body)
                              done(*outcome.body);
                          else
                              fail(check, outcome.error);
                      });
    m_pending.append(reply);
    connect(reply, &QNetworkReply::finished, this, [this, reply] { m_pending.removeOne(reply); });
}
