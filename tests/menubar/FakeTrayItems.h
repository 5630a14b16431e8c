#pragma once

#include <functional>
#include <string>
#include <vector>

#include "overlay/Screen.h"
#include "platform/TrayItems.h"

namespace vantrelle::testing {

class FakeTrayItems final : public TrayItems {
public:
    bool hasWatcher() override { return watcher; }
    std::vector<TrayItem> items() override { return list; }
    bool activate(const std::string& address, int x, int y) override {
        activations.push_back(address + " " + std::to_string(x) + "," + std::to_string(y));
        return answers;
    }
    void watchIcons(std::function<void()> onNewIcon) override { announce = std::move(onNewIcon); }

    bool watcher = true;
    bool answers = true;
    std::vector<TrayItem> list;
    std::vector<std::string> activations;
    std::function<void()> announce;  // what an item's new picture calls
};

// A 1512-wide screen whose notch runs from 656 to 856.
inline ScreenInfo notchedScreen() {
    ScreenInfo screen;
    screen.frame = {0, 0, 1512, 982};
    screen.auxiliaryTopLeftArea = Rect{0, 950, 656, 32};
    screen.auxiliaryTopRightArea = Rect{856, 950, 656, 32};
    return screen;
}

}  // namespace vantrelle::testing
