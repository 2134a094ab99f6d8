// Texts in messages.
//
// The system knows of its own messages which of them carry a text, and takes it into another
// process. Of a private message only the sender knows, and its pointer means something within its
// own process only: there the sender says what is under way, and the window's procedure looks.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <windows.h>

namespace corvel::win32 {

// A message of the system's whose lParam is a text that is handed over.
bool CarriesText(UINT id);

// Stands while a private message with a text is being sent to a window of this process.
class TextUnderWay {
 public:
  TextUnderWay(HWND window, UINT id, const std::string& text);
  ~TextUnderWay() { innermost_ = outer_; }
  TextUnderWay(const TextUnderWay&) = delete;
  TextUnderWay& operator=(const TextUnderWay&) = delete;

  LPARAM Pointer() const { return reinterpret_cast<LPARAM>(text_.c_str()); }
  // The text of this message, if it is one that is under way.
  static std::optional<std::string_view> Find(HWND window, UINT id, LPARAM lParam);

 private:
  static inline const TextUnderWay* innermost_;
  const HWND window_;
  const UINT id_;
  const std::string& text_;
  const TextUnderWay* const outer_;
};

}  // namespace corvel::win32
