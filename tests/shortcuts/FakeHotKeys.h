#pragma once

#include <map>
#include <set>
#include <utility>

#include "platform/HotKeys.h"

namespace vantrelle::testing {

// Registrations in memory; combos listed in `taken` are refused as another program's.
class FakeHotKeys final : public HotKeys {
public:
    void install(Handler onPress) override { handler = std::move(onPress); }
    int registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override {
        if (taken.count({keyCode, modifiers})) return -9878;
        live[id] = {keyCode, modifiers};
        return 0;
    }
    void installRefusals(Handler onRefused) override { refusals = std::move(onRefused); }
    void unregisterHotKey(std::uint32_t id) override { live.erase(id); }

    // The desktop changes its mind about an accepted combo, as a portal does after asking the user.
    void refuseLater(std::uint32_t id) {
        live.erase(id);
        if (refusals) refusals(id);
    }

    // Presses a combo: the handler hears it only while it is registered.
    void press(std::uint32_t keyCode, std::uint32_t modifiers) const {
        for (const auto& [id, combo] : live)
            if (combo == std::pair{keyCode, modifiers} && handler) handler(id);
    }

    Handler handler;
    Handler refusals;
    std::map<std::uint32_t, std::pair<std::uint32_t, std::uint32_t>> live;
    std::set<std::pair<std::uint32_t, std::uint32_t>> taken;
};

}  // namespace vantrelle::testing
