#pragma once

#include <string>
#include <vector>

#include "overlay/OverlayPorts.h"
#include "overlay/Screen.h"
#include "platform/SoundPlayer.h"

namespace vantrelle::testing {

// Records what the overlay asks of its windows.
class RecordingWindows final : public OverlayWindows {
public:
    [[nodiscard]] bool hasPanel() const override { return created; }
    void layout(const Rect&, const Rect& dropZone) override {
        created = true;
        dropZoneFrame = dropZone;
    }
    void orderFront() override { visible = true; }
    void orderOut() override { visible = false; }
    void setPanelIgnoresMouse(bool ignores) override { ignoresMouse = ignores; }
    void raisePanel(bool takeFocus) override { tookFocus = takeFocus; }
    void applyAppearance(bool, Appearance) override {}
    void showBackdrop(const Rect&) override {}

    bool created = false;
    bool visible = false;
    bool ignoresMouse = true;
    bool tookFocus = false;
    Rect dropZoneFrame;
};

class FakeScreens final : public ScreenSource {
public:
    [[nodiscard]] std::vector<ScreenInfo> screens() const override { return list; }
    [[nodiscard]] std::optional<std::size_t> mainScreenIndex() const override { return main; }

    std::vector<ScreenInfo> list;
    std::optional<std::size_t> main = 0;
};

class FakePasteboard final : public DragPasteboard {
public:
    [[nodiscard]] std::int64_t changeCount() const override { return count; }
    [[nodiscard]] bool hasFileUrls() const override { return files; }

    // What a file manager does when a drag of files starts.
    void beginFileDrag() {
        ++count;
        files = true;
    }

    std::int64_t count = 7;
    bool files = false;
};

class RecordingSounds final : public SoundPlayer {
public:
    void play(std::string_view name) override { played.emplace_back(name); }
    std::vector<std::string> played;
};

class FakeServices final : public OverlayServices {
public:
    void recordCursor(Point) override {}
    [[nodiscard]] std::optional<Date> menuBarIgnoreClicksUntil() const override { return ignoreClicksUntil; }
    [[nodiscard]] bool isGamePlaying() const override { return gamePlaying; }
    void stopCamera() override {}
    void refreshSchedule() override {}
    void installShortcuts(std::function<void(ShortcutTarget)> onFire) override { fire = std::move(onFire); }
    void startBackgroundServices() override {}
    void terminate() override {}

    bool gamePlaying = false;
    std::optional<Date> ignoreClicksUntil;
    std::function<void(ShortcutTarget)> fire;
};

}  // namespace vantrelle::testing
