#include "monitors/DevServerReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace vantrelle {

std::string devServerKindLabel(const DevServer& server) {
    return server.kind.value_or("Server");
}

std::string devServersText(const std::vector<DevServer>& servers) {
    if (servers.empty()) return "No development servers are listening.\n";
    struct Row {
        std::string port, kind, project, pid, url;
    };
    std::vector<Row> rows{{"PORT", "KIND", "PROJECT", "PID", "URL"}};
    for (const DevServer& server : servers) {
        const std::string project = server.cwd.empty() ? server.process : server.project();
        rows.push_back({std::to_string(server.port), devServerKindLabel(server), project,
                        std::to_string(server.pid), server.url()});
    }
    std::size_t widths[4] = {0, 0, 0, 0};
    for (const Row& row : rows) {
        widths[0] = std::max(widths[0], row.port.size());
        widths[1] = std::max(widths[1], row.kind.size());
        widths[2] = std::max(widths[2], row.project.size());
        widths[3] = std::max(widths[3], row.pid.size());
    }
    const auto pad = [](const std::string& text, std::size_t width) {
        return text + std::string(width - text.size() + 2, ' ');
    };
    std::string out;
    for (const Row& row : rows) {
        out += pad(row.port, widths[0]) + pad(row.kind, widths[1]) + pad(row.project, widths[2]) +
               pad(row.pid, widths[3]) + row.url + "\n";
    }
    return out;
}

std::string devServersJson(const std::vector<DevServer>& servers) {
    nlohmann::json list = nlohmann::json::array();
    for (const DevServer& server : servers) {
        list.push_back({{"port", server.port},
                        {"pid", server.pid},
                        {"process", server.process},
                        {"cwd", server.cwd},
                        {"project", server.project()},
                        {"kind", server.kind ? nlohmann::json(*server.kind) : nlohmann::json(nullptr)},
                        {"url", server.url()}});
    }
    // Names from the system may hold bytes that aren't UTF-8: replace them rather than fail.
    return list.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

}  // namespace vantrelle
