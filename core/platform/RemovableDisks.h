#pragma once

#include <string>
#include <vector>

namespace vantrelle {

// The desktop's disk service: unmounts and powers off removable drives. Blocking: call it from a
// serial queue.
class RemovableDisks {
public:
    virtual ~RemovableDisks() = default;
    [[nodiscard]] virtual bool available() = 0;
    // Unmounts every mounted filesystem on a removable drive, then ejects or powers the drive off.
    // One line per failure, for the log; empty when all went.
    [[nodiscard]] virtual std::vector<std::string> ejectAll() = 0;
};

}  // namespace vantrelle
