#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

#include "agents/StatusFigures.h"

namespace vantrelle {

// One Claude Code session's cost from its own log alone, for a status line with nothing better to ask.
struct TranscriptFigures {
    StatusAmount amount;
    std::string model;  // the model of most replies; empty when none was named
};

// Reads one transcript: each reply counted once by its message and request id, at its final size. Nothing
// when the file is missing, isn't a regular file or is larger than `maxBytes`.
[[nodiscard]] std::optional<TranscriptFigures> readTranscriptFigures(const std::filesystem::path& transcript,
                                                                     std::uintmax_t maxBytes = 512u << 20);

}  // namespace vantrelle
