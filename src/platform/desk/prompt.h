// Dialogs of the system and pop-up menus, as whoever plays the user sees them.
#pragma once

#include "platform/peers.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvel::desk {

// A dialog of the system that waits for the user, or an open pop-up menu.
struct Prompt {
  enum class Kind { kOpenFile, kSaveFile, kColor, kPlainMessage, kPopup } kind;
  std::string text;   // message text, or the dialog's description
  int style = 0;      // of a plain message box
  MenuHandle menu{};  // of a pop-up
  bool answered = false;
  std::optional<std::string> path{};  // answers; nothing is Cancel
  std::optional<Color> color{};
  int button = 0;
  std::uint32_t row = 0;
};

}  // namespace corvel::desk
