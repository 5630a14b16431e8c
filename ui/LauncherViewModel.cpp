#include "LauncherViewModel.h"

#include <QQmlEngine>

#include "LauncherIconProvider.h"
#include "ShellEngine.h"

namespace vantrelle {

LauncherViewModel::LauncherViewModel(LauncherModel& model, std::function<void()> onLaunched)
    : m_model(model), m_onLaunched(std::move(onLaunched)) {
    m_connection = m_model.changed.connect([this] { refreshRows(); });
    refreshRows();
}

LauncherViewModel* LauncherViewModel::create(QQmlEngine* engine, QJSEngine*) {
    auto* model = ShellEngine::provide(engine, &ShellEngine::ViewModels::launcher);
    // The tile draws the icons through "image://launcher/…".
    if (model && !engine->imageProvider(QStringLiteral("launcher")))
        engine->addImageProvider(QStringLiteral("launcher"), new LauncherIconProvider);
    return model;
}

void LauncherViewModel::refreshRows() {
    std::vector<LauncherAppListModel::Row> rows;
    for (const LauncherApp& app : m_model.apps()) {
        rows.push_back({QString::fromStdString(app.id), QString::fromStdString(app.name),
                        LauncherIconProvider::sourceFor(app.icon, app.name)});
    }
    m_apps.setRows(std::move(rows));
}

void LauncherViewModel::launch(const QString& appId) {
    if (m_model.launch(appId.toStdString()) && m_onLaunched) m_onLaunched();
}

}  // namespace vantrelle
