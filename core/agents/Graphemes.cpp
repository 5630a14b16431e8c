#include "agents/Graphemes.h"

#include <algorithm>
#include <cstdint>

namespace vantrelle {

namespace {

enum class GraphemeClass : std::uint8_t {
    Other,
    CR,
    LF,
    Control,
    Extend,
    ZWJ,
    RegionalIndicator,
    Prepend,
    SpacingMark,
    L,
    V,
    T,
    LV,
    LVT,
    Pictographic,
};

struct ClassRange {
    char32_t first;
    char32_t last;
    GraphemeClass klass;
};

constexpr ClassRange kRanges[] = {
#include "agents/GraphemeBreakTable.inc"
};

GraphemeClass classOf(char32_t cp) {
    // PERF NOTE: ASCII is by far the most common input and needs no table search.
    if (cp < 0x80) {
        if (cp == 0x0D) return GraphemeClass::CR;
        if (cp == 0x0A) return GraphemeClass::LF;
        if (cp < 0x20 || cp == 0x7F) return GraphemeClass::Control;
        return GraphemeClass::Other;
    }
    const auto* end = std::end(kRanges);
    const auto* it =
        std::upper_bound(std::begin(kRanges), end, cp,
                         [](char32_t value, const ClassRange& range) { return value < range.first; });
    if (it == std::begin(kRanges)) return GraphemeClass::Other;
    --it;
    return cp <= it->last ? it->klass : GraphemeClass::Other;
}

// Decodes one code point at `at`; invalid or truncated sequences give U+FFFD for one byte.
char32_t decode(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80) {
        ++at;
        return lead;
    }
    std::size_t length = 0;
    char32_t cp = 0;
    char32_t minimum = 0;
    if ((lead & 0xE0) == 0xC0) {
        length = 2, cp = lead & 0x1F, minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3, cp = lead & 0x0F, minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        length = 4, cp = lead & 0x07, minimum = 0x10000;
    } else {
        ++at;
        return 0xFFFD;
    }
    if (at + length > text.size()) {
        ++at;
        return 0xFFFD;
    }
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char next = byte(at + i);
        if ((next & 0xC0) != 0x80) {
            ++at;
            return 0xFFFD;
        }
        cp = (cp << 6) | (next & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        ++at;
        return 0xFFFD;
    }
    at += length;
    return cp;
}

// Walks cluster boundaries by the extended grapheme cluster rules.
class ClusterWalker {
public:
    explicit ClusterWalker(std::string_view text) : m_text(text) {
        if (!m_text.empty()) m_next = classOf(decode(m_text, m_at));
    }

    // Moves past one cluster; false at the end.
    bool advance() {
        if (m_done) return false;
        if (m_text.empty()) {
            m_done = true;
            return false;
        }
        GraphemeClass previous = m_next;
        m_pictographicRun = previous == GraphemeClass::Pictographic;
        m_regionalCount = previous == GraphemeClass::RegionalIndicator ? 1 : 0;
        while (true) {
            m_end = m_at;
            if (m_at >= m_text.size()) {
                m_done = true;
                return true;
            }
            std::size_t after = m_at;
            const GraphemeClass current = classOf(decode(m_text, after));
            const bool joined = joins(previous, current);
            if (!joined) {
                m_next = current;
                m_at = after;
                return true;
            }
            trackSequences(previous, current);
            previous = current;
            m_at = after;
        }
    }

    [[nodiscard]] std::size_t end() const { return m_end; }

private:
    bool joins(GraphemeClass before, GraphemeClass after) const {
        using C = GraphemeClass;
        if (before == C::CR && after == C::LF) return true;
        if (before == C::Control || before == C::CR || before == C::LF) return false;
        if (after == C::Control || after == C::CR || after == C::LF) return false;
        if (before == C::L && (after == C::L || after == C::V || after == C::LV || after == C::LVT))
            return true;
        if ((before == C::LV || before == C::V) && (after == C::V || after == C::T)) return true;
        if ((before == C::LVT || before == C::T) && after == C::T) return true;
        if (after == C::Extend || after == C::ZWJ || after == C::SpacingMark) return true;
        if (before == C::Prepend) return true;
        if (before == C::ZWJ && after == C::Pictographic && m_pictographicRun) return true;
        if (before == C::RegionalIndicator && after == C::RegionalIndicator) return m_regionalCount % 2 == 1;
        return false;
    }

    // Keeps the state the emoji and flag rules look back on.
    void trackSequences(GraphemeClass before, GraphemeClass after) {
        using C = GraphemeClass;
        if (after == C::RegionalIndicator) {
            ++m_regionalCount;
        } else {
            m_regionalCount = 0;
        }
        // A pictographic run is pictographic Extend* ZWJ; it stays open across Extend and one ZWJ.
        if (after == C::Pictographic) {
            m_pictographicRun = true;
        } else if (after == C::Extend) {
            if (before == C::ZWJ) m_pictographicRun = false;
        } else if (after == C::ZWJ) {
            m_pictographicRun = m_pictographicRun && before != C::ZWJ;
        } else {
            m_pictographicRun = false;
        }
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    GraphemeClass m_next = GraphemeClass::Other;
    bool m_pictographicRun = false;
    int m_regionalCount = 0;
    bool m_done = false;
};

}  // namespace

std::size_t Graphemes::count(std::string_view text, std::size_t limit) {
    ClusterWalker walker(text);
    std::size_t n = 0;
    while (n < limit && walker.advance()) ++n;
    return n;
}

std::size_t Graphemes::prefixBytes(std::string_view text, std::size_t characters) {
    ClusterWalker walker(text);
    std::size_t end = 0;
    for (std::size_t n = 0; n < characters && walker.advance(); ++n) end = walker.end();
    return end;
}

}  // namespace vantrelle
