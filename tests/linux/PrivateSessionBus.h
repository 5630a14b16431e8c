#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QString>
#include <QStringList>
#include <utility>

#include "linux/TestApplication.h"

namespace vantrelle::testing {

// A session bus of the test's own, so no desktop's players or services take part.
class PrivateSessionBus {
public:
    PrivateSessionBus() {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nosyslog"),
                        QStringLiteral("--print-address=1")});
        while (m_address.isEmpty() && m_daemon.waitForReadyRead(5000)) {
            m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        }
    }
    ~PrivateSessionBus() {
        m_daemon.terminate();
        m_daemon.waitForFinished(2000);
    }

    [[nodiscard]] const QString& address() const { return m_address; }
    // An environment for child processes that points them at this bus.
    [[nodiscard]] QStringList environment() const {
        QStringList env = QProcess::systemEnvironment();
        env.removeIf([](const QString& entry) {
            return entry.startsWith(QStringLiteral("DBUS_SESSION_BUS_ADDRESS="));
        });
        env << QStringLiteral("DBUS_SESSION_BUS_ADDRESS=") + m_address;
        return env;
    }

private:
    QProcess m_daemon;
    QString m_address;
};

// Tests on one private bus for the suite; they skip where dbus-daemon isn't installed.
class PrivateSessionBusTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        testApplication();
        bus = new PrivateSessionBus;
    }
    static void TearDownTestSuite() { delete std::exchange(bus, nullptr); }
    void SetUp() override {
        if (bus->address().isEmpty()) GTEST_SKIP() << "no dbus-daemon";
    }

    static inline PrivateSessionBus* bus = nullptr;
};

}  // namespace vantrelle::testing
