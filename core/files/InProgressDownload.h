#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Date.h"

namespace vantrelle {

// A download that a browser is still writing, known by its temporary marker name.
struct InProgressDownload {
    std::string id;  // the marker's path
    std::string name;
    std::optional<double> progress;  // 0..1; nothing when the total isn't known
    std::int64_t bytes = 0;
    Date startedAt;

    bool operator==(const InProgressDownload&) const = default;
};

}  // namespace vantrelle
