#pragma once

#include <string_view>
#include <vector>

#include "calc/CalcToken.h"

namespace vantrelle {

// Splits an expression into tokens. Throws CalcError::unexpected for a character it can't place.
class CalcTokenizer {
public:
    [[nodiscard]] static std::vector<CalcToken> tokenize(std::string_view text);
};

}  // namespace vantrelle
