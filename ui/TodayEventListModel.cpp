#include "TodayEventListModel.h"

namespace vantrelle {

QVariant TodayEventListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(index);
    if (!row) return {};
    switch (static_cast<Role>(role)) {
        case Role::title:
            return row->title;
        case Role::time:
            return row->time;
        case Role::calendar:
            return row->calendar;
        case Role::allDay:
            return row->allDay;
        case Role::declined:
            return row->declined;
        case Role::joinUrl:
            return row->joinUrl;
        case Role::service:
            return row->service;
        case Role::isNext:
            return row->isNext;
    }
    return {};
}

}  // namespace vantrelle
