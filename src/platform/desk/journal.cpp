// The desk's journal; see journal.h.
#include "platform/desk/journal.h"

namespace corvel::desk {

void Journal::Add(std::int64_t at, std::string_view kind, std::vector<std::string> words) {
  JournalEntry entry{at, std::string(kind), std::move(words)};
  if (listener_) listener_(entry);
  if (keep_) entries_.push_back(std::move(entry));
}

}  // namespace corvel::desk
