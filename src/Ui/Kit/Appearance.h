#pragma once

#include "Base/PreferenceOptions.h"

#include <QObject>

// Whether the views draw light or dark: the appearance setting, or with
// `system` the desktop's own window colour. Every window's QML binds to
// `dark`; the window manager sets the mode at start-up and on every change.
class Appearance : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)

public:
    explicit Appearance(QObject* parent = nullptr);

    AppearanceMode mode() const { return m_mode; }
    void setMode(AppearanceMode mode);
    bool dark() const { return m_dark; }

signals:
    void darkChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void update();

    AppearanceMode m_mode = AppearanceMode::system;
    bool m_dark = false;
};
