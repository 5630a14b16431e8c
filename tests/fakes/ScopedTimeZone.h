#pragma once

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

namespace vantrelle::testing {

// Runs the process in another time zone until dropped, then restores TZ as it was (or unset).
class ScopedTimeZone {
public:
    explicit ScopedTimeZone(const char* zone) {
        if (const char* previous = std::getenv("TZ")) m_previous = previous;
        ::setenv("TZ", zone, 1);
        ::tzset();
    }
    ~ScopedTimeZone() {
        m_previous ? ::setenv("TZ", m_previous->c_str(), 1) : ::unsetenv("TZ");
        ::tzset();
    }
    ScopedTimeZone(const ScopedTimeZone&) = delete;
    ScopedTimeZone& operator=(const ScopedTimeZone&) = delete;

private:
    std::optional<std::string> m_previous;
};

}  // namespace vantrelle::testing
