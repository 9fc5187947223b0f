#pragma once

#include <QQuickItem>
#include <QString>

// The item of that object name in the visual tree under `item` (delegates
// included, which QObject::findChild does not reach); null when none.
inline QQuickItem* findItem(QQuickItem* item, const QString& name)
{
    if (item->objectName() == name)
        return item;
    for (QQuickItem* child : item->childItems()) {
        if (QQuickItem* found = findItem(child, name))
            return found;
    }
    return nullptr;
}
