#include "SystemStatsViewModel.h"

#include "ShellEngine.h"

namespace vantrelle {

SystemStatsViewModel::SystemStatsViewModel(SystemStats& stats) : m_stats(stats) {
    m_connection = m_stats.changed.connect([this] { Q_EMIT changed(); });
}

SystemStatsViewModel* SystemStatsViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::systemStats);
}

QString SystemStatsViewModel::bytes(double count) {
    static const char* const units[] = {"B", "KB", "MB", "GB", "TB"};
    int unit = 0;
    while (count >= 1000 && unit < 4) {
        count /= 1000;
        ++unit;
    }
    return QStringLiteral("%1 %2")
        .arg(count, 0, 'f', unit == 0 || count >= 100 ? 0 : 1)
        .arg(QLatin1String(units[unit]));
}

QString SystemStatsViewModel::memoryText() const {
    const auto& f = m_stats.figures();
    return bytes(static_cast<double>(f.memoryUsed)) + QStringLiteral(" of ") +
           bytes(static_cast<double>(f.memoryTotal));
}

QString SystemStatsViewModel::diskText() const {
    return bytes(static_cast<double>(m_stats.figures().diskFree)) + QStringLiteral(" free");
}

QString SystemStatsViewModel::download() const {
    return bytes(m_stats.figures().receivedPerSecond) + QStringLiteral("/s");
}

QString SystemStatsViewModel::upload() const {
    return bytes(m_stats.figures().sentPerSecond) + QStringLiteral("/s");
}

}  // namespace vantrelle
