#pragma once

#include <QNetworkAccessManager>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>

class IconLibrary;
class QNetworkReply;
class QThreadPool;

// Moves the catalogue to a newer icon set release on request: asks for the
// newest version, downloads that release's files, converts and installs them.
// Converting, decoding and saving a release take long enough to freeze the
// windows, so they run on a worker thread; the library takes the result on
// its own thread.
class IconUpdater : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString statusText READ statusText NOTIFY stateChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY stateChanged)

public:
    struct State {
        enum class Kind { idle, checking, downloading, updated, failed, upToDate };
        Kind kind = Kind::idle;
        QString value; // the version, or the failure's description

        // The line the settings window shows; empty for idle and checking.
        QString text() const;
        friend bool operator==(const State&, const State&) = default;
    };

    explicit IconUpdater(IconLibrary& library, QObject* parent = nullptr);
    // Runs the release's conversion on `workers` rather than the global pool.
    IconUpdater(IconLibrary& library, QThreadPool& workers, QObject* parent = nullptr);
    static IconUpdater& shared();

    const State& state() const { return m_state; }
    QString statusText() const { return m_state.text(); }
    bool isBusy() const;

    // Starts one check and returns at once. A call while a check is under
    // way joins it: nothing is asked or downloaded twice, and that check's
    // outcome is the answer.
    Q_INVOKABLE void checkForNewIcons();

    // Responses larger than this are refused.
    static constexpr qint64 maxResponseBytes = qint64(64) * 1024 * 1024;
    // A check that has not finished by then fails, naming what it waited for:
    // a server that dribbles bytes never trips a timeout of inactivity.
    static constexpr std::chrono::milliseconds defaultDeadline = std::chrono::minutes(5);
    void setDeadline(std::chrono::milliseconds deadline) { m_deadline.setInterval(deadline); }
    // A converted release with fewer icons than this share of the loaded
    // catalogue's is refused as damaged.
    static constexpr double minimumShareOfIcons = 0.5;

signals:
    void stateChanged();

private:
    using Done = std::function<void(const QByteArray& body)>;
    void fetch(const QUrl& url, quint64 check, Done done);
    void download(const QString& version, quint64 check);
    void install(const QString& version, quint64 check, const QList<QByteArray>& files);
    void setState(State::Kind kind, const QString& value = {});
    void fail(quint64 check, const QString& message);
    void giveUp();

    IconLibrary& m_library;
    QThreadPool& m_workers;
    QNetworkAccessManager m_network;
    State m_state;
    quint64 m_check = 0;
    QTimer m_deadline;
    QList<QNetworkReply*> m_pending; // the current check's unanswered requests
};
