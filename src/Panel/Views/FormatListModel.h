#pragma once

#include "Panel/OfferedFormats.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

// One group of the inspector's "Copy as" list, with the roles `label`,
// `glyph` (a catalogue icon name) and `keys` (the key hint as the desktop
// writes it).
class FormatListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("PickerBindings makes the format lists")
    Q_PROPERTY(int count READ rowCount NOTIFY countChanged)

public:
    enum Role { label = Qt::UserRole + 1, glyph, keys };

    using QAbstractListModel::QAbstractListModel;

    void setEntries(const QList<OfferedFormat>& entries);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void countChanged();

private:
    QList<OfferedFormat> m_entries;
};
