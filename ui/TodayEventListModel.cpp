#include "TodayEventListModel.h"

namespace vantrelle {

QVariant TodayEventListModel::data(const QModelIndex& index, int role) const {
    const Row* row = rowAt(m_rows, index);
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

QHash<int, QByteArray> TodayEventListModel::roleNames() const {
    return {{static_cast<int>(Role::title), "title"},       {static_cast<int>(Role::time), "time"},
            {static_cast<int>(Role::calendar), "calendar"}, {static_cast<int>(Role::allDay), "allDay"},
            {static_cast<int>(Role::declined), "declined"}, {static_cast<int>(Role::joinUrl), "joinUrl"},
            {static_cast<int>(Role::service), "service"},   {static_cast<int>(Role::isNext), "isNext"}};
}

}  // namespace vantrelle
