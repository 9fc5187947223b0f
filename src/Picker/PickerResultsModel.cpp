#include "PickerResultsModel.h"

#include "PickerModel.h"

#include <algorithm>

PickerResultsModel::PickerResultsModel(QObject* parent) : QAbstractListModel(parent) {}

void PickerResultsModel::setSource(PickerModel* source)
{
    if (source == m_source)
        return;
    if (m_source)
        disconnect(m_source, nullptr, this, nullptr);
    m_source = source;
    if (source) {
        connect(source, &PickerModel::resultsChanged, this, &PickerResultsModel::follow);
        connect(source, &QObject::destroyed, this, [this] { apply({}); });
    }
    follow();
}

void PickerResultsModel::follow()
{
    apply(m_source ? m_source->resultNames() : QStringList());
}

void PickerResultsModel::apply(const QStringList& names)
{
    const qsizetype oldCount = m_names.size();
    const qsizetype newCount = names.size();
    const qsizetype shorter = std::min(oldCount, newCount);

    qsizetype prefix = 0;
    while (prefix < shorter && m_names.at(prefix) == names.at(prefix))
        ++prefix;
    qsizetype suffix = 0;
    while (suffix < shorter - prefix &&
           m_names.at(oldCount - 1 - suffix) == names.at(newCount - 1 - suffix))
        ++suffix;

    // The rows between: as many as both lists have there are rewritten in
    // place (a view only rebinds their delegates); the rest go or come.
    const qsizetype oldMiddle = oldCount - prefix - suffix;
    const qsizetype newMiddle = newCount - prefix - suffix;
    const qsizetype rewritten = std::min(oldMiddle, newMiddle);
    // Rows are ints in the model API; the catalogue is far below that.
    const auto row = [](qsizetype at) { return static_cast<int>(at); };

    if (oldMiddle > newMiddle) {
        beginRemoveRows({}, row(prefix + rewritten), row(prefix + oldMiddle - 1));
        m_names.remove(prefix + rewritten, oldMiddle - newMiddle);
        endRemoveRows();
    } else if (newMiddle > oldMiddle) {
        beginInsertRows({}, row(prefix + rewritten), row(prefix + newMiddle - 1));
        m_names.insert(prefix + rewritten, newMiddle - oldMiddle, QString());
        std::copy(names.cbegin() + prefix + rewritten, names.cbegin() + prefix + newMiddle,
                  m_names.begin() + prefix + rewritten);
        endInsertRows();
    }
    if (rewritten > 0) {
        std::copy(names.cbegin() + prefix, names.cbegin() + prefix + rewritten,
                  m_names.begin() + prefix);
        emit dataChanged(index(row(prefix)), index(row(prefix + rewritten - 1)), {iconNameRole});
    }
}

int PickerResultsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_names.size());
}

QVariant PickerResultsModel::data(const QModelIndex& index, int role) const
{
    if (role != iconNameRole || !checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    return m_names.at(index.row());
}

QHash<int, QByteArray> PickerResultsModel::roleNames() const
{
    return {{iconNameRole, QByteArrayLiteral("iconName")}};
}
