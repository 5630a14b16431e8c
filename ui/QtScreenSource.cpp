#include "QtScreenSource.h"

#include <QGuiApplication>
#include <QScreen>

#include "DesktopCoordinates.h"
#include "overlay/DeclaredNotch.h"

namespace vantrelle {

DesktopCoordinates DesktopCoordinates::current() {
    const QScreen* primary = QGuiApplication::primaryScreen();
    if (!primary) return {};
    const QRect g = primary->geometry();
    return {double(g.y() + g.height())};
}

std::vector<ScreenInfo> QtScreenSource::screens() const {
    const auto coordinates = DesktopCoordinates::current();
    std::vector<ScreenInfo> list;
    for (const QScreen* screen : QGuiApplication::screens()) {
        list.push_back({screen->name().toStdString(), coordinates.toGlobal(screen->geometry()),
                        coordinates.toGlobal(screen->availableGeometry()), std::nullopt, std::nullopt});
    }
    if (auto notch = m_declaredNotch ? m_declaredNotch() : std::nullopt) {
        const QRect desktop(qRound(notch->x), qRound(notch->y), qRound(notch->width), qRound(notch->height));
        applyDeclaredNotch(list, coordinates.toGlobal(desktop));
    }
    return list;
}

std::optional<std::size_t> QtScreenSource::mainScreenIndex() const {
    const auto all = QGuiApplication::screens();
    const auto index = all.indexOf(QGuiApplication::primaryScreen());
    if (index < 0) return std::nullopt;
    return static_cast<std::size_t>(index);
}

}  // namespace vantrelle
