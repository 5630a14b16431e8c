#include "monitors/ServersCommand.h"

#include "monitors/DevServerReport.h"

namespace vantrelle {

CommandOutput runServersCommand(const std::vector<std::string>& arguments, DevServerMonitor& monitor) {
    static const std::string synopsis = "usage: vantrelle servers [--json]\n";
    bool json = false;
    for (const std::string& argument : arguments) {
        if (argument == "--json") {
            json = true;
        } else if (argument == "--help" || argument == "-h") {
            return {0, synopsis, {}};
        } else {
            return {2, {}, "vantrelle servers: unknown argument " + argument + "\n" + synopsis};
        }
    }
    const auto servers = monitor.scan();
    return {0, json ? devServersJson(servers) : devServersText(servers), {}};
}

}  // namespace vantrelle
