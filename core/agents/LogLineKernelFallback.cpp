// The line readers built for the fallback instruction set of simdjson.
#include <simdjson.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "agents/Fatal.h"
#include "agents/Graphemes.h"
#include "agents/IsoDate.h"
#include "agents/LogLineKernel.h"
#include "agents/PromptText.h"

static_assert(simdjson::SIMDJSON_PADDING <= vantrelle::kLogLinePadding);

namespace vantrelle {
namespace kernel_fallback {
namespace od = simdjson::fallback::ondemand;
#include "agents/LogLineKernel.inc"
}  // namespace kernel_fallback

std::unique_ptr<LogLineKernel> makeFallbackLogLineKernel(const Clock& clock) {
    return std::make_unique<kernel_fallback::Kernel>(clock);
}

}  // namespace vantrelle
