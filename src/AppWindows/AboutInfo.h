#pragma once

#include "Base/Rendition.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

class IconLibrary;

// What the about view shows besides fixed words: versions, links and the icon
// set's licence.
class AboutInfo : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the window manager hands it to the windows")
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QString build READ build CONSTANT)
    Q_PROPERTY(QString tagline READ tagline CONSTANT)
    Q_PROPERTY(QString livesInTray READ livesInTray CONSTANT)
    Q_PROPERTY(QString catalogueVersion READ catalogueVersion NOTIFY catalogueVersionChanged)
    Q_PROPERTY(int iconCount READ iconCount NOTIFY catalogueVersionChanged)
    Q_PROPERTY(QString licenceText READ licenceText CONSTANT)
    Q_PROPERTY(QUrl websiteURL READ websiteURL CONSTANT)
    Q_PROPERTY(QUrl supportURL READ supportURL CONSTANT)
    Q_PROPERTY(QUrl tablerURL READ tablerURL CONSTANT)

public:
    // Places are named in the rendition's words ("A tray picker ...").
    explicit AboutInfo(const IconLibrary& library, Rendition rendition = hostRendition(),
                       QObject* parent = nullptr);

    QString version() const;
    QString build() const;
    QString tagline() const;
    QString livesInTray() const;
    QString catalogueVersion() const;
    int iconCount() const;
    // The MIT License text the Tabler icons come under, built into the program.
    static QString licenceText();
    QUrl websiteURL() const;
    QUrl supportURL() const;
    QUrl tablerURL() const;

signals:
    void catalogueVersionChanged();

private:
    const IconLibrary& m_library;
    Rendition m_rendition;
};
