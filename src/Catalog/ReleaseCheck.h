#pragma once

#include "ReleaseFeed.h"

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <chrono>

class QNetworkReply;

// One look at the release feed: is there a release newer than the one
// running? Nothing is downloaded but the feed.
class ReleaseCheck : public QObject {
    Q_OBJECT

public:
    struct Outcome {
        enum class Kind { upToDate, newer, failed };
        Kind kind = Kind::upToDate;
        ReleaseFeed::Release release; // newer: the newest release
        QString error;                // failed: why, in words for the user
    };

    explicit ReleaseCheck(QObject* parent = nullptr);

    // Asks `feed` and compares with `runningVersion`; finished() tells. A call
    // while a check is under way joins it.
    void start(const QUrl& feed, const QString& runningVersion);
    bool isBusy() const { return !m_reply.isNull(); }

    // A check that has not finished by then fails.
    static constexpr std::chrono::milliseconds defaultDeadline = std::chrono::seconds(30);
    void setDeadline(std::chrono::milliseconds deadline) { m_deadline.setInterval(deadline); }

signals:
    void finished(const ReleaseCheck::Outcome& outcome);

private:
    QNetworkAccessManager m_network;
    QPointer<QNetworkReply> m_reply;
    QTimer m_deadline;
};
