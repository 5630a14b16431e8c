#include "CalcViewModel.h"

#include <QClipboard>
#include <QGuiApplication>

#include "ShellEngine.h"
#include "calc/CalcEngine.h"

namespace vantrelle {

CalcViewModel::CalcViewModel(CalcModel& model) : m_model(model) {
    m_connection = m_model.changed.connect([this] {
        refreshEntries();
        Q_EMIT changed();
    });
    refreshEntries();
}

CalcViewModel* CalcViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::calc);
}

QString CalcViewModel::answer() const {
    const auto& live = m_model.liveResult();
    return live ? QString::fromStdString(live->display) : QString();
}

QString CalcViewModel::detail() const {
    const auto& live = m_model.liveResult();
    return live && live->detail ? QString::fromStdString(*live->detail) : QString();
}

void CalcViewModel::refreshEntries() {
    std::vector<CalcEntryListModel::Row> rows;
    // Newest first, as the panel lists them under the input.
    const auto& entries = m_model.entries();
    for (auto it = entries.rbegin(); it != entries.rend(); ++it) {
        rows.push_back({static_cast<int>(std::distance(it, entries.rend()) - 1),
                        QString::fromStdString(it->expression), QString::fromStdString(it->result),
                        it->detail ? QString::fromStdString(*it->detail) : QString()});
    }
    m_entries.setRows(std::move(rows));
}

QString CalcViewModel::previousAnswer() const {
    const auto value = m_model.previousAnswer();
    return value ? QString::fromStdString(CalcEngine::format(*value, 6)) : QString();
}

void CalcViewModel::recall(int index) {
    if (index >= 0) m_model.recall(static_cast<std::size_t>(index));
}

void CalcViewModel::copy(const QString& text) {
    if (auto* clipboard = QGuiApplication::clipboard()) clipboard->setText(text);
}

}  // namespace vantrelle
