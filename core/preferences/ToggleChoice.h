#pragma once

#include <optional>
#include <vector>

#include "catalog/QuickToggle.h"

namespace vantrelle {

// The visible quick toggles with `toggle` shown or hidden. A newly shown toggle joins at the end, so
// the user's order stays; showing a shown one or hiding a hidden one changes nothing. Hiding the last
// visible toggle is refused (nothing returned): the Dashboard's toggle tile is never empty.
[[nodiscard]] std::optional<std::vector<QuickToggle>> withToggleShown(const std::vector<QuickToggle>& visible,
                                                                      QuickToggle toggle, bool shown);

}  // namespace vantrelle
