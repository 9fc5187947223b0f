#include "PortalPaster.h"

#include "PortalRequest.h"
#include "State/SettingsStore.h"

#include <QDBusObjectPath>
#include <QDBusPendingCall>

namespace {

constexpr uint granted = 0;
constexpr uint cancelled = 1;
constexpr uint keyboardDevice = 1;
// The user's consent lasts until they withdraw it in the desktop's settings.
constexpr uint persistUntilRevoked = 2;
constexpr int controlLeftKeysym = 0xffe3;
constexpr int vKeysym = 0x0076;
constexpr uint keyReleased = 0;
constexpr uint keyPressed = 1;

QString remoteDesktop()
{
    return QStringLiteral("org.freedesktop.portal.RemoteDesktop");
}

QString sessionInterface()
{
    return QStringLiteral("org.freedesktop.portal.Session");
}

} // namespace

PortalPaster::PortalPaster(QDBusConnection bus, SettingsStore& store, QObject* parent)
    : QObject(parent), m_bus(std::move(bus)), m_store(store)
{
    // A kept token means the user agreed before.
    if (!m_store.stringValue(restoreTokenKey()).value_or(QString()).isEmpty())
        m_consent = Consent::granted;
    m_idle.setSingleShot(true);
    m_idle.setInterval(idleCloseMs);
    connect(&m_idle, &QTimer::timeout, this, &PortalPaster::closeSession);
    checkAvailability();
}

PortalPaster::~PortalPaster()
{
    closeSession();
}

QString PortalPaster::restoreTokenKey()
{
    return QStringLiteral("remoteDesktopRestoreToken");
}

bool PortalPaster::isTrusted() const
{
    return m_consent == Consent::notAsked || m_consent == Consent::granted;
}

QString PortalPaster::note() const
{
    switch (m_consent) {
    case Consent::notAsked:
        return QStringLiteral("The first paste asks your permission for Pictray to type into "
                              "other windows.");
    case Consent::granted:
        return QString();
    case Consent::declined:
        return QStringLiteral("You did not let Pictray type into other windows, so \u201CClose "
                              "and paste\u201D only copies. Pictray asks again when it restarts.");
    case Consent::unavailable:
        break;
    }
    return Paster::note();
}

void PortalPaster::installNoteHandler(const std::function<void()>& changed)
{
    m_noteChanged = changed;
}

void PortalPaster::setConsent(Consent consent)
{
    if (consent == m_consent)
        return;
    m_consent = consent;
    if (m_noteChanged)
        m_noteChanged();
}

void PortalPaster::checkAvailability()
{
    PortalRequest::readProperty(m_bus, remoteDesktop(), QStringLiteral("AvailableDeviceTypes"),
                                this, [this](const QVariant& types) {
                                    if ((types.toUInt() & keyboardDevice) == 0)
                                        setConsent(Consent::unavailable);
                                });
}

void PortalPaster::paste()
{
    if (!isTrusted())
        return;
    m_pastePending = true;
    if (m_state == SessionState::started)
        sendPasteKeys();
    else if (m_state == SessionState::none)
        createSession();
}

void PortalPaster::createSession()
{
    m_state = SessionState::starting;
    const QVariantMap options{{QStringLiteral("session_handle_token"), PortalRequest::newToken()}};
    PortalRequest::call(m_bus, remoteDesktop(), QStringLiteral("CreateSession"), {options}, this,
                        [this](uint response, const QVariantMap& results) {
                            m_session = PortalRequest::sessionHandle(results);
                            if (response != granted || m_session.isEmpty()) {
                                dropSession();
                                return;
                            }
                            m_bus.connect(QString::fromUtf16(PortalRequest::service), m_session,
                                          sessionInterface(), QStringLiteral("Closed"), this,
                                          SLOT(sessionClosed(QVariantMap)));
                            selectDevices();
                        });
}

void PortalPaster::selectDevices()
{
    QVariantMap options{{QStringLiteral("types"), keyboardDevice},
                        {QStringLiteral("persist_mode"), persistUntilRevoked}};
    const QString token = m_store.stringValue(restoreTokenKey()).value_or(QString());
    if (!token.isEmpty())
        options.insert(QStringLiteral("restore_token"), token);
    PortalRequest::call(m_bus, remoteDesktop(), QStringLiteral("SelectDevices"),
                        {QVariant::fromValue(QDBusObjectPath(m_session)), options}, this,
                        [this](uint response, const QVariantMap& /*results*/) {
                            if (response == granted)
                                startSession();
                            else
                                closeSession();
                        });
}

void PortalPaster::startSession()
{
    // This is where the desktop asks the user, unless the token restores an
    // earlier consent.
    PortalRequest::call(
        m_bus, remoteDesktop(), QStringLiteral("Start"),
        {QVariant::fromValue(QDBusObjectPath(m_session)), QString(), QVariantMap()}, this,
        [this](uint response, const QVariantMap& results) {
            const bool keyboard =
                (results.value(QStringLiteral("devices")).toUInt() & keyboardDevice) != 0;
            if (response != granted || !keyboard) {
                if (response == cancelled || (response == granted && !keyboard)) {
                    // A token for a refused consent restores nothing.
                    m_store.remove(restoreTokenKey());
                    setConsent(Consent::declined);
                }
                closeSession();
                return;
            }
            // Each token restores once; the next start needs this new one.
            const QString token = results.value(QStringLiteral("restore_token")).toString();
            if (!token.isEmpty())
                m_store.setString(restoreTokenKey(), token);
            m_state = SessionState::started;
            setConsent(Consent::granted);
            if (m_pastePending)
                sendPasteKeys();
        });
}

void PortalPaster::sendPasteKeys()
{
    m_pastePending = false;
    const QVariant session = QVariant::fromValue(QDBusObjectPath(m_session));
    // One connection delivers its messages in order, so the four arrive as
    // one press of Ctrl+V.
    for (const auto& [keysym, state] : {std::pair{controlLeftKeysym, keyPressed},
                                        {vKeysym, keyPressed},
                                        {vKeysym, keyReleased},
                                        {controlLeftKeysym, keyReleased}}) {
        m_bus.asyncCall(PortalRequest::directCall(remoteDesktop(),
                                                  QStringLiteral("NotifyKeyboardKeysym"),
                                                  {session, QVariantMap(), keysym, state}));
    }
    m_idle.start();
}

void PortalPaster::closeSession()
{
    if (!m_session.isEmpty()) {
        m_bus.call(QDBusMessage::createMethodCall(QString::fromUtf16(PortalRequest::service),
                                                  m_session, sessionInterface(),
                                                  QStringLiteral("Close")),
                   QDBus::NoBlock);
    }
    dropSession();
}

void PortalPaster::dropSession()
{
    if (!m_session.isEmpty())
        m_bus.disconnect(QString::fromUtf16(PortalRequest::service), m_session, sessionInterface(),
                         QStringLiteral("Closed"), this, SLOT(sessionClosed(QVariantMap)));
    m_session.clear();
    m_state = SessionState::none;
    m_pastePending = false;
    m_idle.stop();
}

void PortalPaster::sessionClosed(const QVariantMap& /*details*/)
{
    // The desktop ended it (the user stopped sharing): the next paste starts anew.
    dropSession();
}
