#include "notes/TaskStore.h"

#include <algorithm>
#include <system_error>

#include "notes/Note.h"
#include "notes/NotesDemo.h"
#include "notes/NotesJson.h"
#include "notes/Uuid.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

std::vector<TodoItem> where(const std::vector<TodoItem>& items, bool done) {
    std::vector<TodoItem> chosen;
    std::copy_if(items.begin(), items.end(), std::back_inserter(chosen),
                 [done](const TodoItem& item) { return item.isDone == done; });
    return chosen;
}

}  // namespace

TaskStore::TaskStore(Dependencies d)
    : m_clock(d.clock),
      m_demo(d.demoMode),
      m_makeId(d.makeId ? std::move(d.makeId) : std::function<std::string()>(Uuid::make)),
      m_file(m_demo ? d.tempDir / "vantrelle-demo-tasks.json" : d.dataRoot / "tasks.json", "tasks", d.clock,
             /*readOnly=*/m_demo) {
    if (m_demo) {
        m_items = NotesDemo::tasks(m_clock.now());
        return;
    }
    std::error_code ignored;
    std::filesystem::create_directories(d.dataRoot, ignored);
    if (const auto text = m_file.read()) {
        if (auto items = NotesJson::decodeTodos(*text)) {
            m_items = std::move(*items);
        } else {
            m_file.setAside("it isn't a list of tasks");
        }
    }
}

std::vector<TodoItem> TaskStore::openItems() const {
    return where(m_items, false);
}

std::vector<TodoItem> TaskStore::doneItems() const {
    return where(m_items, true);
}

bool TaskStore::add(std::string_view title) {
    const std::string_view kept = NoteText::trimmed(title);
    if (kept.empty()) return false;
    m_items.push_back(TodoItem{m_makeId(), std::string(kept), false, m_clock.now(), std::nullopt});
    save();
    changed.emit();
    return true;
}

void TaskStore::toggle(std::string_view id) {
    const auto it =
        std::find_if(m_items.begin(), m_items.end(), [&](const TodoItem& item) { return item.id == id; });
    if (it == m_items.end()) return;
    it->isDone = !it->isDone;
    it->completedAt = it->isDone ? std::optional(m_clock.now()) : std::nullopt;
    save();
    changed.emit();
}

void TaskStore::remove(std::string_view id) {
    if (std::erase_if(m_items, [&](const TodoItem& item) { return item.id == id; }) == 0) return;
    save();
    changed.emit();
}

void TaskStore::clearDone() {
    if (std::erase_if(m_items, [](const TodoItem& item) { return item.isDone; }) == 0) return;
    save();
    changed.emit();
}

void TaskStore::save() {
    if (m_demo) return;
    // A failed write leaves the list as it is in memory; the next change writes it all again.
    if (const WriteResult written = m_file.write(NotesJson::encodeTodos(m_items)); !written) {
        DebugLog::write([&] { return "tasks: save failed: " + written.error(); });
    }
}

}  // namespace vantrelle
