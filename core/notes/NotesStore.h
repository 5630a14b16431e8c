#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/Note.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "support/NotificationCenter.h"
#include "support/Signal.h"
#include "support/StoreFile.h"

namespace vantrelle {

// The user's plain-text notes, kept in "notes.json" in the data root. Edits save on a debounce so
// typing doesn't rewrite the file per key stroke; the application's termination notification
// flushes a pending save, so quitting right after typing keeps the edit. The single "notes.md" of
// earlier versions is migrated once. In demo mode the notes are canned and nothing is read or
// written. Main thread only.
class NotesStore {
public:
    // Only the last edit of a burst of typing this close together saves.
    static constexpr double kSaveDebounce = 0.6;
    // The Dashboard tile lists this many of the latest notes that have text.
    static constexpr std::size_t kLatestShown = 2;

    struct Dependencies {
        std::filesystem::path dataRoot;  // the "Vantrelle" data folder
        std::filesystem::path tempDir;   // demo mode's files lie here
        const Clock& clock;
        Scheduler& scheduler;
        NotificationCenter& notifications;
        bool demoMode = false;
        std::function<std::string()> makeId;  // a new note's id; a random UUID when empty
    };

    explicit NotesStore(Dependencies dependencies);
    NotesStore(const NotesStore&) = delete;
    NotesStore& operator=(const NotesStore&) = delete;

    // Newest first after loading; new notes join at the front.
    [[nodiscard]] const std::vector<Note>& notes() const { return m_notes; }
    [[nodiscard]] const std::optional<std::string>& selectedId() const { return m_selectedId; }
    [[nodiscard]] const std::optional<Date>& lastSaved() const { return m_lastSaved; }
    [[nodiscard]] const std::filesystem::path& filePath() const { return m_file.path(); }
    [[nodiscard]] const std::filesystem::path& legacyPath() const { return m_legacyFile; }

    // The note in the editor, or none.
    [[nodiscard]] const Note* current() const;
    // The notes with something more than white space in them.
    [[nodiscard]] std::vector<Note> nonEmpty() const;
    [[nodiscard]] bool hasPendingSave() const { return m_saveWork.isActive(); }

    // The editor's text: the body of the current note, empty without one.
    [[nodiscard]] std::string text() const;
    // Every key stroke of the editor: edits the current note (debounced save), or starts a note.
    void setText(std::string text);

    // Starts a note with `body` and selects it. A blank note already there is taken instead of
    // making a second one.
    const Note& newNote(std::string body = {});
    void select(std::string_view id);
    // Removes a note and saves at once. A removed selection moves to the note now in its place, or
    // the one before it, or none.
    void remove(std::string_view id);
    // The panel opening: selects the first note, or starts one when there are none.
    void ensureSelection();
    // The panel closing: drops every blank note and saves.
    void pruneBlanks();
    // Writes the file now, dropping any pending debounced save.
    void saveNow();

    // Emitted after any change of the notes, the selection or the last save.
    Signal<> changed;

private:
    void load();
    [[nodiscard]] bool migrateLegacy();
    void scheduleSave();
    [[nodiscard]] Note* find(std::string_view id);

    const Clock& m_clock;
    Scheduler& m_scheduler;
    bool m_demo;
    std::function<std::string()> m_makeId;
    StoreFile m_file;
    std::filesystem::path m_legacyFile;
    std::vector<Note> m_notes;
    std::optional<std::string> m_selectedId;
    std::optional<Date> m_lastSaved;
    WorkItem m_saveWork;
    Connection m_terminateObserver;
};

}  // namespace vantrelle
