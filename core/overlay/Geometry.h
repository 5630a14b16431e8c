#pragma once

#include <cmath>

namespace vantrelle {

// Global screen points with y pointing up, the origin at the bottom left of the primary screen.
struct Point {
    double x = 0;
    double y = 0;
    constexpr bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    constexpr bool operator==(const Size&) const = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] constexpr double minX() const { return x; }
    [[nodiscard]] constexpr double maxX() const { return x + width; }
    [[nodiscard]] constexpr double midX() const { return x + width / 2; }
    [[nodiscard]] constexpr double minY() const { return y; }
    [[nodiscard]] constexpr double maxY() const { return y + height; }
    [[nodiscard]] constexpr double midY() const { return y + height / 2; }
    [[nodiscard]] constexpr Size size() const { return {width, height}; }
    [[nodiscard]] constexpr Point center() const { return {midX(), midY()}; }
    [[nodiscard]] constexpr bool isEmpty() const { return width <= 0 || height <= 0; }

    // Half-open on the far edges, so two rectangles that touch never both hold a point.
    [[nodiscard]] constexpr bool contains(Point p) const {
        return !isEmpty() && p.x >= minX() && p.x < maxX() && p.y >= minY() && p.y < maxY();
    }

    constexpr bool operator==(const Rect&) const = default;
};

}  // namespace vantrelle
