#include "HotKeyCenter.h"

#include "HotKeyBackend.h"

HotKeyCenter::HotKeyCenter(std::unique_ptr<HotKeyBackend> backend, QObject* parent)
    : QObject(parent), m_backend(std::move(backend))
{
}

HotKeyCenter::~HotKeyCenter()
{
    for (const quint32 number : m_live)
        m_backend->unregisterHotKey(number);
}

bool HotKeyCenter::registerHotKey(ID id, std::optional<KeyCombo> combo,
                                  std::function<void()> action)
{
    installHandler();
    const auto number = quint32(id);
    unregister(id);
    m_actions[number] = std::move(action);
    if (!combo) {
        m_combos.erase(number);
        emit registrationsChanged();
        return true;
    }
    m_combos[number] = *combo;
    const bool accepted = m_isSuspended || makeLive(number, *combo);
    emit registrationsChanged();
    return accepted;
}

void HotKeyCenter::unregister(ID id)
{
    if (m_live.erase(quint32(id)))
        m_backend->unregisterHotKey(quint32(id));
}

void HotKeyCenter::suspend()
{
    if (m_isSuspended)
        return;
    m_isSuspended = true;
    for (const quint32 number : m_live)
        m_backend->unregisterHotKey(number);
    m_live.clear();
    emit registrationsChanged();
}

void HotKeyCenter::resume()
{
    if (!m_isSuspended)
        return;
    m_isSuspended = false;
    for (const auto& [number, combo] : m_combos)
        makeLive(number, combo);
    emit registrationsChanged();
}

bool HotKeyCenter::isRefused(ID id) const
{
    const auto number = quint32(id);
    return !m_isSuspended && m_combos.count(number) != 0 && m_live.count(number) == 0;
}

QString HotKeyCenter::desktopNote(ID id) const
{
    return m_backend->desktopNote(quint32(id));
}

bool HotKeyCenter::desktopOwnsKeys() const
{
    return m_backend->desktopOwnsKeys();
}

bool HotKeyCenter::canConfigureOnDesktop() const
{
    return m_backend->canConfigureOnDesktop();
}

void HotKeyCenter::configureOnDesktop()
{
    m_backend->configureOnDesktop();
}

void HotKeyCenter::installHandler()
{
    if (m_handlerInstalled)
        return;
    m_handlerInstalled = true;
    m_backend->installHandler([this](quint32 number) { handlePress(number); });
    m_backend->installNotesHandler([this] { emit registrationsChanged(); });
}

void HotKeyCenter::handlePress(quint32 number)
{
    // Actions never run inside the windowing system's event handling, and the
    // action is looked up when it runs, so a re-registration in between wins.
    QMetaObject::invokeMethod(
        this,
        [this, number] {
            const auto found = m_actions.find(number);
            if (found == m_actions.end() || !found->second)
                return;
            // A copy: the action may re-register itself and replace the original.
            const auto action = found->second;
            action();
        },
        Qt::QueuedConnection);
}

bool HotKeyCenter::makeLive(quint32 number, const KeyCombo& combo)
{
    if (!m_backend->registerHotKey(number, combo))
        return false;
    m_live.insert(number);
    return true;
}
