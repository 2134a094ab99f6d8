// The command line of corvel-desk: words in order, options with or without a value.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tools {

class Arguments {
 public:
  explicit Arguments(std::vector<std::string> words) : words_(std::move(words)) {}

  const std::vector<std::string>& All() const { return words_; }
  // Takes an option away; true if it was there.
  bool TakeFlag(std::string_view name);
  // Takes an option with its value away; `error` is set if the value is missing.
  std::optional<std::string> TakeValue(std::string_view name);
  // The same, for a whole number that isn't negative.
  std::uint64_t TakeNumber(std::string_view name, std::uint64_t otherwise);
  // What is left. An option among it is one that nobody knows: `error` is set.
  const std::vector<std::string>& Rest();

  const std::string& Error() const { return error_; }

 private:
  void Fail(std::string why);
  std::vector<std::string> words_;
  std::string error_;
};

}  // namespace corvel::tools
