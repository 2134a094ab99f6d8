// The system's dialogs on the desk.
#include "platform/desk/desk_dialogs.h"

#include <algorithm>

namespace corvel::desk {
namespace {

constexpr std::size_t kLongestAnswer = 127;  // the caller's buffer of 128 holds a NUL too

// On the list of what the user sees for as long as it lives, also when the process is ended
// meanwhile.
class ShownPrompt {
 public:
  ShownPrompt(Desk& desk, std::shared_ptr<Prompt> prompt)
      : desk_(desk), prompt_(std::move(prompt)) {
    desk_.Prompts().push_back(prompt_);
  }
  ~ShownPrompt() { std::erase(desk_.Prompts(), prompt_); }
  ShownPrompt(const ShownPrompt&) = delete;
  ShownPrompt& operator=(const ShownPrompt&) = delete;

 private:
  Desk& desk_;
  std::shared_ptr<Prompt> prompt_;
};

std::optional<std::string> Path(const Prompt& prompt) {
  if (!prompt.path || prompt.path->size() > kLongestAnswer) return std::nullopt;
  return prompt.path;
}

}  // namespace

std::shared_ptr<Prompt> DeskDialogs::Ask(Prompt::Kind kind, std::string_view text, int style,
                                         const char* waitName) {
  auto prompt = std::make_shared<Prompt>();
  prompt->kind = kind;
  prompt->text = text;
  prompt->style = style;
  const ShownPrompt shown(desk_, prompt);
  while (!prompt->answered)
    desk_.platform().events.Pump({.name = waitName, .whom = WaitFor::kUser});
  return prompt;
}

std::optional<std::string> DeskDialogs::OpenFile(Window, std::string_view description,
                                                 std::string_view) {
  return Path(*Ask(Prompt::Kind::kOpenFile, description, 0, "the open dialog"));
}

std::optional<std::string> DeskDialogs::SaveFile(Window, std::string_view description,
                                                 std::string_view, std::string_view) {
  return Path(*Ask(Prompt::Kind::kSaveFile, description, 0, "the save dialog"));
}

std::optional<Color> DeskDialogs::ChooseColor(Window, Color, std::array<Color, 16>&) {
  return Ask(Prompt::Kind::kColor, "", 0, "the colour dialog")->color;
}

int DeskDialogs::PlainMessage(Window, std::string_view text, std::string_view, int style) {
  return Ask(Prompt::Kind::kPlainMessage, text, style, "the system's message box")->button;
}

}  // namespace corvel::desk
