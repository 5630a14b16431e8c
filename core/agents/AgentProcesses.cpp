#include "agents/AgentProcesses.h"

#include <string_view>

namespace vantrelle {

namespace {

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool named(std::string_view base, std::string_view args, std::string_view name) {
    return base == name || args == name ||
           (args.size() > name.size() && args.starts_with(name) && args[name.size()] == ' ');
}

std::optional<AgentTool> toolOf(const ProcessInfo& process) {
    const std::string_view comm = process.executable;
    const std::string_view args = process.arguments;
    const std::string line = process.executable + " " + process.arguments;
    if (contains(line, "Claude.app") || contains(line, "Vantrelle")) return std::nullopt;
    const auto slash = comm.rfind('/');
    const std::string_view base = slash == std::string_view::npos ? comm : comm.substr(slash + 1);
    if (named(base, args, "claude") || contains(args, "claude-code/cli.js") ||
        contains(args, "@anthropic-ai/claude")) {
        return AgentTool::claudeCode;
    }
    if (named(base, args, "codex") || contains(args, "@openai/codex")) return AgentTool::codex;
    if (!contains(line, ".app/") && (named(base, args, "gemini") || contains(args, "@google/gemini-cli") ||
                                     contains(args, "/bin/gemini ") || args.ends_with("/bin/gemini"))) {
        return AgentTool::gemini;
    }
    return std::nullopt;
}

}  // namespace

std::set<AgentTool> aliveAgentTools(const std::vector<ProcessInfo>& processes) {
    std::set<AgentTool> tools;
    for (const auto& process : processes) {
        if (auto tool = toolOf(process)) tools.insert(*tool);
    }
    return tools;
}

}  // namespace vantrelle
