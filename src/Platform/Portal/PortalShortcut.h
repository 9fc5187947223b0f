#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QVariantMap>

// One shortcut as the GlobalShortcuts portal passes it, D-Bus type (sa{sv}):
// its id and properties ("description", "preferred_trigger" when binding,
// "trigger_description" in answers).
struct PortalShortcut {
    QString id;
    QVariantMap properties;

    // Registers the D-Bus types; once, before the first call.
    static void registerTypes();
};
using PortalShortcuts = QList<PortalShortcut>;

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

Q_DECLARE_METATYPE(PortalShortcut)
