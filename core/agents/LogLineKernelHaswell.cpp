// The line readers built for the haswell instruction set of simdjson.
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
namespace kernel_haswell {
namespace od = simdjson::haswell::ondemand;
#include "agents/LogLineKernel.inc"
}  // namespace kernel_haswell

std::unique_ptr<LogLineKernel> makeHaswellLogLineKernel(const Clock& clock) {
    return std::make_unique<kernel_haswell::Kernel>(clock);
}

}  // namespace vantrelle
