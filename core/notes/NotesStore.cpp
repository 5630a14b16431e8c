#include "notes/NotesStore.h"

#include <algorithm>
#include <system_error>

#include "notes/LegacyNotes.h"
#include "notes/NotesDemo.h"
#include "notes/NotesJson.h"
#include "notes/Uuid.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

template <typename Notes>
auto findNote(Notes& notes, std::string_view id) {
    return std::find_if(notes.begin(), notes.end(), [&](const Note& note) { return note.id == id; });
}

}  // namespace

NotesStore::NotesStore(Dependencies d)
    : m_clock(d.clock),
      m_scheduler(d.scheduler),
      m_demo(d.demoMode),
      m_makeId(d.makeId ? std::move(d.makeId) : std::function<std::string()>(Uuid::make)),
      // Demo files lie in the temporary folder, so a recording can't touch the user's notes.
      m_file(m_demo ? d.tempDir / "vantrelle-demo-notes.json" : d.dataRoot / "notes.json", "notes", d.clock,
             /*readOnly=*/m_demo),
      m_legacyFile(m_demo ? d.tempDir / "vantrelle-demo-notes.md" : d.dataRoot / "notes.md") {
    if (m_demo) {
        m_notes = NotesDemo::notes(m_clock.now());
    } else {
        std::error_code ignored;
        fs::create_directories(d.dataRoot, ignored);
        load();
    }
    m_terminateObserver =
        d.notifications.observe(Notifications::applicationWillTerminate, [this] { saveNow(); });
}

void NotesStore::load() {
    if (auto text = m_file.read()) {
        if (auto notes = NotesJson::decodeNotes(*text)) {
            std::stable_sort(notes->begin(), notes->end(),
                             [](const Note& a, const Note& b) { return a.createdAt > b.createdAt; });
            m_notes = std::move(*notes);
            return;
        }
        m_file.setAside("it isn't a list of notes");
    }
    if (migrateLegacy()) {
        DebugLog::write([&] { return "notes: migrated " + m_legacyFile.string(); });
    }
}

bool NotesStore::migrateLegacy() {
    auto legacy = readLegacyNotes(m_legacyFile);
    if (!legacy) return false;
    const Date now = m_clock.now();
    m_notes = {Note{m_makeId(), std::move(legacy->text), legacy->created.value_or(now),
                    legacy->modified.value_or(now)}};
    saveNow();
    // Until its text is safely in the new file, the old one stays where the next start finds it.
    if (!m_lastSaved) return false;
    std::error_code error;
    fs::rename(m_legacyFile, migratedLegacyPath(m_legacyFile), error);
    if (error) {
        DebugLog::write(
            [&] { return "notes: couldn't move " + m_legacyFile.string() + " aside: " + error.message(); });
    }
    return true;
}

const Note* NotesStore::current() const {
    if (!m_selectedId) return nullptr;
    const auto it = findNote(m_notes, *m_selectedId);
    return it == m_notes.end() ? nullptr : &*it;
}

Note* NotesStore::find(std::string_view id) {
    const auto it = findNote(m_notes, id);
    return it == m_notes.end() ? nullptr : &*it;
}

std::vector<Note> NotesStore::nonEmpty() const {
    std::vector<Note> filled;
    std::copy_if(m_notes.begin(), m_notes.end(), std::back_inserter(filled),
                 [](const Note& note) { return !NoteText::isBlank(note.body); });
    return filled;
}

std::string NotesStore::text() const {
    const Note* note = current();
    return note ? note->body : std::string();
}

void NotesStore::setText(std::string text) {
    Note* note = m_selectedId ? find(*m_selectedId) : nullptr;
    if (!note) {
        newNote(std::move(text));
        return;
    }
    if (note->body == text) return;
    note->body = std::move(text);
    note->updatedAt = m_clock.now();
    scheduleSave();
    changed.emit();
}

const Note& NotesStore::newNote(std::string body) {
    const auto blank = std::find_if(m_notes.begin(), m_notes.end(),
                                    [](const Note& note) { return NoteText::isBlank(note.body); });
    if (blank != m_notes.end()) {
        if (blank->body != body) {
            blank->body = std::move(body);
            blank->updatedAt = m_clock.now();
            scheduleSave();
        }
        m_selectedId = blank->id;
        changed.emit();
        return *blank;
    }
    const Date now = m_clock.now();
    m_notes.insert(m_notes.begin(), Note{m_makeId(), std::move(body), now, now});
    m_selectedId = m_notes.front().id;
    scheduleSave();
    changed.emit();
    return m_notes.front();
}

void NotesStore::select(std::string_view id) {
    if (!find(id) || m_selectedId == id) return;
    m_selectedId = std::string(id);
    changed.emit();
}

void NotesStore::remove(std::string_view id) {
    const auto it = findNote(m_notes, id);
    if (it == m_notes.end()) return;
    const auto index = static_cast<std::size_t>(it - m_notes.begin());
    const bool wasSelected = m_selectedId == id;
    m_notes.erase(it);
    if (wasSelected) {
        if (index < m_notes.size()) {
            m_selectedId = m_notes[index].id;
        } else if (index > 0) {
            m_selectedId = m_notes[index - 1].id;
        } else {
            m_selectedId.reset();
        }
    }
    saveNow();
    changed.emit();
}

void NotesStore::ensureSelection() {
    if (current()) return;
    if (m_notes.empty()) {
        newNote();
        return;
    }
    select(m_notes.front().id);
}

void NotesStore::pruneBlanks() {
    std::erase_if(m_notes, [](const Note& note) { return NoteText::isBlank(note.body); });
    if (m_selectedId && !find(*m_selectedId)) m_selectedId.reset();
    saveNow();
    changed.emit();
}

void NotesStore::scheduleSave() {
    // Replacing the pending item cancels it: only the last edit of a burst saves.
    m_saveWork = m_scheduler.schedule(kSaveDebounce, [this] { saveNow(); });
}

void NotesStore::saveNow() {
    m_saveWork.cancel();
    if (m_demo) return;
    if (const WriteResult written = m_file.write(NotesJson::encodeNotes(m_notes)); !written) {
        DebugLog::write([&] { return "notes: save failed: " + written.error(); });
        return;
    }
    m_lastSaved = m_clock.now();
    changed.emit();
}

}  // namespace vantrelle
