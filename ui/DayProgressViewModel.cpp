#include "DayProgressViewModel.h"

#include "ShellEngine.h"

namespace vantrelle {

DayProgressViewModel::DayProgressViewModel(DayProgressModel& model, MileageShare& share)
    : m_model(model), m_share(share) {
    m_connection = m_model.changed.connect([this] {
        m_copied = false;
        Q_EMIT changed();
    });
}

DayProgressViewModel* DayProgressViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::dayProgress);
}

void DayProgressViewModel::share() {
    m_model.refresh();  // the text and the tile tell the same figure
    m_share.share();
    m_copied = true;
    Q_EMIT changed();
}

}  // namespace vantrelle
