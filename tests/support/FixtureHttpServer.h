#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QTcpServer>
#include <QUrl>

// A tiny HTTP/1.1 server on 127.0.0.1 answering GET requests from a table of
// canned responses; anything else is a 404.
class FixtureHttpServer : public QObject {
    Q_OBJECT

public:
    // Status 0 never answers.
    struct Response {
        int status = 200;
        QByteArray body;
    };

    explicit FixtureHttpServer(QObject* parent = nullptr);

    QUrl url(const QString& path = {}) const;
    void serve(const QString& path, Response response);
    void serve(const QString& path, const QByteArray& body) { serve(path, Response{200, body}); }
    // Answers `path` with a 302 to `location`.
    void redirect(const QString& path, const QByteArray& location);
    // Every path requested so far, in order.
    const QStringList& requests() const { return m_requests; }

private:
    void answer(QTcpSocket* socket);

    QTcpServer m_server;
    QHash<QString, Response> m_responses;
    QHash<QString, QByteArray> m_redirects;
    QStringList m_requests;
};
