// The client's rich text windows, which give and take marked-up text by the clipboard only: in the
// client's own format, a NUL-terminated text under the name "AOLMAIL".
#pragma once

#include "platform/clipboard.h"

#include <string_view>

namespace corvel {

inline constexpr std::string_view kMailFormat = "AOLMAIL";

namespace rich_text {                    // commands that such a window takes (wm::kCommand)
inline constexpr WParam kPaste = 20003;  // the clipboard over the selection
}

// Holds the clipboard open; another process may have it, then nothing is read or lost.
class OpenClipboard {
 public:
  OpenClipboard(Clipboard& clipboard, Window owner)
      : clipboard_(clipboard), open_(clipboard.Open(owner)) {}
  ~OpenClipboard() {
    if (open_) clipboard_.Close();
  }
  OpenClipboard(const OpenClipboard&) = delete;
  OpenClipboard& operator=(const OpenClipboard&) = delete;
  explicit operator bool() const { return open_; }

 private:
  Clipboard& clipboard_;
  bool open_;
};

}  // namespace corvel
