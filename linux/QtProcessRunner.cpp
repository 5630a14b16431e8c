#include "QtProcessRunner.h"

#include <QProcess>
#include <QStringList>
#include <cmath>

namespace vantrelle {

ProcessResult QtProcessRunner::run(const std::string& program, const std::vector<std::string>& arguments,
                                   double timeoutSeconds) {
    QStringList qtArguments;
    qtArguments.reserve(static_cast<qsizetype>(arguments.size()));
    for (const auto& argument : arguments) qtArguments.push_back(QString::fromStdString(argument));

    QProcess process;
    process.setProgram(QString::fromStdString(program));
    process.setArguments(qtArguments);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start();

    ProcessResult result;
    if (!process.waitForStarted()) return result;
    result.launched = true;
    const int timeoutMs = static_cast<int>(std::lround(std::max(0.0, timeoutSeconds) * 1000.0));
    if (!process.waitForFinished(timeoutMs)) {
        result.timedOut = true;
        process.kill();
        process.waitForFinished(1000);
    }
    result.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.standardOutput = process.readAllStandardOutput().toStdString();
    result.standardError = process.readAllStandardError().toStdString();
    return result;
}

}  // namespace vantrelle
