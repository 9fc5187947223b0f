#include "WebFetch.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

namespace WebFetch {

QNetworkReply* get(QNetworkAccessManager& network, const QUrl& url, qint64 maxBytes,
                   QObject* context, std::function<void(const Outcome&)> done)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::UserVerifiedRedirectPolicy);
    QNetworkReply* reply = network.get(request);
    QObject::connect(reply, &QNetworkReply::redirected, reply, [reply, url](const QUrl& target) {
        if (target.scheme() == url.scheme() && target.host() == url.host() &&
            target.port() == url.port()) {
            emit reply->redirectAllowed();
            return;
        }
        reply->setProperty("refusedRedirect", target);
        reply->abort();
    });
    QObject::connect(reply, &QNetworkReply::downloadProgress, reply,
                     [reply, maxBytes](qint64 received, qint64) {
                         if (received > maxBytes) {
                             reply->setProperty("tooLarge", true);
                             reply->abort();
                         }
                     });
    QObject::connect(
        reply, &QNetworkReply::finished, context, [reply, url, done = std::move(done)] {
            reply->deleteLater();
            const auto fail = [&](const QString& error) { done({std::nullopt, error}); };
            if (const QVariant target = reply->property("refusedRedirect"); target.isValid()) {
                fail(QStringLiteral("%1 redirected to %2, which is not the same "
                                    "server; refused.")
                         .arg(url.toDisplayString(), target.toUrl().toDisplayString()));
                return;
            }
            const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
            if (status.isValid() && status.toInt() != 200) {
                fail(QStringLiteral("The server answered %1 for %2.")
                         .arg(status.toInt())
                         .arg(url.toDisplayString()));
                return;
            }
            if (reply->error() != QNetworkReply::NoError) {
                fail(reply->property("tooLarge").toBool()
                         ? QStringLiteral("The answer from %1 was too large.")
                               .arg(url.toDisplayString())
                         : QStringLiteral("%1 (%2)").arg(reply->errorString(),
                                                         url.toDisplayString()));
                return;
            }
            done({reply->readAll(), {}});
        });
    return reply;
}

} // namespace WebFetch
