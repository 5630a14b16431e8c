// Any line of text through the calculator: it must answer, never crash, hang or run out of stack.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "calc/CalcEngine.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrelle;
    static const RatesTable rates = *RatesTable::parse(
        R"({"date":"2025-01-03","rates":{"EUR":0.9,"GBP":0.8,"JPY":150,"CHF":0}})", Date{});
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    for (const auto previous : {std::optional<double>{}, std::optional<double>{42.0}}) {
        const CalcResult result = CalcEngine::evaluate(text, previous, &rates);
        // Every answer says something, and only errors come without a value.
        if (result.display.empty()) std::abort();
        if (result.isError() == result.value.has_value()) std::abort();
    }
    (void)CalcEngine::evaluate(text, std::nullopt, nullptr);
    return 0;
}
