#include "instance/InstanceCommands.h"

#include <nlohmann/json.hpp>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

std::string failure(std::string_view why) {
    return nlohmann::json{{"ok", false}, {"error", why}}.dump();
}

}  // namespace

void InstanceCommands::add(std::string name, Handler handler) {
    m_handlers.insert_or_assign(std::move(name), std::move(handler));
}

bool InstanceCommands::has(std::string_view name) const {
    return m_handlers.find(name) != m_handlers.end();
}

std::string InstanceCommands::answer(std::string_view line) const {
    if (line.size() > kMaxLineBytes) return failure("request too long");
    const nlohmann::json request = nlohmann::json::parse(line, nullptr, false);
    if (request.is_discarded() || !request.is_object()) return failure("not a JSON object");
    const auto command = request.find("command");
    if (command == request.end() || !command->is_string()) return failure("no command");
    const auto& name = command->get_ref<const std::string&>();
    const auto handler = m_handlers.find(name);
    if (handler == m_handlers.end()) {
        DebugLog::write([&] { return "instance: unknown command " + name; });
        return failure("unknown command: " + name);
    }
    nlohmann::json reply = handler->second(request);
    if (!reply.is_object()) reply = nlohmann::json::object();
    reply["ok"] = !reply.contains("error");
    // Replacement characters rather than a throw for text that is not UTF-8.
    return reply.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string InstanceCommands::request(std::string_view command, const nlohmann::json& arguments) {
    nlohmann::json line = arguments.is_object() ? arguments : nlohmann::json::object();
    line["command"] = std::string(command);
    return line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string InstanceCommands::request(std::string_view command) {
    return request(command, nullptr);
}

}  // namespace vantrelle
