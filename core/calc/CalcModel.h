#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "calc/CalcEntry.h"
#include "calc/CalcResult.h"
#include "support/Signal.h"

namespace vantrelle {

class RatesService;

// What the calculator panel shows: the line being typed with its answer, worked out as the user types,
// and the lines entered before it. The last numeric answer is passed to the next line as "ans".
// Main thread only.
class CalcModel {
public:
    static constexpr std::size_t maxEntries = 100;

    // In demo mode the history starts with the canned lines and nothing else changes.
    CalcModel(RatesService& rates, bool demo);
    ~CalcModel();
    CalcModel(const CalcModel&) = delete;
    CalcModel& operator=(const CalcModel&) = delete;

    [[nodiscard]] const std::string& input() const { return m_input; }
    // The answer to the current input; nothing while the input is blank or its answer waits for rates.
    [[nodiscard]] const std::optional<CalcResult>& liveResult() const { return m_live; }
    [[nodiscard]] bool isWaitingForRates() const { return m_waiting; }
    // Oldest first.
    [[nodiscard]] const std::vector<CalcEntry>& entries() const { return m_entries; }
    // The value "ans" stands for on the next line.
    [[nodiscard]] std::optional<double> previousAnswer() const;

    // Re-evaluates at once (or when the rates arrive, for a currency query).
    void setInput(std::string text);
    // Enters the current line: its answer joins the history and the input clears. A line without an
    // answer is kept for editing. If the answer waits for rates, it is entered when they arrive.
    // Returns whether the line was (or will be) entered.
    bool commit();
    void clearHistory();
    // Puts an earlier line back into the input.
    void recall(std::size_t index);

    // Emitted after any change of input, live result or entries.
    Signal<> changed;

private:
    void evaluate();
    void receive(std::uint64_t generation, CalcResult result);
    void append(CalcEntry entry);

    RatesService& m_rates;
    std::string m_input;
    std::optional<CalcResult> m_live;
    bool m_waiting = false;
    bool m_commitWhenReady = false;
    std::uint64_t m_generation = 0;
    std::vector<CalcEntry> m_entries;
    Connection m_ratesChanged;
    std::shared_ptr<int> m_alive = std::make_shared<int>(0);
};

}  // namespace vantrelle
