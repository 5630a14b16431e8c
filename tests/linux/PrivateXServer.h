#pragma once

#include <QProcess>
#include <QStandardPaths>
#include <memory>
#include <string>

namespace vantrelle::testing {

// An Xvfb of the test suite's own, started once per suite; `display()` is empty where Xvfb isn't
// installed or didn't come up, and the tests skip.
class PrivateXServer {
public:
    void start() {
        if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty()) return;
        m_server = std::make_unique<QProcess>();
        // Xvfb writes the display number it took to the descriptor named.
        m_server->start(QStringLiteral("Xvfb"),
                        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                         QStringLiteral("0"), QStringLiteral("800x600x24"), QStringLiteral("-nolisten"),
                         QStringLiteral("tcp")});
        if (m_server->waitForReadyRead(10000)) m_display = ":" + m_server->readLine().trimmed().toStdString();
    }
    void stop() {
        if (!m_server) return;
        m_server->terminate();
        m_server->waitForFinished(5000);
        m_server.reset();
        m_display.clear();
    }
    [[nodiscard]] const std::string& display() const { return m_display; }

private:
    std::unique_ptr<QProcess> m_server;
    std::string m_display;
};

}  // namespace vantrelle::testing
