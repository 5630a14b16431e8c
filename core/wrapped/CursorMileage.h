#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "support/StoreFile.h"

namespace vantrelle {

// How far the pointer travels, in metres per local day, from the screens' physical size. record() runs
// for every pointer event, so it only adds to a running figure: no allocation, no clock, no file.
// flush() (a minute's timer and the end of the process) books that figure to the day and saves.
// Main thread only.
class CursorMileage {
public:
    static constexpr double kDefaultMetresPerPixel = 0.0254 / 96.0;  // a 96 dpi screen
    static constexpr int kKeptDays = 400;

    // `file` is "cursor-mileage.json" in the data root. In demo mode nothing is written.
    CursorMileage(std::filesystem::path file, const Clock& clock, bool demoMode);
    [[nodiscard]] static std::filesystem::path defaultFile(const std::filesystem::path& dataRoot) {
        return dataRoot / "cursor-mileage.json";
    }

    // The size of one pixel of the screen under the pointer, from its physical size; ignored unless
    // positive and finite.
    void setMetresPerPixel(double metres);
    // A pointer position in desktop pixels. A jump of more than `kMaxStepPixels` (another screen, a
    // warp) isn't travel: it only moves the start of the next step.
    void record(double x, double y) noexcept;
    // Breaks the path, so the next position starts fresh (the pointer left our view of it).
    void lift() noexcept { m_hasLast = false; }
    void flush();

    // Metres of each day from the day of `from` to the day of `to`, inclusive, in order.
    [[nodiscard]] std::vector<double> meters(Date from, Date to) const;
    [[nodiscard]] const std::map<std::string, double>& days() const { return m_days; }

    static constexpr double kMaxStepPixels = 4000;

private:
    void load();
    void save();
    [[nodiscard]] double pendingMetres() const { return m_pendingPixels * m_metresPerPixel; }

    StoreFile m_file;
    const Clock& m_clock;
    bool m_demo;
    std::map<std::string, double> m_days;
    double m_metresPerPixel = kDefaultMetresPerPixel;
    double m_pendingPixels = 0;
    double m_lastX = 0;
    double m_lastY = 0;
    bool m_hasLast = false;
};

}  // namespace vantrelle
