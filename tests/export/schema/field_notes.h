// What each name of the JSON means, in one line, for its schema and its guide.
#pragma once

#include <string>
#include <string_view>

namespace tradebill {

/// The note of the field `name` of `object` ("money", "matches", "run.statements" ...). Throws std::runtime_error for
/// one that has none.
[[nodiscard]] std::string NoteOf(std::string_view object, std::string_view name);

/// Whether every note was asked for; the first that wasn't, if not.
[[nodiscard]] std::string UnusedNote();

}  // namespace tradebill
