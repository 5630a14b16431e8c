#pragma once

#include <map>
#include <mutex>

#include "platform/DefaultsStore.h"

namespace vantrelle {

// Defaults that live only as long as the process: tests, demo runs, one-shot commands.
class MemoryDefaultsStore : public DefaultsStore {
public:
    [[nodiscard]] std::optional<DefaultsValue> object(std::string_view key) const override {
        std::lock_guard lock(m_mutex);
        auto it = m_values.find(key);
        return it == m_values.end() ? std::nullopt : std::optional(it->second);
    }
    void set(std::string_view key, DefaultsValue value) override {
        std::lock_guard lock(m_mutex);
        m_values.insert_or_assign(std::string(key), std::move(value));
        changed();
    }
    void remove(std::string_view key) override {
        std::lock_guard lock(m_mutex);
        if (auto it = m_values.find(key); it != m_values.end()) {
            m_values.erase(it);
            changed();
        }
    }

protected:
    // Called with the lock held after every change.
    virtual void changed() {}

    mutable std::mutex m_mutex;
    std::map<std::string, DefaultsValue, std::less<>> m_values;
};

}  // namespace vantrelle
