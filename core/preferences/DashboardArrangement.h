#pragma once

#include <cstddef>
#include <vector>

#include "catalog/DashTile.h"

namespace vantrelle {

// The Dashboard's tiles with the one at `from` moved to `to` and the others closing up; an index out of
// range leaves the order as it was.
[[nodiscard]] std::vector<DashTile> movedDashTile(std::vector<DashTile> tiles, std::size_t from,
                                                  std::size_t to);

// The tiles with `tile` in `slot`. A tile already on the Dashboard trades places with the one in the
// slot, so the eight stay distinct; an out-of-range slot leaves them as they were.
[[nodiscard]] std::vector<DashTile> placedDashTile(std::vector<DashTile> tiles, std::size_t slot,
                                                   DashTile tile);

}  // namespace vantrelle
