#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMutex>
#include <QThread>
#include <functional>
#include <memory>

namespace vantrelle::testing {

// A D-Bus service written for a test. Every call under its root path goes to `answer`, which gives
// the messages to send back in order: the reply, then any signals. It answers from a thread of its
// own, since the adapters under test block on their calls.
class FakeBusService {
public:
    using Answer = std::function<QList<QDBusMessage>(const QDBusMessage& call)>;

    FakeBusService(const QString& address, const QString& service, const QString& root, Answer answer)
        : m_name(QStringLiteral("fake-") + service),
          m_object(std::make_unique<Object>(*this)),
          m_answer(std::move(answer)) {
        m_bus = QDBusConnection::connectToBus(address, m_name);
        // Registering gives the object children, which must move to the thread with it.
        m_ok = m_bus.isConnected() &&
               m_bus.registerVirtualObject(root, m_object.get(), QDBusConnection::SubPath);
        m_thread.start();
        m_object->moveToThread(&m_thread);
        m_ok = m_ok && m_bus.registerService(service);
    }
    ~FakeBusService() {
        QDBusConnection::disconnectFromBus(m_name);
        m_thread.quit();
        m_thread.wait();
    }

    [[nodiscard]] bool ok() const { return m_ok; }
    // The calls so far, in order.
    [[nodiscard]] QList<QDBusMessage> calls() const {
        QMutexLocker lock(&m_mutex);
        return m_calls;
    }
    [[nodiscard]] QList<QDBusMessage> calls(const QString& member) const {
        QList<QDBusMessage> found;
        for (const auto& call : calls())
            if (call.member() == member) found << call;
        return found;
    }
    bool send(const QDBusMessage& message) { return m_bus.send(message); }

private:
    class Object final : public QDBusVirtualObject {
    public:
        explicit Object(FakeBusService& owner) : m_owner(owner) {}
        QString introspect(const QString&) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
            {
                QMutexLocker lock(&m_owner.m_mutex);
                m_owner.m_calls << message;
            }
            for (const auto& out : m_owner.m_answer(message)) bus.send(out);
            return true;
        }

    private:
        FakeBusService& m_owner;
    };

    QString m_name;
    QThread m_thread;
    std::unique_ptr<Object> m_object;
    Answer m_answer;
    QDBusConnection m_bus{QString()};
    bool m_ok = false;
    mutable QMutex m_mutex;
    QList<QDBusMessage> m_calls;
};

}  // namespace vantrelle::testing
