#include <QApplication>
#include <cstring>

#include "Application.h"
#include "DisplayPlatform.h"
#include "HooksCommand.h"
#include "TodayCommand.h"
#include "UsageCommand.h"
#include "support/DebugLog.h"

int main(int argc, char** argv) {
    using namespace vantrelle;
    // Command-line reports run without a display.
    if (argc > 1 && std::strcmp(argv[1], "usage") == 0) return runUsageCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "hooks") == 0) return runHooksCommand(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "today") == 0) return runTodayCommand(argc, argv);

    DisplayPlatform::preferX11();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vantrelle"));
    QApplication::setQuitOnLastWindowClosed(false);  // closing a window never ends the program

    ThreadQueueFactory logQueues;
    DebugLog::configureFromEnvironment(ProcessEnvironment::shared(), logQueues);
    if (!DisplayPlatform::check()) {
        DebugLog::disable();
        return 1;
    }
    DebugLog::write("launch: Vantrelle starting");

    Application app(ProcessEnvironment::shared());
    app.launch();
    const int status = QApplication::exec();
    DebugLog::write("launch: Vantrelle quitting");
    DebugLog::disable();
    return status;
}
