#pragma once

#include <filesystem>
#include <functional>
#include <optional>

#include "platform/Clock.h"

namespace vantrelle {

// Moves the data of the program's earlier name into today's data root, once, before any store opens
// its file. Nothing here can stop the launch: every failure is passed over and the rest goes on.
class LegacyMigration {
public:
    using CreationDate = std::function<std::optional<Date>(const std::filesystem::path&)>;

    // A file that a fresh first launch made this recently holds nothing worth keeping; an older one is
    // the user's newer data and wins over the legacy copy.
    static constexpr double kFreshFileAge = 600;

    explicit LegacyMigration(const Clock& clock, CreationDate creationDate = fileCreationDate)
        : m_clock(clock), m_creationDate(std::move(creationDate)) {}

    // Merges `legacy` into `current` and removes `legacy` when it ends up empty. No legacy folder: no work.
    void migrate(const std::filesystem::path& legacy, const std::filesystem::path& current) const;
    void merge(const std::filesystem::path& source, const std::filesystem::path& destination) const;

    // The file system's birth time, when it records one.
    [[nodiscard]] static std::optional<Date> fileCreationDate(const std::filesystem::path& path);

private:
    const Clock& m_clock;
    CreationDate m_creationDate;
};

}  // namespace vantrelle
