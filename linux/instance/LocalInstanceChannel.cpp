#include "instance/LocalInstanceChannel.h"

#include <QLocalSocket>
#include <system_error>

#include "instance/InstanceCommands.h"
#include "instance/InstanceFolder.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

QString qPath(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
}

}  // namespace

LocalInstanceChannel::LocalInstanceChannel(std::filesystem::path folder)
    : m_folder(std::move(folder)), m_lock(qPath(m_folder / "instance.lock")) {
    std::error_code error;
    std::filesystem::create_directories(m_folder, error);
    std::filesystem::permissions(m_folder, std::filesystem::perms::owner_all, error);
    // Never stale by age: only a lock whose process is gone may be taken over.
    m_lock.setStaleLockTime(0);
}

LocalInstanceChannel::~LocalInstanceChannel() {
    if (m_server.isListening()) {
        m_server.close();
        QLocalServer::removeServer(qPath(socketPath()));
    }
}

bool LocalInstanceChannel::tryLock() {
    if (m_lock.isLocked()) return true;
    return m_lock.tryLock(0);
}

bool LocalInstanceChannel::listen(const InstanceCommands& commands) {
    if (!m_lock.isLocked()) return false;
    m_commands = &commands;
    // We hold the lock, so a socket file still there belongs to a process that died.
    QLocalServer::removeServer(qPath(socketPath()));
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server.listen(qPath(socketPath()))) {
        DebugLog::write([&] { return "instance: cannot listen on " + socketPath().string(); });
        return false;
    }
    QObject::connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* socket = m_server.nextPendingConnection()) serve(socket);
    });
    return true;
}

void LocalInstanceChannel::serve(QLocalSocket* socket) {
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
        while (socket->canReadLine()) {
            const QByteArray line = socket->readLine().trimmed();
            socket->write(QByteArray::fromStdString(m_commands->answer(line.toStdString())) + '\n');
        }
        // A line that never ends is not a request: say so once and hang up.
        if (socket->bytesAvailable() > static_cast<qint64>(InstanceCommands::kMaxLineBytes)) {
            socket->write(QByteArray::fromStdString(m_commands->answer(socket->readAll().toStdString())) +
                          '\n');
            socket->disconnectFromServer();
        }
        socket->flush();
    });
}

std::optional<std::string> LocalInstanceChannel::ask(const std::filesystem::path& folder,
                                                     const std::string& line, int timeoutMs) {
    QLocalSocket socket;
    socket.connectToServer(qPath(folder / "instance.sock"));
    if (!socket.waitForConnected(timeoutMs)) return std::nullopt;
    socket.write(QByteArray::fromStdString(line) + '\n');
    if (!socket.waitForBytesWritten(timeoutMs)) return std::nullopt;
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(timeoutMs)) return std::nullopt;
    }
    return socket.readLine().trimmed().toStdString();
}

std::filesystem::path LocalInstanceChannel::defaultFolder(const Environment& environment,
                                                          const AppPaths& paths) {
    return instanceFolder(environment, paths);
}

}  // namespace vantrelle
