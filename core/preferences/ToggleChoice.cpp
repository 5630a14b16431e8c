#include "preferences/ToggleChoice.h"

#include <algorithm>

namespace vantrelle {

std::optional<std::vector<QuickToggle>> withToggleShown(const std::vector<QuickToggle>& visible,
                                                        QuickToggle toggle, bool shown) {
    std::vector<QuickToggle> result = visible;
    const auto found = std::find(result.begin(), result.end(), toggle);
    if (shown) {
        if (found == result.end()) result.push_back(toggle);
        return result;
    }
    if (found == result.end()) return result;
    if (result.size() == 1) return std::nullopt;
    result.erase(found);
    return result;
}

}  // namespace vantrelle
