#include "UsageSessionListModel.h"

namespace vantrelle {

QVariant UsageSessionListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> UsageSessionListModel::roleNames() const {
    return {{static_cast<int>(Role::sessionState), "sessionState"},
            {static_cast<int>(Role::tool), "tool"},
            {static_cast<int>(Role::project), "project"},
            {static_cast<int>(Role::title), "title"},
            {static_cast<int>(Role::branch), "branch"},
            {static_cast<int>(Role::modelFamily), "modelFamily"},
            {static_cast<int>(Role::tokens), "tokens"},
            {static_cast<int>(Role::cost), "cost"},
            {static_cast<int>(Role::active), "active"},
            {static_cast<int>(Role::lastPrompt), "lastPrompt"}};
}

}  // namespace vantrelle
