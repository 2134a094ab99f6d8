// The system's dialogs on the desk: each is a prompt that waits for whoever plays the user.
#pragma once

#include "platform/desk/desk.h"

namespace corvel::desk {

class DeskDialogs : public CommonDialogs {
 public:
  explicit DeskDialogs(Desk& desk) : desk_(desk) {}
  std::optional<std::string> OpenFile(Window owner, std::string_view description,
                                      std::string_view pattern) override;
  std::optional<std::string> SaveFile(Window owner, std::string_view description,
                                      std::string_view pattern, std::string_view preset) override;
  std::optional<Color> ChooseColor(Window owner, Color start,
                                   std::array<Color, 16>& custom) override;
  int PlainMessage(Window owner, std::string_view text, std::string_view title, int style) override;

 private:
  // Shows the prompt and lets events go on until it is answered.
  std::shared_ptr<Prompt> Ask(Prompt::Kind kind, std::string_view text, int style,
                              const char* waitName);
  Desk& desk_;
};

}  // namespace corvel::desk
