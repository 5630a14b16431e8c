#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>
#include <algorithm>
#include <vector>

namespace vantrelle {

// A list for the QML views, rebuilt from its model whenever that changes. Replacing the rows announces
// only what changed, came or went, so the views keep their delegates and running animations.
class RowListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final {
        return parent.isValid() ? 0 : count();
    }
    [[nodiscard]] virtual int count() const = 0;

Q_SIGNALS:
    void countChanged();

protected:
    template <typename Row>
    void replaceRows(std::vector<Row>& rows, std::vector<Row> next);
    // The row an index names, or null for an index of another model or past the end.
    template <typename Row>
    [[nodiscard]] const Row* rowAt(const std::vector<Row>& rows, const QModelIndex& index) const {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
            return nullptr;
        return &rows[static_cast<std::size_t>(index.row())];
    }
};

template <typename Row>
void RowListModel::replaceRows(std::vector<Row>& rows, std::vector<Row> next) {
    const int before = static_cast<int>(rows.size());
    const int after = static_cast<int>(next.size());
    if (after < before) {
        beginRemoveRows({}, after, before - 1);
        rows.resize(next.size());
        endRemoveRows();
    }
    int first = -1;
    int last = -1;
    for (int i = 0; i < std::min(before, after); ++i) {
        auto& row = rows[static_cast<std::size_t>(i)];
        auto& fresh = next[static_cast<std::size_t>(i)];
        if (row == fresh) continue;
        row = std::move(fresh);
        if (first < 0) first = i;
        last = i;
    }
    if (first >= 0) Q_EMIT dataChanged(index(first), index(last));
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        rows.insert(rows.end(), std::make_move_iterator(next.begin() + before),
                    std::make_move_iterator(next.end()));
        endInsertRows();
    }
    if (after != before) Q_EMIT countChanged();
}

}  // namespace vantrelle
