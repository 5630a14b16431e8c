#pragma once

#include <vector>

#include "notes/Note.h"
#include "notes/TodoItem.h"

namespace vantrelle {

// Canned notes and to-dos for demo mode: a plausible working day of a developer, dated around `now`.
class NotesDemo {
public:
    [[nodiscard]] static std::vector<Note> notes(Date now);
    [[nodiscard]] static std::vector<TodoItem> tasks(Date now);
};

}  // namespace vantrelle
