#include "DevServerListModel.h"

namespace vantrelle {

QVariant DevServerListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
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

}  // namespace vantrelle
