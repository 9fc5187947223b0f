#include "IconUpdater.h"

#include "Base/AppConfig.h"
#include "IconLibrary.h"
#include "NumericCompare.h"
#include "PackageConverter.h"

#include <QFutureWatcher>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>
#include <array>
#include <memory>

namespace {

constexpr int transferTimeoutMs = 30'000;

// The version ends up in download addresses and in the catalogue: accept
// only what a release number looks like.
bool isPlausibleVersion(const QString& version)
{
    static const QRegularExpression pattern(QStringLiteral("^[0-9A-Za-z][0-9A-Za-z.+-]{0,63}$"));
    return pattern.match(version).hasMatch();
}

// What the worker hands back: the saved catalogue, or why there is none.
struct Prepared {
    std::optional<CatalogueFile> file;
    QString error;
};

// The slow part of an update, safe off the main thread: it touches only its
// arguments and the downloaded file.
Prepared prepare(const QString& version, const QList<QByteArray>& files, const QString& path)
{
    Prepared prepared;
    const auto catalogue =
        PackageConverter::convert(version, files[0], files[1], files[2], &prepared.error);
    if (!catalogue) {
        prepared.error = QStringLiteral("The icon list of release %1 is damaged: %2.")
                             .arg(version, prepared.error);
        return prepared;
    }
    prepared.file = IconLibrary::save(*catalogue, path, &prepared.error);
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
    emit stateChanged();
}

void IconUpdater::fail(quint64 check, const QString& message)
{
    if (check == m_check)
        setState(State::Kind::failed, message);
}

void IconUpdater::checkForNewIcons()
{
    if (isBusy())
        return;
    const quint64 check = ++m_check;
    setState(State::Kind::checking);
    fetch(AppConfig::tablerLatestURL(), check, [this, check](const QByteArray& body) {
        const QJsonValue version =
            QJsonDocument::fromJson(body).object().value(QLatin1String("version"));
        if (!version.isString()) {
            fail(check, QStringLiteral("The answer about the newest release has no version."));
            return;
        }
        const QString latest = version.toString();
        if (!isPlausibleVersion(latest)) {
            fail(check, QStringLiteral("The newest release has an unusable version number."));
            return;
        }
        if (numericCompare(latest, m_library.version()) <= 0) {
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
    watcher->setFuture(
        QtConcurrent::run(&m_workers, prepare, version, files, m_library.sources().downloadedPath));
}

void IconUpdater::fetch(const QUrl& url, quint64 check, Done done)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    QNetworkReply* reply = m_network.get(request);
    connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received, qint64) {
        if (received > maxResponseBytes) {
            reply->setProperty("tooLarge", true);
            reply->abort();
        }
    });
    connect(reply, &QNetworkReply::finished, this,
            [this, reply, check, url, done = std::move(done)] {
                reply->deleteLater();
                if (check != m_check)
                    return; // a check that failed, followed by a new one
                const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
                if (status.isValid() && status.toInt() != 200) {
                    fail(check, QStringLiteral("The server answered %1 for %2.")
                                    .arg(status.toInt())
                                    .arg(url.toDisplayString()));
                    return;
                }
                if (reply->error() != QNetworkReply::NoError) {
                    fail(check, reply->property("tooLarge").toBool()
                                    ? QStringLiteral("The answer from %1 was too large.")
                                          .arg(url.toDisplayString())
                                    : reply->errorString());
                    return;
                }
                done(reply->readAll());
            });
}
