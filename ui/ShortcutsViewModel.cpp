#include "ShortcutsViewModel.h"

#include <QJSEngine>

#include "ShellEngine.h"
#include "catalog/NotchTab.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

QString text(std::string_view value) {
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

std::vector<ShortcutTarget> allTargets() {
    std::vector<ShortcutTarget> targets{ShortcutTarget::notch()};
    for (NotchTab tab : allNotchTabs()) targets.push_back(ShortcutTarget::forTool(tab));
    return targets;
}

}  // namespace

ShortcutsViewModel::ShortcutsViewModel(ToolShortcuts& shortcuts) : m_shortcuts(shortcuts) {
    m_connection = m_shortcuts.changed.connect([this] { refreshRows(); });
    refreshRows();
}

ShortcutsViewModel* ShortcutsViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::shortcuts);
}

void ShortcutsViewModel::refreshRows() {
    std::vector<ShortcutListModel::Row> rows;
    for (const ShortcutTarget& target : allTargets()) {
        const QString key = text(target.key());
        const auto combo = m_shortcuts.combo(target);
        const bool failed = m_shortcuts.failed().contains(target.key());
        rows.push_back(
            {key, target.tool ? text(info(*target.tool).title) : QStringLiteral("Open or close the notch"),
             combo ? QString::fromStdString(combo->display) : QString(),
             failed ? text(kTakenText) : QString(), key == m_recording});
    }
    m_rows.setRows(std::move(rows));
}

void ShortcutsViewModel::startRecording(const QString& target) {
    if (!targetFromKey(target.toStdString())) return;
    m_recording = target;
    m_message = text(kRecordingText);
    refreshRows();
    Q_EMIT changed();
}

void ShortcutsViewModel::stopRecording() {
    if (m_recording.isEmpty()) return;
    m_recording.clear();
    m_message.clear();
    refreshRows();
    Q_EMIT changed();
}

bool ShortcutsViewModel::keyPressed(int key, int modifiers) {
    const auto target = targetFromKey(m_recording.toStdString());
    if (!target) return false;
    if (key == Qt::Key_Escape) {
        stopRecording();
        return true;
    }
    const Qt::KeyboardModifiers held(QFlag{modifiers});
    const KeyPress press{keysymOf(key), held.testFlag(Qt::ControlModifier), held.testFlag(Qt::AltModifier),
                         held.testFlag(Qt::ShiftModifier), held.testFlag(Qt::MetaModifier)};
    const RecordedKey recorded = m_shortcuts.record(press, *target);
    if (recorded.combo) {
        stopRecording();
    } else if (!recorded.refusal.empty()) {
        m_message = QString::fromStdString(recorded.refusal);
        Q_EMIT changed();
    }
    return true;
}

void ShortcutsViewModel::clear(const QString& target) {
    if (const auto found = targetFromKey(target.toStdString())) m_shortcuts.set(std::nullopt, *found);
}

std::uint32_t ShortcutsViewModel::keysymOf(int qtKey) {
    // Latin-1 keys share their codes with their keysyms.
    if (qtKey >= 0x20 && qtKey <= 0xff) return static_cast<std::uint32_t>(qtKey);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F35)
        return 0xffbeU + static_cast<std::uint32_t>(qtKey - Qt::Key_F1);
    switch (qtKey) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return 0xff0d;
        case Qt::Key_Tab:
            return 0xff09;
        case Qt::Key_Backspace:
            return 0xff08;
        case Qt::Key_Delete:
            return 0xffff;
        case Qt::Key_Home:
            return 0xff50;
        case Qt::Key_End:
            return 0xff57;
        case Qt::Key_PageUp:
            return 0xff55;
        case Qt::Key_PageDown:
            return 0xff56;
        case Qt::Key_Left:
            return 0xff51;
        case Qt::Key_Up:
            return 0xff52;
        case Qt::Key_Right:
            return 0xff53;
        case Qt::Key_Down:
            return 0xff54;
        case Qt::Key_Shift:
            return 0xffe1;
        case Qt::Key_Control:
            return 0xffe3;
        case Qt::Key_Meta:
        case Qt::Key_Super_L:
            return 0xffeb;
        case Qt::Key_Super_R:
            return 0xffec;
        case Qt::Key_Alt:
            return 0xffe9;
        case Qt::Key_AltGr:
            return 0xfe03;
        case Qt::Key_NumLock:
            return 0xff7f;
        default:
            return 0;
    }
}

}  // namespace vantrelle
