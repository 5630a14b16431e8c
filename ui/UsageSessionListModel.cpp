#include "UsageSessionListModel.h"

namespace vantrelle {

QVariant UsageSessionListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::sessionState:
            return row->sessionState;
        case Role::tool:
            return row->tool;
        case Role::project:
            return row->project;
        case Role::title:
            return row->title;
        case Role::branch:
            return row->branch;
        case Role::modelFamily:
            return row->modelFamily;
        case Role::tokens:
            return row->tokens;
        case Role::cost:
            return row->cost;
        case Role::active:
            return row->active;
        case Role::lastPrompt:
            return row->lastPrompt;
    }
    return {};
}

}  // namespace vantrelle
