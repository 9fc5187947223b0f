#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class LoginItem;

// The "Launch at login" switch: it shows whether the desktop will really
// start Pictray, so a refused change springs back.
class LoginSetting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the window manager hands it to the windows")
    Q_PROPERTY(bool enabled READ isEnabled WRITE setEnabled NOTIFY enabledChanged)
    Q_PROPERTY(bool available READ isAvailable CONSTANT)

public:
    // `executable` is what the desktop runs at login.
    LoginSetting(LoginItem& item, QString executable, QObject* parent = nullptr);

    bool isEnabled() const;
    bool isAvailable() const;
    // Emits the change in every case, so a switch moved by hand shows the
    // real state again after a refusal.
    void setEnabled(bool enabled);

signals:
    void enabledChanged();

private:
    LoginItem& m_item;
    QString m_executable;
};
