#pragma once

#include <string>
#include <vector>

#include "monitors/DevServer.h"

namespace vantrelle {

// The servers as the Dev Servers view lists them, for `vantrelle servers`: an aligned table, or a
// JSON array of objects with "port", "pid", "process", "cwd", "project", "kind" (null when unknown)
// and "url".
[[nodiscard]] std::string devServersText(const std::vector<DevServer>& servers);
[[nodiscard]] std::string devServersJson(const std::vector<DevServer>& servers);
// What the view shows in place of a kind it couldn't tell.
[[nodiscard]] std::string devServerKindLabel(const DevServer& server);

}  // namespace vantrelle
