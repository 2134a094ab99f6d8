// The text of a profile file: [section] lines, and key=value lines under them.
//
// A section begins at a line whose first character that is no blank is '[' and that has a ']';
// its name stands between the first and the last of these. Of several sections or keys with the
// same name the first counts. Blanks and TABs around names and values mean nothing, and neither
// does a line that begins with ';'. Any bytes are taken; nothing here fails.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvel::desk {

// The largest file that the system's routines write, in bytes.
inline constexpr std::size_t kLargestProfile = 0x10000;

// A profile file without a folder lies in the system's own.
std::string ProfilePath(std::string_view path, std::string_view windowsFolder);

// The value without one pair of quotes around it and cut at a NUL; nothing if there is no such key.
// A view into `text`.
std::optional<std::string_view> ProfileValue(std::string_view text, std::string_view section,
                                             std::string_view key);

// The text with the key's value changed, or with its line deleted for nullopt. A new key goes to
// the end of its section, a new section to the end of the text; all other bytes stay. Section, key
// and value are cut at their first line end or NUL.
std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::optional<std::string_view> value);

}  // namespace corvel::desk
