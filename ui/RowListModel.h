#pragma once

#include <QtQml/qqmlregistration.h>

#include <QAbstractListModel>
#include <algorithm>
#include <vector>

namespace vantrelle {

// A list for the QML views: its count and its role names. The rows live in RowList<Row> below; this
// part carries the meta-object, which a template can't.
class RowListModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS
    // Final, so the QML compiler may read it directly instead of guarding against a shadowing subclass.
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const final {
        return parent.isValid() ? 0 : count();
    }
    [[nodiscard]] virtual int count() const = 0;
    // A list's roles are the keys of its `Role` enum, so the names QML reads are written once.
    [[nodiscard]] QHash<int, QByteArray> roleNames() const final;

Q_SIGNALS:
    void countChanged();
};

// The rows of a list, rebuilt from its model whenever that changes. Replacing them announces only what
// changed, came or went, so the views keep their delegates and running animations. A list adds its
// Role enum and data(), which reads a row's field for each role.
template <typename RowType>
class RowList : public RowListModel {
public:
    using Row = RowType;
    using RowListModel::RowListModel;

    void setRows(std::vector<Row> next);
    [[nodiscard]] const std::vector<Row>& rows() const { return m_rows; }
    [[nodiscard]] int count() const final { return static_cast<int>(m_rows.size()); }

protected:
    // The row an index names, or null for an index of another model or past the end.
    [[nodiscard]] const Row* rowAt(const QModelIndex& index) const {
        if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
            return nullptr;
        return &m_rows[static_cast<std::size_t>(index.row())];
    }

private:
    std::vector<Row> m_rows;
};

template <typename RowType>
void RowList<RowType>::setRows(std::vector<Row> next) {
    const int before = static_cast<int>(m_rows.size());
    const int after = static_cast<int>(next.size());
    if (after < before) {
        beginRemoveRows({}, after, before - 1);
        m_rows.resize(next.size());
        endRemoveRows();
    }
    int first = -1;
    int last = -1;
    for (int i = 0; i < std::min(before, after); ++i) {
        auto& row = m_rows[static_cast<std::size_t>(i)];
        auto& fresh = next[static_cast<std::size_t>(i)];
        if (row == fresh) continue;
        row = std::move(fresh);
        if (first < 0) first = i;
        last = i;
    }
    if (first >= 0) Q_EMIT dataChanged(index(first), index(last));
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        m_rows.insert(m_rows.end(), std::make_move_iterator(next.begin() + before),
                      std::make_move_iterator(next.end()));
        endInsertRows();
    }
    if (after != before) Q_EMIT countChanged();
}

}  // namespace vantrelle

// A list's base as written in its class head. moc takes a base by its written name and can't see
// through a template, so the QML type registrar would find no prototype for the list, and QML no
// `count`. A RowList's meta-object is RowListModel's, so that is the base moc is shown.
#ifdef Q_MOC_RUN
#define VANTRELLE_ROW_LIST(Row) vantrelle::RowListModel
#else
#define VANTRELLE_ROW_LIST(Row) vantrelle::RowList<Row>
#endif
