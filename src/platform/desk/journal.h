// What has happened on the desk, in order: the source of traces and of a scenario's expectations.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::desk {

// Kinds are the words of the scenario language: line, message, answer, sound, sound-stopped,
// keyword, im-sent, opened, recycled, setting, file, shown, hidden, hook, unhook, print, ...
struct JournalEntry {
  std::int64_t at = 0;  // virtual milliseconds since the desk began
  std::string kind;
  std::vector<std::string> words;  // Windows-1252
};

class Journal {
 public:
  void Add(std::int64_t at, std::string_view kind, std::vector<std::string> words);
  const std::vector<JournalEntry>& Entries() const { return entries_; }
  // Called for each entry as it comes. One listener; nullptr for none.
  void Listen(std::function<void(const JournalEntry&)> listener) {
    listener_ = std::move(listener);
  }
  // A long run that nobody reads back (soak, benchmark) keeps nothing.
  void KeepNothing() { keep_ = false; }

 private:
  bool keep_ = true;
  std::vector<JournalEntry> entries_;
  std::function<void(const JournalEntry&)> listener_;
};

}  // namespace corvel::desk
