#include "calc/CalcModel.h"

#include <algorithm>

#include "calc/CalcDemo.h"
#include "calc/CalcEngine.h"
#include "calc/CalcText.h"
#include "calc/RatesService.h"

namespace vantrelle {

CalcModel::CalcModel(RatesService& rates, bool demo) : m_rates(rates) {
    if (demo) m_entries = CalcDemo::calcHistory();
    // New rates may answer a line that had none.
    m_ratesChanged = m_rates.changed.connect([this] {
        if (!m_waiting && m_live) evaluate();
    });
}

CalcModel::~CalcModel() = default;

std::optional<double> CalcModel::previousAnswer() const {
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(),
                                    [](const CalcEntry& entry) { return entry.value.has_value(); });
    return found == m_entries.rend() ? std::nullopt : found->value;
}

void CalcModel::setInput(std::string text) {
    if (text == m_input) return;
    m_input = std::move(text);
    m_commitWhenReady = false;
    evaluate();
}

void CalcModel::evaluate() {
    const std::uint64_t generation = ++m_generation;
    if (CalcText::trimmed(m_input).empty()) {
        m_live.reset();
        m_waiting = false;
        changed.emit();
        return;
    }
    m_waiting = true;
    CalcEngine::evaluate(m_input, previousAnswer(), m_rates,
                         [this, generation, alive = std::weak_ptr<int>(m_alive)](CalcResult result) {
                             if (!alive.expired()) receive(generation, std::move(result));
                         });
    if (m_waiting && generation == m_generation) {
        // Waiting for the rates: the previous answer no longer belongs to this line.
        m_live.reset();
        changed.emit();
    }
}

void CalcModel::receive(std::uint64_t generation, CalcResult result) {
    if (generation != m_generation) return;  // the input changed since
    m_waiting = false;
    m_live = std::move(result);
    if (m_commitWhenReady) {
        m_commitWhenReady = false;
        commit();
        return;
    }
    changed.emit();
}

bool CalcModel::commit() {
    if (m_waiting) {
        m_commitWhenReady = true;
        return true;
    }
    if (!m_live || m_live->isError()) return false;
    append(CalcEntry{CalcText::collapsedSpaces(CalcText::trimmed(m_input)), m_live->display, m_live->detail,
                     m_live->value});
    m_input.clear();
    m_live.reset();
    ++m_generation;
    changed.emit();
    return true;
}

void CalcModel::append(CalcEntry entry) {
    m_entries.push_back(std::move(entry));
    if (m_entries.size() > maxEntries) m_entries.erase(m_entries.begin());
}

void CalcModel::clearHistory() {
    if (m_entries.empty()) return;
    m_entries.clear();
    evaluate();  // "ans" may have meant something a moment ago
}

void CalcModel::recall(std::size_t index) {
    if (index >= m_entries.size()) return;
    setInput(m_entries[index].expression);
}

}  // namespace vantrelle
