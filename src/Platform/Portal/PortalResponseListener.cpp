#include "PortalResponseListener.h"

namespace {

constexpr uint failed = 2;
QString requestInterface()
{
    return QStringLiteral("org.freedesktop.portal.Request");
}

QString responseSignal()
{
    return QStringLiteral("Response");
}

} // namespace

PortalResponseListener::PortalResponseListener(QDBusConnection bus, QString path, QObject* context,
                                               PortalRequest::Answer answer)
    : m_bus(std::move(bus)), m_path(std::move(path)), m_context(context),
      m_answer(std::move(answer))
{
    m_bus.connect(QString(), m_path, requestInterface(), responseSignal(), this,
                  SLOT(respond(uint, QVariantMap)));
}

void PortalResponseListener::fail()
{
    respond(failed, {});
}

void PortalResponseListener::respond(uint response, const QVariantMap& results)
{
    if (m_done)
        return;
    m_done = true;
    m_bus.disconnect(QString(), m_path, requestInterface(), responseSignal(), this,
                     SLOT(respond(uint, QVariantMap)));
    if (m_context)
        m_answer(response, results);
    deleteLater();
}
