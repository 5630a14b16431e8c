#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/Note.h"
#include "notes/TodoItem.h"

namespace vantrelle {

// The files of the notes and the to-do list: a JSON array of records, dates as seconds since
// 2001-01-01 00:00:00 UTC, ids as UUID strings. Reading is all or nothing: one record of the wrong
// shape makes the whole file unusable, so nothing of it is half taken.
namespace NotesJson {

[[nodiscard]] std::string encodeNotes(const std::vector<Note>& notes);
[[nodiscard]] std::optional<std::vector<Note>> decodeNotes(std::string_view text);

// "completedAt" is left out while an item is open.
[[nodiscard]] std::string encodeTodos(const std::vector<TodoItem>& items);
[[nodiscard]] std::optional<std::vector<TodoItem>> decodeTodos(std::string_view text);

}  // namespace NotesJson

}  // namespace vantrelle
