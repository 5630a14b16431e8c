#pragma once

#include <QPoint>
#include <QRect>

#include "overlay/Geometry.h"

namespace vantrelle {

// Converts between Qt's desktop pixels (y down, origin at the top left) and the overlay's global points
// (y up, origin at the bottom left of the primary screen).
struct DesktopCoordinates {
    double primaryBottom = 0;  // y of the primary screen's bottom edge in desktop pixels

    [[nodiscard]] Point toGlobal(QPoint p) const { return {double(p.x()), primaryBottom - p.y()}; }
    [[nodiscard]] Rect toGlobal(const QRect& r) const {
        return {double(r.x()), primaryBottom - (r.y() + r.height()), double(r.width()), double(r.height())};
    }
    [[nodiscard]] QRect toDesktop(const Rect& r) const {
        return QRect(qRound(r.x), qRound(primaryBottom - r.maxY()), qRound(r.width), qRound(r.height));
    }

    [[nodiscard]] static DesktopCoordinates current();
};

}  // namespace vantrelle
