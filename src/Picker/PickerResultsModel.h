#pragma once

#include <QAbstractListModel>
#include <QPointer>
#include <QStringList>

class PickerModel;

// The picker's results as a list model for the grid. When the results
// change it keeps the rows both lists share at the start and the end and
// rewrites, removes or inserts only the rows between, so a view keeps its
// delegates (and their painted glyphs) instead of rebuilding them all at
// every keystroke.
class PickerResultsModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { iconNameRole = Qt::UserRole + 1 };

    explicit PickerResultsModel(QObject* parent = nullptr);

    // Follows `source` from now on; null empties the list.
    void setSource(PickerModel* source);
    PickerModel* source() const { return m_source; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    const QStringList& names() const { return m_names; }

private:
    void follow();
    // Turns the current list into `names` with as few row changes as it can.
    void apply(const QStringList& names);

    QPointer<PickerModel> m_source;
    QStringList m_names;
};
