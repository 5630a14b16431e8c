#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "support/ReadFile.h"  // the reading side, for callers that read what they write

namespace vantrelle {

// How a write ended: done, or a sentence that names the file and the system's reason, fit for a log
// line or for the user. Converts to true on success, so `if (!writeFileAtomically(...))` reads as
// "if the write failed".
class [[nodiscard]] WriteResult {
public:
    static WriteResult success() { return WriteResult(); }
    static WriteResult failure(std::string message) { return WriteResult(std::move(message)); }

    [[nodiscard]] bool ok() const { return !m_error; }
    explicit operator bool() const { return ok(); }
    // Empty on success.
    [[nodiscard]] const std::string& error() const {
        static const std::string none;
        return m_error ? *m_error : none;
    }

private:
    WriteResult() = default;
    explicit WriteResult(std::string message) : m_error(std::move(message)) {}
    std::optional<std::string> m_error;
};

// The one way the program replaces a file. A temporary file beside the target is written, flushed,
// renamed over it and the folder flushed, so a reader (or a crash) sees the old file or the new one,
// never half of one. The replaced file keeps its mode and owner; a symbolic link stays a link and its
// target is written; a file without write permission for us is refused, not replaced. Missing parent
// folders of `path` are created. On failure the old file is left as it was.
WriteResult writeFileAtomically(const std::filesystem::path& path, std::string_view contents);

// The name of the temporary file a write of `path` uses while it runs, before its random suffix:
// ".<name>.vantrelle-tmp-". Files of this shape are ours and nobody else's.
[[nodiscard]] std::string temporaryFilePrefix(const std::filesystem::path& path);
// Whether a file name has the shape of one of those temporary files, suffix included.
[[nodiscard]] bool isTemporaryFileName(std::string_view name);

}  // namespace vantrelle
