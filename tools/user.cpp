// The user's hand on the program's windows; see user.h.
#include "tools/user.h"

#include "base/text.h"

#include <algorithm>
#include <charconv>
#include <memory>

namespace corvel::tools {
namespace {

struct KeyWord {
  const char* word;
  Key key;
};
constexpr KeyWord kKeys[] = {{"enter", Key::kEnter},
                             {"escape", Key::kEscape},
                             {"tab", Key::kTab},
                             {"backspace", Key::kBackspace},
                             {"delete", Key::kDelete},
                             {"up", Key::kUp},
                             {"down", Key::kDown},
                             {"left", Key::kLeft},
                             {"right", Key::kRight},
                             {"home", Key::kHome},
                             {"end", Key::kEnd},
                             {"space", Key::kSpace},
                             {"ctrl+enter", Key::kControlEnter}};

bool HasCheckState(ControlKind kind) {
  return kind == ControlKind::kCheckBox || kind == ControlKind::kOptionButton;
}

}  // namespace

std::optional<ControlName> ParseControlName(std::string_view text) {
  const auto point = text.find('.');
  ControlName name{std::string(text.substr(0, point)), {}, -1};
  if (name.form.empty()) return std::nullopt;
  if (point == std::string_view::npos) return name;
  std::string_view control = text.substr(point + 1);
  if (control.ends_with(')')) {
    const auto open = control.find('(');
    if (open == std::string_view::npos) return std::nullopt;
    const char* const last = control.data() + control.size() - 1;
    const auto [end, error] = std::from_chars(control.data() + open + 1, last, name.index);
    if (error != std::errc() || end != last || name.index < 0) return std::nullopt;
    control = control.substr(0, open);
  }
  name.control = control;
  return name.control.empty() ? std::nullopt : std::optional(name);
}

std::optional<Key> ParseKey(std::string_view word) {
  for (const KeyWord& key : kKeys)
    if (word == key.word) return key.key;
  return std::nullopt;
}

std::string PlainCaption(std::string_view caption) {
  return Replaced(caption.substr(0, caption.find('\t')), "&", "");
}

std::string ValueOf(const ControlState& state) {
  if (HasCheckState(state.kind)) return state.value != 0 ? "1" : "0";
  if (state.kind == ControlKind::kProgressBar) return std::to_string(state.value);
  if (!HasRows(state.kind)) return state.text;
  return HasRow(state, state.selected) ? state.items[static_cast<std::size_t>(state.selected)] : "";
}

std::optional<FormView> User::FindForm(const std::string& name) const {
  return stage_.hand().FindForm(name);
}

std::optional<ControlView> User::FindControl(Window form, std::string_view name, int index) const {
  return stage_.hand().FindControl(form, name, index);
}

std::optional<ControlView> User::FindControl(const std::string& name, std::string& why) const {
  const auto parsed = ParseControlName(name);
  const auto form = parsed ? FindForm(parsed->form) : std::nullopt;
  if (!form) {
    why = "no window " + (parsed ? parsed->form : name) + " is loaded";
    return std::nullopt;
  }
  auto control = FindControl(form->window, parsed->control, parsed->index);
  if (!control) why = "no such control on " + parsed->form;
  return control;
}

int User::FindRow(const ControlState& state, const std::string& item) {
  const auto row = std::find_if(state.items.begin(), state.items.end(), [&](const auto& text) {
    return text == item || text.substr(0, text.find('\t')) == item;
  });
  return row == state.items.end() ? -1 : static_cast<int>(row - state.items.begin());
}

desk::Prompt* User::OpenPopup() const {
  const auto& prompts = stage_.Prompts();
  if (prompts.empty()) return nullptr;
  desk::Prompt* const prompt = prompts.back().get();
  return prompt->kind == desk::Prompt::Kind::kPopup && !prompt->answered ? prompt : nullptr;
}

int User::FindMenuRow(MenuHandle menu, const std::string& caption) const {
  Menus& menus = stage_.menus();
  for (int row = 0; row < menus.Count(menu); ++row)
    if (PlainCaption(menus.TextAt(menu, row)) == PlainCaption(caption)) return row;
  return -1;
}

std::string User::Choose(const std::vector<std::string>& path) const {
  desk::Prompt* const popup = OpenPopup();
  if (!popup) return "no pop-up menu is open";
  Menus& menus = stage_.menus();
  MenuHandle menu = popup->menu;
  std::vector<int> rows;
  for (std::size_t depth = 0; depth < path.size(); ++depth) {
    const int row = FindMenuRow(menu, path[depth]);
    if (row < 0) return "the menu has no row \"" + path[depth] + "\"";
    if ((menus.StateAt(menu, row) & menu_flag::kGrayed) != 0)
      return "the row \"" + path[depth] + "\" is greyed";
    const MenuHandle sub = menus.SubMenu(menu, row);
    const bool last = depth + 1 == path.size();
    if (last == static_cast<bool>(sub))
      return "the row \"" + path[depth] + (last ? "\" has a sub-menu" : "\" has no sub-menu");
    rows.push_back(row);
    menu = sub;
  }
  stage_.ChooseRow(*popup, rows);
  return {};
}

std::vector<std::string> User::PopupRows() const {
  const desk::Prompt* const popup = OpenPopup();
  if (!popup) return {};
  Menus& menus = stage_.menus();
  std::vector<std::string> rows;
  for (int row = 0; row < menus.Count(popup->menu); ++row) {
    const std::string caption = PlainCaption(menus.TextAt(popup->menu, row));
    if (!caption.empty()) rows.push_back(caption);
  }
  return rows;
}

void User::DismissPopup() const {
  if (desk::Prompt* const popup = OpenPopup()) stage_.PutAway(*popup);
}

}  // namespace corvel::tools
