#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>

// The front of "Check for Updates…". Until Pictray has a release feed to ask,
// it says which version is running and where releases are published.
class UpdateChecker : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;
    ~UpdateChecker() override;

    void checkForUpdates();

private:
    QPointer<QMessageBox> m_dialog;
};
