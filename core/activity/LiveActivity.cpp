#include "activity/LiveActivity.h"

#include <array>

namespace vantrelle {

std::string_view LiveActivity::kindKey() const {
    static constexpr std::array<std::string_view, std::variant_size_v<Payload>> kKinds{
        "meeting",    "media",  "battery",  "ai",         "download",
        "agentAlert", "update", "pomodoro", "quickTimer", "stopwatch"};
    return kKinds[payload.index()];
}

}  // namespace vantrelle
