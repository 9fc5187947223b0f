#pragma once

#include "PortalRequest.h"

#include <QPointer>

// Waits for one Response signal of a portal Request object, hands it over
// and goes.
class PortalResponseListener : public QObject {
    Q_OBJECT

public:
    PortalResponseListener(QDBusConnection bus, QString path, QObject* context,
                           PortalRequest::Answer answer);

    // The call itself failed: answers "failed" with no results.
    void fail();

public slots:
    void respond(uint response, const QVariantMap& results);

private:
    QDBusConnection m_bus;
    QString m_path;
    QPointer<QObject> m_context;
    PortalRequest::Answer m_answer;
    bool m_done = false;
};
