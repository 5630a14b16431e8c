#pragma once

#include <QString>

#include "RowListModel.h"

namespace vantrelle {

struct UsageSessionRow {
    QString sessionState;
    QString tool;
    QString project;
    QString title;
    QString branch;
    QString modelFamily;
    QString tokens;
    QString cost;
    QString active;
    QString lastPrompt;
    bool operator==(const UsageSessionRow&) const = default;
};

// The agent sessions as the usage panel lists them.
class UsageSessionListModel : public VANTRELLE_ROW_LIST(UsageSessionRow) {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Read from AIUsage.sessions")

public:
    enum class Role {
        sessionState = Qt::UserRole + 1,
        tool,
        project,
        title,
        branch,
        modelFamily,
        tokens,
        cost,
        active,
        lastPrompt,
    };
    Q_ENUM(Role)

    using RowList::RowList;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
};

}  // namespace vantrelle
