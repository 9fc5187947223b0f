#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;
class QObject;

// One GET with the guards every download of the program keeps: always from
// the network, a redirect only within the server asked (same scheme, host and
// port), no body larger than `maxBytes`, and only a 200 answer counts.
namespace WebFetch {

struct Outcome {
    std::optional<QByteArray> body;
    QString error; // when there is no body: what went wrong, naming the address
};

// `done` runs once, in `context`'s thread, unless `context` is gone first.
// The reply deletes itself afterwards; aborting it ends the fetch with an error.
QNetworkReply* get(QNetworkAccessManager& network, const QUrl& url, qint64 maxBytes,
                   QObject* context, std::function<void(const Outcome&)> done);

} // namespace WebFetch
