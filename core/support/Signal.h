#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantrelle {

// Ends a subscription when dropped. Safe to outlive the signal.
class Connection {
public:
    Connection() = default;
    explicit Connection(std::function<void()> disconnect) : m_disconnect(std::move(disconnect)) {}
    Connection(Connection&& other) noexcept : m_disconnect(std::exchange(other.m_disconnect, nullptr)) {}
    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            disconnect();
            m_disconnect = std::exchange(other.m_disconnect, nullptr);
        }
        return *this;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { disconnect(); }

    void disconnect() {
        if (auto disconnect = std::exchange(m_disconnect, nullptr)) disconnect();
    }

private:
    std::function<void()> m_disconnect;
};

// A main-thread observer list, the "observable" of the models. Emitting is allocation-free: the slot
// list is copy-on-write, so a slot may connect or disconnect others while an emission runs.
template <typename... Args>
class Signal {
public:
    using Slot = std::function<void(const Args&...)>;

    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    [[nodiscard]] Connection connect(Slot slot) {
        auto next = std::make_shared<Slots>(*m_state->slots);
        const std::uint64_t id = m_state->nextId++;
        next->push_back({id, std::move(slot)});
        m_state->slots = std::move(next);
        return Connection([weak = std::weak_ptr<State>(m_state), id] {
            if (auto state = weak.lock()) {
                auto remaining = std::make_shared<Slots>(*state->slots);
                std::erase_if(*remaining, [id](const Entry& entry) { return entry.id == id; });
                state->slots = std::move(remaining);
            }
        });
    }

    void emit(const Args&... args) const {
        const auto slots = m_state->slots;  // keeps this emission's list alive
        for (const auto& entry : *slots) entry.slot(args...);
    }

    [[nodiscard]] bool hasSlots() const { return !m_state->slots->empty(); }

private:
    struct Entry {
        std::uint64_t id;
        Slot slot;
    };
    using Slots = std::vector<Entry>;
    struct State {
        std::shared_ptr<const Slots> slots = std::make_shared<const Slots>();
        std::uint64_t nextId = 0;
    };
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

}  // namespace vantrelle
