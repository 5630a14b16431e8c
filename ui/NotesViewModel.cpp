#include "NotesViewModel.h"

#include "ShellEngine.h"
#include "notes/ChangeLabel.h"

namespace vantrelle {

namespace {

NoteListModel::Row rowOf(const Note& note, const std::optional<std::string>& selected, Date now) {
    return {QString::fromStdString(note.id), QString::fromStdString(NoteText::title(note.body)),
            QString::fromStdString(NoteText::preview(note.body)),
            QString::fromStdString(changeLabel(note.updatedAt, now)), selected == note.id};
}

}  // namespace

NotesViewModel::NotesViewModel(NotesStore& store, const Clock& clock) : m_store(store), m_clock(clock) {
    m_connection = m_store.changed.connect([this] { refresh(); });
    refresh();
}

NotesViewModel* NotesViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::notes);
}

QString NotesViewModel::selectedId() const {
    return QString::fromStdString(m_store.selectedId().value_or(std::string()));
}

QString NotesViewModel::savedLabel() const {
    if (m_store.hasPendingSave()) return QStringLiteral("Editing");
    const auto& saved = m_store.lastSaved();
    return saved ? QStringLiteral("Saved ") + QString::fromStdString(changeLabel(*saved, m_clock.now()))
                 : QString();
}

void NotesViewModel::refresh() {
    const Date now = m_clock.now();
    const auto& selected = m_store.selectedId();
    std::vector<NoteListModel::Row> rows;
    for (const Note& note : m_store.notes()) rows.push_back(rowOf(note, selected, now));
    m_notes.setRows(std::move(rows));

    std::vector<NoteListModel::Row> latest;
    for (const Note& note : m_store.nonEmpty()) {
        if (latest.size() == NotesStore::kLatestShown) break;
        latest.push_back(rowOf(note, selected, now));
    }
    m_latest.setRows(std::move(latest));

    Q_EMIT changed();
    if (selected != m_shownSelection) {
        m_shownSelection = selected;
        Q_EMIT selectionChanged();
    }
}

}  // namespace vantrelle
