#include "TavoRunViewModel.h"

#include <QJSEngine>
#include <QVariantMap>

#include "ShellEngine.h"
#include "support/DebugLog.h"

namespace vantrelle {

TavoRunViewModel::TavoRunViewModel(TavoRun& game) : m_game(game) {
    m_connection = m_game.changed.connect([this] { Q_EMIT changed(); });
}

TavoRunViewModel* TavoRunViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::game);
}

QString TavoRunViewModel::phase() const {
    const auto raw = rawName(m_game.phase());
    return QString::fromUtf8(raw.data(), static_cast<qsizetype>(raw.size()));
}

QVariantList TavoRunViewModel::obstacles() const {
    QVariantList list;
    for (const auto& o : m_game.obstacles())
        list.push_back(QVariantMap{{QStringLiteral("x"), o.x},
                                   {QStringLiteral("width"), o.width},
                                   {QStringLiteral("height"), o.height}});
    return list;
}

QString TavoRunViewModel::banner() const {
    return QString::fromStdString(tavoRunBanner(m_game));
}

void TavoRunViewModel::setViewShown(bool shown) {
    if (shown == m_shown) return;
    m_shown = shown;
    DebugLog::write(shown ? "game: view shown" : "game: view hidden");
    if (!shown) m_game.pause();
}

}  // namespace vantrelle
