#include "DevServerListModel.h"

namespace vantrelle {

QVariant DevServerListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::port:
            return row->port;
        case Role::project:
            return row->project;
        case Role::kind:
            return row->kind;
        case Role::process:
            return row->process;
        case Role::pid:
            return row->pid;
        case Role::url:
            return row->url;
        case Role::isDocker:
            return row->isDocker;
        case Role::stopping:
            return row->stopping;
    }
    return {};
}

QHash<int, QByteArray> DevServerListModel::roleNames() const {
    return {{static_cast<int>(Role::port), "port"},         {static_cast<int>(Role::project), "project"},
            {static_cast<int>(Role::kind), "kind"},         {static_cast<int>(Role::process), "process"},
            {static_cast<int>(Role::pid), "pid"},           {static_cast<int>(Role::url), "url"},
            {static_cast<int>(Role::isDocker), "isDocker"}, {static_cast<int>(Role::stopping), "stopping"}};
}

}  // namespace vantrelle
