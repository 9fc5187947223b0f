#include "ReleaseCheck.h"

#include "WebFetch.h"

#include <QNetworkReply>

ReleaseCheck::ReleaseCheck(QObject* parent) : QObject(parent)
{
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(defaultDeadline);
    m_network.setTransferTimeout(static_cast<int>(defaultDeadline.count()));
    connect(&m_deadline, &QTimer::timeout, this, [this] {
        if (m_reply) {
            m_reply->setProperty("gaveUp", true);
            m_reply->abort();
        }
    });
}

void ReleaseCheck::start(const QUrl& feed, const QString& runningVersion)
{
    if (isBusy())
        return;
    m_deadline.start();
    m_reply = WebFetch::get(
        m_network, feed, ReleaseFeed::maxBytes, this,
        [this, feed, runningVersion](const WebFetch::Outcome& fetched) {
            m_deadline.stop();
            const bool gaveUp = m_reply && m_reply->property("gaveUp").toBool();
            m_reply.clear();
            Outcome outcome;
            outcome.kind = Outcome::Kind::failed;
            if (gaveUp) {
                outcome.error =
                    QStringLiteral("%1 did not answer in time.").arg(feed.toDisplayString());
            } else if (!fetched.body) {
                outcome.error = fetched.error;
            } else if (const auto releases = ReleaseFeed::parse(*fetched.body, &outcome.error)) {
                const auto newer = ReleaseFeed::newerThan(*releases, runningVersion);
                outcome.kind = newer ? Outcome::Kind::newer : Outcome::Kind::upToDate;
                if (newer)
                    outcome.release = *newer;
            }
            emit finished(outcome);
        });
}
