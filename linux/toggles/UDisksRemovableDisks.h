#pragma once

#include <QDBusConnection>

#include "platform/RemovableDisks.h"

namespace vantrelle {

// Removable drives through UDisks2 on the system bus: every mounted filesystem on a removable drive
// is unmounted, then the drive is ejected or powered off; a drive with a filesystem that stays
// mounted is left as it is.
class UDisksRemovableDisks final : public RemovableDisks {
public:
    explicit UDisksRemovableDisks(QDBusConnection bus) : m_bus(std::move(bus)) {}
    [[nodiscard]] bool available() override;
    [[nodiscard]] EjectResult ejectAll() override;

private:
    QDBusConnection m_bus;
};

}  // namespace vantrelle
