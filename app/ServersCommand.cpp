#include "ServersCommand.h"

#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

#include "QtProcessRunner.h"
#include "monitors/DevServerMonitor.h"
#include "monitors/LsofListeningPorts.h"
#include "monitors/ProcListeningPorts.h"
#include "monitors/ProcProcessControl.h"
#include "monitors/ServersCommand.h"
#include "platform/Environment.h"
#include "platform/VirtualScheduler.h"
#include "support/AppPaths.h"
#include "support/DemoMode.h"

int runServersCommand(int argc, char** argv) {
    using namespace vantrelle;
    auto& environment = ProcessEnvironment::shared();
    VirtualScheduler clock(SystemClock::shared().now());
    InlineQueueFactory queues;
    ProcListeningPorts proc;
    QtProcessRunner runner;
    LsofListeningPorts lsof(runner);
    FallbackListeningPorts ports(proc, lsof);
    ProcProcessControl control;
    DevServerMonitor monitor({clock, clock, queues, ports, control, ::getpid(),
                              AppPaths::fromEnvironment(environment).home.string(),
                              DemoMode::resolve(environment)});
    const auto result = runServersCommand(std::vector<std::string>(argv + 2, argv + argc), monitor);
    std::fwrite(result.out.data(), 1, result.out.size(), stdout);
    std::fwrite(result.err.data(), 1, result.err.size(), stderr);
    return result.status;
}
