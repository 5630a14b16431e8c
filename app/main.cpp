#include <QCoreApplication>

#include <cstring>

#include "QtMainScheduler.h"
#include "ThreadQueue.h"
#include "UsageCommand.h"
#include "support/DebugLog.h"

int main(int argc, char** argv) {
    // Command-line reports run without Qt and without a display.
    if (argc > 1 && std::strcmp(argv[1], "usage") == 0) return runUsageCommand(argc, argv);

    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Vantrelle"));

    vantrelle::ThreadQueueFactory queues;
    vantrelle::DebugLog::configureFromEnvironment(vantrelle::ProcessEnvironment::shared(), queues);
    vantrelle::DebugLog::write("launch: Vantrelle starting");
    return QCoreApplication::exec();
}
