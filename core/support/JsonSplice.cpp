#include "support/JsonSplice.h"

namespace vantrelle {

namespace {

std::string_view slice(std::string_view text, std::size_t begin, std::size_t end) {
    return text.substr(begin, end - begin);
}

// The spaces and tabs that start the line holding `at`.
std::string lineIndent(std::string_view text, std::size_t at) {
    const std::size_t newline = text.rfind('\n', at);
    std::size_t i = newline == std::string_view::npos ? 0 : newline + 1;
    const std::size_t start = i;
    while (i < at && (text[i] == ' ' || text[i] == '\t')) ++i;
    return std::string(text.substr(start, i - start));
}

std::string afterLastNewline(std::string_view gap) {
    const std::size_t newline = gap.rfind('\n');
    return std::string(newline == std::string_view::npos ? gap : gap.substr(newline + 1));
}

std::string scalar(const nlohmann::ordered_json& value) {
    // Text that isn't UTF-8 can't be written as JSON; a replacement character beats an exception.
    return value.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

// Our own values are a few levels deep, so recursing here is bounded.
void write(std::string& out, const nlohmann::ordered_json& value, const JsonStyle& style,
           const std::string& base) {
    if (!value.is_structured()) {
        out += scalar(value);
        return;
    }
    const bool object = value.is_object();
    if (value.empty()) {
        out += object ? "{}" : "[]";
        return;
    }
    const std::string inner = base + style.indent;
    out += object ? '{' : '[';
    bool first = true;
    for (const auto& [key, element] : value.items()) {
        if (!first) out += style.multiline ? "," : style.comma;
        if (style.multiline) out += style.newline + inner;
        if (object) out += scalar(key) + style.colon;
        write(out, element, style, inner);
        first = false;
    }
    if (style.multiline) out += style.newline + base;
    out += object ? '}' : ']';
}

bool onOneLine(std::string_view text) {
    return text.find('\n') == std::string_view::npos;
}

std::string afterComma(std::string_view separator) {
    const std::size_t comma = separator.find(',');
    return std::string(comma == std::string_view::npos ? separator : separator.substr(comma + 1));
}

}  // namespace

JsonStyle JsonStyle::of(std::string_view text, const JsonContainer& top) {
    JsonStyle style;
    const std::size_t newline = text.find('\n');
    if (newline != std::string_view::npos && newline > 0 && text[newline - 1] == '\r') style.newline = "\r\n";
    const auto& elements = top.elements;
    if (elements.empty()) return style;

    const auto leading = slice(text, top.whole.begin + 1, elements[0].whole.begin);
    style.multiline = !onOneLine(leading);
    if (style.multiline) {
        // One level is what the members add to the line the object opens on.
        style.indent = afterLastNewline(leading);
        const std::string outer = lineIndent(text, top.whole.begin);
        if (style.indent.starts_with(outer)) style.indent.erase(0, outer.size());
    }
    if (top.isObject) {
        const auto colon = slice(text, elements[0].key.end, elements[0].value.begin);
        if (onOneLine(colon)) style.colon = std::string(colon);
    }
    if (!style.multiline) {
        // A file written without spaces after colons has none after commas either.
        style.comma = elements.size() > 1
                          ? std::string(slice(text, elements[0].whole.end, elements[1].whole.begin))
                      : style.colon == ":" ? ","
                                           : ", ";
    }
    return style;
}

std::string writeJson(const nlohmann::ordered_json& value, const JsonStyle& style, std::string_view base) {
    std::string out;
    write(out, value, style, std::string(base));
    return out;
}

std::string rebuildJsonContainer(std::string_view text, const JsonContainer& container,
                                 const std::vector<JsonElementEdit>& edits,
                                 const std::vector<JsonNewElement>& added, const JsonStyle& style) {
    const auto& elements = container.elements;
    const std::size_t count = elements.size();
    const std::size_t open = container.whole.begin;
    const std::size_t close = container.whole.end - 1;

    // The spacing before and after the elements, and before an added one.
    std::string leading, trailing, spacing;
    if (count > 0) {
        leading = slice(text, open + 1, elements[0].whole.begin);
        trailing = slice(text, elements[count - 1].whole.end, close);
        const auto lastGap =
            count > 1 ? slice(text, elements[count - 2].whole.end, elements[count - 1].whole.begin) : leading;
        const std::size_t comma = count > 1 ? lastGap.find(',') : std::string_view::npos;
        spacing = comma == std::string_view::npos ? lastGap : lastGap.substr(comma + 1);
        // One element on one line shows nothing of the spacing between elements: the file's serves.
        if (count == 1 && onOneLine(leading)) spacing = afterComma(style.comma);
    } else if (style.multiline) {
        const std::string indent = lineIndent(text, open);
        leading = spacing = style.newline + indent + style.indent;
        trailing = style.newline + indent;
    } else {
        spacing = afterComma(style.comma);
    }
    JsonStyle addedStyle = style;
    addedStyle.multiline = !onOneLine(spacing);
    const std::string base = addedStyle.multiline ? afterLastNewline(spacing) : std::string();

    std::string out(1, text[open]);
    bool first = true;
    for (std::size_t i = 0; i < count; ++i) {
        const JsonElementEdit* edit = i < edits.size() ? &edits[i] : nullptr;
        if (edit && edit->remove) continue;
        out += first ? leading : std::string(slice(text, elements[i - 1].whole.end, elements[i].whole.begin));
        const auto& element = elements[i];
        if (edit && edit->value) {
            out += slice(text, element.whole.begin, element.value.begin);
            out += *edit->value;
        } else {
            out += slice(text, element.whole.begin, element.whole.end);
        }
        first = false;
    }
    for (const auto& element : added) {
        out += first ? leading : "," + spacing;
        if (container.isObject) out += scalar(element.key) + style.colon;
        out += writeJson(element.value, addedStyle, base);
        first = false;
    }
    if (!first) out += trailing;
    out += text[close];
    return out;
}

}  // namespace vantrelle
