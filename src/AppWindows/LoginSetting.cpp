#include "LoginSetting.h"

#include "Platform/LoginItem.h"

LoginSetting::LoginSetting(LoginItem& item, QString executable, QObject* parent)
    : QObject(parent), m_item(item), m_executable(std::move(executable))
{
}

bool LoginSetting::isEnabled() const
{
    return m_item.isEnabled();
}

bool LoginSetting::isAvailable() const
{
    return m_item.isAvailable();
}

void LoginSetting::setEnabled(bool enabled)
{
    // The item logs a refusal itself.
    m_item.setEnabled(enabled, m_executable);
    emit enabledChanged();
}
