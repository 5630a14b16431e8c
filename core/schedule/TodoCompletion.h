#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Date.h"
#include "support/AtomicFile.h"

namespace vantrelle::TodoCompletion {

// The file's text with the to-do `uid` marked done: its STATUS line becomes STATUS:COMPLETED (added
// if it had none) and a COMPLETED time is added where missing. Only those lines change: every other
// byte, line ending and folded line stays as it was. None if no VTODO has that UID.
[[nodiscard]] std::optional<std::string> markCompleted(std::string_view text, std::string_view uid,
                                                       Date when);

// Reads the file, marks the to-do and writes it back atomically (the file keeps its mode). A file
// without the to-do, or one that can't be read, is left untouched and the failure says why.
WriteResult markCompletedInFile(const std::filesystem::path& file, std::string_view uid, Date when);

}  // namespace vantrelle::TodoCompletion
