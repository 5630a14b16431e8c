#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ProcessLauncher.h"

namespace vantrelle::testing {

// Records launches; children stay "running" until the test ends them with exit().
class FakeProcessLauncher final : public ProcessLauncher {
public:
    struct Launch {
        std::string program;
        std::vector<std::string> arguments;
    };
    struct Child {
        Launch launch;
        std::function<void()> onExit;
        bool terminateAsked = false;
        bool running = true;
    };

    std::string startDetached(const std::string& program,
                              const std::vector<std::string>& arguments) override {
        detached.push_back({program, arguments});
        return failWith;
    }
    Started startChild(const std::string& program, const std::vector<std::string>& arguments,
                       std::function<void()> onExit) override {
        if (!failWith.empty()) return {nullptr, failWith};
        auto child = std::make_shared<Child>(Child{{program, arguments}, std::move(onExit)});
        children.push_back(child);
        return {std::make_unique<Handle>(child), {}};
    }
    // The child ends, as the system would report it.
    static void exit(Child& child) {
        if (!child.running) return;
        child.running = false;
        // A copy: the handler may drop the handle, which clears the stored one.
        if (auto onExit = child.onExit) onExit();
    }

    std::string failWith;
    std::vector<Launch> detached;
    std::vector<std::shared_ptr<Child>> children;

private:
    class Handle final : public ChildProcess {
    public:
        explicit Handle(std::shared_ptr<Child> child) : m_child(std::move(child)) {}
        ~Handle() override { m_child->onExit = nullptr; }
        void terminate() override { m_child->terminateAsked = true; }

    private:
        std::shared_ptr<Child> m_child;
    };
};

}  // namespace vantrelle::testing
