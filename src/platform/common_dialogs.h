// The system's own dialogs. Each waits, with events going on, until the user has answered.
#pragma once

#include "platform/peers.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace corvel {

class CommonDialogs {
 public:
  virtual ~CommonDialogs() = default;
  // The chosen path; nothing on Cancel, or if it has more than 127 characters. The pattern is like
  // "*.wav".
  virtual std::optional<std::string> OpenFile(Window owner, std::string_view description,
                                              std::string_view pattern) = 0;
  virtual std::optional<std::string> SaveFile(Window owner, std::string_view description,
                                              std::string_view pattern,
                                              std::string_view preset) = 0;
  // The colour chosen; nothing on Cancel. `custom` comes in and goes out, also after Cancel.
  virtual std::optional<Color> ChooseColor(Window owner, Color start,
                                           std::array<Color, 16>& custom) = 0;
  // The system's plain message box: style as the system takes it, answer 1 (OK) to 7 (No).
  virtual int PlainMessage(Window owner, std::string_view text, std::string_view title,
                           int style) = 0;
};

}  // namespace corvel
