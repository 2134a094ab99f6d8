// The command line of corvel-desk; see arguments.h.
#include "tools/desk/arguments.h"

#include <algorithm>
#include <charconv>

namespace corvel::tools {

void Arguments::Fail(std::string why) {
  if (error_.empty()) error_ = std::move(why);
}

bool Arguments::TakeFlag(std::string_view name) {
  const auto at = std::find(words_.begin(), words_.end(), name);
  if (at == words_.end()) return false;
  words_.erase(at);
  return true;
}

std::optional<std::string> Arguments::TakeValue(std::string_view name) {
  const auto at = std::find(words_.begin(), words_.end(), name);
  if (at == words_.end()) return std::nullopt;
  if (at + 1 == words_.end()) {
    Fail(std::string(name) + " wants a value");
    words_.erase(at);
    return std::nullopt;
  }
  std::string value = *(at + 1);
  words_.erase(at, at + 2);
  return value;
}

std::uint64_t Arguments::TakeNumber(std::string_view name, std::uint64_t otherwise) {
  const auto text = TakeValue(name);
  if (!text) return otherwise;
  std::uint64_t number = 0;
  const char* const last = text->data() + text->size();
  const auto [end, error] = std::from_chars(text->data(), last, number);
  if (error != std::errc() || end != last) Fail(std::string(name) + " wants a whole number");
  return number;
}

const std::vector<std::string>& Arguments::Rest() {
  for (const std::string& word : words_)
    if (word.size() > 1 && word[0] == '-') Fail("unknown option " + word);
  return words_;
}

}  // namespace corvel::tools
