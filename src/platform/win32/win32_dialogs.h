// The system's own dialogs. Each runs a message loop of the system's, in which our windows and
// timers go on.
#pragma once

#include "platform/common_dialogs.h"

namespace corvel::win32 {

class Win32CommonDialogs : public CommonDialogs {
 public:
  std::optional<std::string> OpenFile(Window owner, std::string_view description,
                                      std::string_view pattern) override;
  std::optional<std::string> SaveFile(Window owner, std::string_view description,
                                      std::string_view pattern, std::string_view preset) override;
  std::optional<Color> ChooseColor(Window owner, Color start,
                                   std::array<Color, 16>& custom) override;
  int PlainMessage(Window owner, std::string_view text, std::string_view title, int style) override;
};

}  // namespace corvel::win32
