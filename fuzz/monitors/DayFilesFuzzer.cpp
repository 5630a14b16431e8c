// Files the user may have touched: screen time day files and .desktop entries. A decoded day holds only
// finite, non-negative seconds and survives a round trip.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "monitors/DesktopEntries.h"
#include "monitors/ScreenTimeDayFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto day = vantrelle::decodeScreenTimeDay(text)) {
        for (const auto& [id, entry] : *day) {
            if (!std::isfinite(entry.seconds) || entry.seconds < 0) std::abort();
        }
        const auto again = vantrelle::decodeScreenTimeDay(vantrelle::encodeScreenTimeDay(*day));
        if (!again || again->size() != day->size()) std::abort();
    }
    (void)vantrelle::parseDesktopEntry("fuzz", text);
    return 0;
}
