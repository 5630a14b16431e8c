#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// The process environment, where the VANTRELLE_ hooks for scripted runs come from.
class Environment {
public:
    virtual ~Environment() = default;
    [[nodiscard]] virtual std::optional<std::string> get(std::string_view name) const = 0;

    // A hook whose condition is "is 1" fires only for the exact value "1".
    [[nodiscard]] bool isOne(std::string_view name) const { return get(name) == "1"; }
};

class ProcessEnvironment final : public Environment {
public:
    [[nodiscard]] std::optional<std::string> get(std::string_view name) const override;
    static ProcessEnvironment& shared();
};

class MapEnvironment final : public Environment {
public:
    MapEnvironment() = default;
    explicit MapEnvironment(std::map<std::string, std::string, std::less<>> values)
        : m_values(std::move(values)) {}
    [[nodiscard]] std::optional<std::string> get(std::string_view name) const override {
        auto it = m_values.find(name);
        return it == m_values.end() ? std::nullopt : std::optional(it->second);
    }
    void set(std::string name, std::string value) { m_values[std::move(name)] = std::move(value); }

private:
    std::map<std::string, std::string, std::less<>> m_values;
};

}  // namespace vantrelle
