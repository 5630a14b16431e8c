#include "RowListModel.h"

#include <QMetaEnum>

namespace vantrelle {

QHash<int, QByteArray> RowListModel::roleNames() const {
    const QMetaObject* meta = metaObject();
    const QMetaEnum roles = meta->enumerator(meta->indexOfEnumerator("Role"));
    QHash<int, QByteArray> names;
    for (int i = 0; i < roles.keyCount(); ++i) names.insert(roles.value(i), roles.key(i));
    return names;
}

}  // namespace vantrelle
