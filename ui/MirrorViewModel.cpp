#include "MirrorViewModel.h"

#include "ShellEngine.h"

namespace vantrelle {

MirrorViewModel::MirrorViewModel(MirrorCamera& camera) : m_camera(camera) {
    m_connection = m_camera.changed.connect([this] { Q_EMIT wantedChanged(); });
}

MirrorViewModel* MirrorViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::mirror);
}

}  // namespace vantrelle
