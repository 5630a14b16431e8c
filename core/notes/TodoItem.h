#pragma once

#include <optional>
#include <string>

#include "platform/Date.h"

namespace vantrelle {

// One entry of the to-do list.
struct TodoItem {
    std::string id;  // an upper-case UUID
    std::string title;
    bool isDone = false;
    Date createdAt;
    std::optional<Date> completedAt;  // set while done
    bool operator==(const TodoItem&) const = default;
};

}  // namespace vantrelle
