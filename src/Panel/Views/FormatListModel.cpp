#include "FormatListModel.h"

void FormatListModel::setEntries(const QList<OfferedFormat>& entries)
{
    const auto same = [](const OfferedFormat& a, const OfferedFormat& b) {
        return a.format == b.format && a.label == b.label && a.keys == b.keys;
    };
    if (std::equal(entries.begin(), entries.end(), m_entries.begin(), m_entries.end(), same))
        return;
    const bool counted = entries.size() != m_entries.size();
    beginResetModel();
    m_entries = entries;
    endResetModel();
    if (counted)
        emit countChanged();
}

int FormatListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
}

QVariant FormatListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    const OfferedFormat& entry = m_entries.at(index.row());
    switch (role) {
    case label:
        return entry.label;
    case glyph:
        return entry.glyph;
    case keys:
        return entry.keys.toString(QKeySequence::NativeText);
    default:
        return {};
    }
}

QHash<int, QByteArray> FormatListModel::roleNames() const
{
    return {{label, "label"}, {glyph, "glyph"}, {keys, "keys"}};
}
