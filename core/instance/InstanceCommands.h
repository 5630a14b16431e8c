#pragma once

#include <functional>
#include <map>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>

namespace vantrelle {

// The commands a running instance answers. A request is one line holding a JSON object with a string
// "command" and any arguments beside it; the reply is one line holding a JSON object with "ok" and,
// on success, what the command returns, or on failure an "error" sentence. Bad input gets an error
// reply, never an exception.
class InstanceCommands {
public:
    // Receives the whole request object; returns the fields of the reply ("ok" is added). A handler
    // that wants to fail returns an object with "error".
    using Handler = std::function<nlohmann::json(const nlohmann::json& request)>;

    // A later add of the same name replaces the earlier one.
    void add(std::string name, Handler handler);
    [[nodiscard]] bool has(std::string_view name) const;

    // The reply line, without its newline, for one request line.
    [[nodiscard]] std::string answer(std::string_view line) const;

    // A request line for `command` with the given arguments (an object, or null for none).
    [[nodiscard]] static std::string request(std::string_view command, const nlohmann::json& arguments);
    // A convenience for the common case.
    [[nodiscard]] static std::string request(std::string_view command);

    // Longest request line read; a longer one is answered with an error and the rest dropped.
    static constexpr std::size_t kMaxLineBytes = 64 * 1024;

private:
    std::map<std::string, Handler, std::less<>> m_handlers;
};

}  // namespace vantrelle
