#include "QuickTogglesViewModel.h"

#include "ShellEngine.h"
#include "ShellModel.h"
#include "ShellTheme.h"
#include "toggles/ToggleSymbols.h"

namespace vantrelle {

namespace {

QString text(std::string_view value) {
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

}  // namespace

QuickTogglesViewModel::QuickTogglesViewModel(QuickToggles& toggles, AppSettings& settings,
                                             std::function<void()> collapse)
    : m_model(toggles), m_settings(settings), m_collapse(std::move(collapse)) {
    m_modelConnection = m_model.changed.connect([this] { refreshRows(); });
    m_settingsConnection = m_settings.changed.connect([this](std::string_view) { refreshRows(); });
    refreshRows();
}

QuickTogglesViewModel* QuickTogglesViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::quickToggles);
}

void QuickTogglesViewModel::perform(const QString& raw) {
    if (auto toggle = quickToggleFromRaw(raw.toStdString())) m_model.perform(*toggle, m_collapse);
}

void QuickTogglesViewModel::setShown(bool shown) {
    m_shown = std::max(0, m_shown + (shown ? 1 : -1));
    if (shown) m_model.refreshStates();
}

void QuickTogglesViewModel::refreshRows() {
    std::vector<ChoiceListModel::Row> rows;
    for (QuickToggle toggle : m_settings.visibleToggles()) {
        if (!m_model.table().available(toggle)) continue;
        const auto& t = info(toggle);
        rows.push_back({text(t.raw), text(t.title), ShellModel::glyph(std::string(toggleSymbol(toggle))),
                        text(t.blurb), ShellTheme::color(NotchTheme::teal), m_model.isActive(toggle)});
    }
    m_toggles.setRows(std::move(rows));

    std::vector<ChoiceListModel::Row> missing;
    for (std::size_t i = 0; i < kQuickToggleCount; ++i) {
        const auto toggle = static_cast<QuickToggle>(i);
        const auto reason = m_model.table().missingReason(toggle);
        if (!reason) continue;
        missing.push_back({text(info(toggle).raw),
                           text(info(toggle).title),
                           ShellModel::glyph(std::string(toggleSymbol(toggle))),
                           text(*reason),
                           {},
                           false});
    }
    m_missing.setRows(std::move(missing));
}

}  // namespace vantrelle
