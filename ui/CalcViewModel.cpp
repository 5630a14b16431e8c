#include "CalcViewModel.h"

#include <QClipboard>
#include <QGuiApplication>

#include "calc/CalcEngine.h"

namespace vantrelle {

CalcViewModel::CalcViewModel(CalcModel& model) : m_model(model) {
    m_connection = m_model.changed.connect([this] { Q_EMIT changed(); });
}

QString CalcViewModel::answer() const {
    const auto& live = m_model.liveResult();
    return live ? QString::fromStdString(live->display) : QString();
}

QString CalcViewModel::detail() const {
    const auto& live = m_model.liveResult();
    return live && live->detail ? QString::fromStdString(*live->detail) : QString();
}

QVariantList CalcViewModel::entries() const {
    QVariantList list;
    // Newest first, as the panel lists them under the input.
    const auto& entries = m_model.entries();
    for (auto it = entries.rbegin(); it != entries.rend(); ++it) {
        list.push_back(QVariantMap{
            {QStringLiteral("index"), static_cast<int>(std::distance(it, entries.rend()) - 1)},
            {QStringLiteral("expression"), QString::fromStdString(it->expression)},
            {QStringLiteral("result"), QString::fromStdString(it->result)},
            {QStringLiteral("detail"), it->detail ? QString::fromStdString(*it->detail) : QString()}});
    }
    return list;
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
