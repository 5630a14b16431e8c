#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/JsonLayout.h"

namespace vantrelle {

// How a file lays out its JSON, so that what we add looks like what is there.
struct JsonStyle {
    bool multiline = true;
    std::string newline = "\n";
    std::string indent = "  ";  // one level
    std::string colon = ": ";
    std::string comma = ", ";  // between elements on one line

    // Learnt from the document's top-level object; two-space lines where it shows nothing.
    [[nodiscard]] static JsonStyle of(std::string_view text, const JsonContainer& top);
};

// `value` in `style`; every line after the first starts with `base`. Keys keep the value's order.
[[nodiscard]] std::string writeJson(const nlohmann::ordered_json& value, const JsonStyle& style,
                                    std::string_view base = {});

// What happens to one element of a container.
struct JsonElementEdit {
    bool remove = false;
    std::optional<std::string> value;  // new text of the value
};

// An element to add at the end: the value, and the key in an object.
struct JsonNewElement {
    std::string key;
    nlohmann::ordered_json value;
};

// The new text of `container`. Every byte that isn't edited is kept: a removed element goes with the
// separator before it (or after it, for the first), and added ones reuse the spacing the container
// already has, so adding an element and removing it again gives back the same bytes.
[[nodiscard]] std::string rebuildJsonContainer(std::string_view text, const JsonContainer& container,
                                               const std::vector<JsonElementEdit>& edits,
                                               const std::vector<JsonNewElement>& added,
                                               const JsonStyle& style);

}  // namespace vantrelle
