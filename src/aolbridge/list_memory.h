// The rows of the client's lists, which no message tells to another process: each row's data value
// is a pointer into the client's memory. At that pointer + 24 lies a second pointer, and at the
// second + 6 the row's text, NUL-terminated, at most 16 bytes: a screen name.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvel {

// One of the client's list or combo boxes, with its process open for reading. Nothing is kept: each
// answer is what stands there now. The client can change the list between two questions, and what
// can't be read is "".
class ClientList {
 public:
  enum class Kind { kListBox, kComboBox };

  ClientList(Platform& platform, Window list, Kind kind = Kind::kListBox);

  // False where there is no such list or its process can't be opened: it then has no row.
  explicit operator bool() const { return memory_ != nullptr; }
  int Count() const;
  int Selected() const;            // -1: none
  std::string Row(int row) const;  // trimmed; "" for a row that isn't there
  std::vector<std::string> Rows() const;

 private:
  MessageResult Ask(MessageId ofListBox, MessageId ofComboBox, WParam row = 0) const;

  WindowSystem& windows_;
  Window list_;
  Kind kind_;
  std::unique_ptr<ProcessMemory> memory_;
};

}  // namespace corvel
