#include <QApplication>
#include <cstdio>
#include <cstring>

#include "Application.h"
#include "CalcCommand.h"
#include "DisplayPlatform.h"
#include "HooksCommand.h"
#include "InstanceLaunch.h"
#include "MonitorCommands.h"
#include "StatusLineCommand.h"
#include "TerminationSignals.h"
#include "TodayCommand.h"
#include "UsageCommand.h"
#include "support/DebugLog.h"

int main(int argc, char** argv) {
    using namespace vantrelle;
    // Command-line reports run without a display.
    if (argc > 1 && std::strcmp(argv[1], "usage") == 0) return runUsageCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "statusline") == 0) return runStatusLineCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "hooks") == 0) return runHooksCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "calc") == 0) return runCalcCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("vantrelle %s\n", VANTRELLE_VERSION);
        return 0;
    }
    if (argc > 1 && std::strcmp(argv[1], "servers") == 0) return runServersCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "screentime") == 0) return runScreenTimeCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "wrapped") == 0) return runWrappedCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "--quit") == 0) return runQuitCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "today") == 0) return runTodayCommand(argc, argv);

    DisplayPlatform::preferX11();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vantrelle"));
    QApplication::setQuitOnLastWindowClosed(false);  // closing a window never ends the program
    // A logout or a `kill` ends the program the way Quit does, so pending saves are written first.
    TerminationSignals termination([](int) { QCoreApplication::quit(); });

    ThreadQueueFactory logQueues;
    DebugLog::configureFromEnvironment(ProcessEnvironment::shared(), logQueues);
    // One notch per user: a second launch hands over to the first and ends.
    LocalInstanceChannel instance(instanceFolder(ProcessEnvironment::shared()));
    if (!instance.tryLock()) {
        const bool answered =
            forwardLaunchToRunningInstance(instance.socketPath().parent_path(), ProcessEnvironment::shared());
        DebugLog::disable();
        return answered ? 0 : 1;
    }
    if (!DisplayPlatform::check()) {
        DebugLog::disable();
        return 1;
    }
    DebugLog::write("launch: Vantrelle starting");

    Application app(ProcessEnvironment::shared(), &instance);
    app.launch();
    const int status = QApplication::exec();
    DebugLog::write("launch: Vantrelle quitting");
    DebugLog::disable();
    return status;
}
