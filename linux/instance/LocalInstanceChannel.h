#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/Environment.h"
#include "support/AppPaths.h"

class QLocalSocket;

namespace vantrelle {

class InstanceCommands;

// One running instance per user: a lock file decides which process it is, and a local socket beside
// the lock carries line-based requests to it. Only the user's own processes can reach the socket.
class LocalInstanceChannel final : public QObject {
public:
    // `folder` holds the lock and the socket; it is made when missing.
    explicit LocalInstanceChannel(std::filesystem::path folder);
    ~LocalInstanceChannel() override;
    LocalInstanceChannel(const LocalInstanceChannel&) = delete;
    LocalInstanceChannel& operator=(const LocalInstanceChannel&) = delete;

    // Takes the lock; false while another live process holds it. A lock left by a process that died
    // is taken over.
    [[nodiscard]] bool tryLock();
    // Answers requests with `commands` from now on; needs the lock. False when the socket can't be made.
    bool listen(const InstanceCommands& commands);

    [[nodiscard]] std::filesystem::path socketPath() const { return m_folder / "instance.sock"; }

    // Sends one request line to the running instance and waits for its reply line; nothing when no
    // instance answers within `timeoutMs`. Blocking: for command-line use before any event loop runs.
    [[nodiscard]] static std::optional<std::string> ask(const std::filesystem::path& folder,
                                                        const std::string& line, int timeoutMs = 2000);

    // $XDG_RUNTIME_DIR/vantrelle where the session has one, else the program's cache folder.
    [[nodiscard]] static std::filesystem::path defaultFolder(const Environment& environment,
                                                             const AppPaths& paths);

private:
    void serve(QLocalSocket* socket);

    std::filesystem::path m_folder;
    QLockFile m_lock;
    QLocalServer m_server;
    const InstanceCommands* m_commands = nullptr;
};

}  // namespace vantrelle
