#include <QCoreApplication>

#include "QtMainScheduler.h"
#include "ThreadQueue.h"
#include "support/DebugLog.h"

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Vantrelle"));

    vantrelle::ThreadQueueFactory queues;
    vantrelle::DebugLog::configureFromEnvironment(vantrelle::ProcessEnvironment::shared(), queues);
    vantrelle::DebugLog::write("launch: Vantrelle starting");
    return QCoreApplication::exec();
}
