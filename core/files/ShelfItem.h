#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "files/FileBookmark.h"
#include "platform/Date.h"

namespace vantrelle {

// One file on the shelf: a bookmark, not a copy, so the file stays where it is.
struct ShelfItem {
    std::string id;  // a random UUID
    Bytes bookmark;
    std::string name;  // the file's name when it was added
    Date addedAt;

    // Where the file is now; nothing once it can't be found (the view then shows a generic icon).
    [[nodiscard]] std::optional<std::filesystem::path> url() const { return resolveFileBookmark(bookmark); }

    bool operator==(const ShelfItem&) const = default;
};

// A fresh random version-4 UUID in upper-case text form.
[[nodiscard]] std::string makeItemId();

}  // namespace vantrelle
