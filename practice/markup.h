// Mark-up in lines and messages, as far as the client draws it.
#pragma once

#include <string>
#include <string_view>

namespace corvel::practice {

// The text as a reader sees it: without the tags FONT, B, I, U, SUP and SUB and their ends, in any
// case. Everything else between angles is text.
std::string Rendered(std::string_view text);

// A screen name as the service compares it: lower case, without blanks.
std::string NameKey(std::string_view name);

// A keyword's argument: "%20" and its like are characters.
std::string Unescaped(std::string_view argument);

}  // namespace corvel::practice
