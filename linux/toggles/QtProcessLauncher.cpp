#include "toggles/QtProcessLauncher.h"

#include <signal.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <QPointer>
#include <QProcess>

namespace vantrelle {

namespace {

QStringList qtArguments(const std::vector<std::string>& arguments) {
    QStringList list;
    list.reserve(static_cast<qsizetype>(arguments.size()));
    for (const auto& argument : arguments) list.push_back(QString::fromStdString(argument));
    return list;
}

class QtChildProcess final : public ChildProcess {
public:
    explicit QtChildProcess(QProcess* process) : m_process(process) {}
    ~QtChildProcess() override {
        if (!m_process) return;
        m_process->disconnect();
        if (m_process->state() != QProcess::NotRunning) {
            signalGroup(SIGTERM);
            if (!m_process->waitForFinished(1000)) signalGroup(SIGKILL);
            m_process->waitForFinished(1000);
        }
        // Later: the handle may be dropped from the process's own finished signal.
        m_process->deleteLater();
    }
    QtChildProcess(const QtChildProcess&) = delete;
    QtChildProcess& operator=(const QtChildProcess&) = delete;

    void terminate() override { signalGroup(SIGTERM); }

private:
    void signalGroup(int signal) const {
        const qint64 pid = m_process ? m_process->processId() : 0;
        if (pid > 0) ::kill(-static_cast<pid_t>(pid), signal);
    }

    QPointer<QProcess> m_process;
};

}  // namespace

std::string QtProcessLauncher::startDetached(const std::string& program,
                                             const std::vector<std::string>& arguments) {
    QProcess process;
    process.setProgram(QString::fromStdString(program));
    process.setArguments(qtArguments(arguments));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (process.startDetached()) return {};
    return process.errorString().toStdString();
}

ProcessLauncher::Started QtProcessLauncher::startChild(const std::string& program,
                                                       const std::vector<std::string>& arguments,
                                                       std::function<void()> onExit) {
    auto* process = new QProcess();
    process->setProgram(QString::fromStdString(program));
    process->setArguments(qtArguments(arguments));
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    });
    process->start();
    if (!process->waitForStarted(3000)) {
        std::string error = process->errorString().toStdString();
        delete process;
        return {nullptr, error.empty() ? "could not start" : error};
    }
    auto handle = std::make_unique<QtChildProcess>(process);
    QObject::connect(process, &QProcess::finished, process,
                     [onExit = std::move(onExit)](int, QProcess::ExitStatus) {
                         if (onExit) onExit();
                     });
    return {std::move(handle), {}};
}

}  // namespace vantrelle
