#pragma once

#include <string>
#include <vector>

namespace vantrelle {

// What one eject pass did: how many drives went, and one line per failure, for the log.
struct EjectResult {
    int ejected = 0;
    std::vector<std::string> failures;
};

// The desktop's disk service: unmounts and powers off removable drives. Blocking: call it from a
// serial queue.
class RemovableDisks {
public:
    virtual ~RemovableDisks() = default;
    [[nodiscard]] virtual bool available() = 0;
    // Unmounts every mounted filesystem on a removable drive, then ejects or powers the drive off. A
    // drive with a filesystem that stays mounted is left alone.
    [[nodiscard]] virtual EjectResult ejectAll() = 0;
};

}  // namespace vantrelle
