#include "InstanceLaunch.h"

#include <QCoreApplication>
#include <iostream>
#include <nlohmann/json.hpp>

#include "instance/InstanceCommands.h"
#include "instance/LocalInstanceChannel.h"
#include "support/AppPaths.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

bool repliedOk(const std::optional<std::string>& reply) {
    if (!reply) return false;
    const auto json = nlohmann::json::parse(*reply, nullptr, false);
    return json.is_object() && json.value("ok", false);
}

}  // namespace

std::filesystem::path instanceFolder(const Environment& environment) {
    return LocalInstanceChannel::defaultFolder(environment, AppPaths::fromEnvironment(environment));
}

int runQuitCommand(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const auto reply = LocalInstanceChannel::ask(instanceFolder(ProcessEnvironment::shared()),
                                                 InstanceCommands::request("quit"));
    if (!repliedOk(reply)) {
        std::cerr << "vantrelle: no running instance\n";
        return 1;
    }
    return 0;
}

bool forwardLaunchToRunningInstance(const std::filesystem::path& folder, const Environment& environment) {
    nlohmann::json arguments = nlohmann::json::object();
    if (auto page = environment.get("VANTRELLE_OPEN_SETTINGS")) arguments["settings"] = *page;
    const bool answered =
        repliedOk(LocalInstanceChannel::ask(folder, InstanceCommands::request("open", arguments)));
    DebugLog::write([&] {
        return std::string("launch: another instance runs; ") +
               (answered ? "it opened" : "it did not answer");
    });
    return answered;
}

}  // namespace vantrelle
