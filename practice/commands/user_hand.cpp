#include "practice/commands/user_hand.h"

#include "practice/client/client.h"
#include "practice/controls/row_list.h"
#include "practice/controls/text_box.h"
#include "practice/documents/room.h"

#include <optional>

namespace corvel::practice {
namespace {

constexpr WParam kControlKey = 0x11;
constexpr std::string_view kWithControl = "ctrl+";

// The characters that a key makes by itself and with Control held; 0: it makes none.
struct Key {
  std::string_view name;
  WParam virtualKey;
  char character, withControl;
};

constexpr Key kKeys[] = {
    {"enter", 0x0D, '\r', '\n'},
    {"tab", 0x09, '\t', 0},
    {"backspace", 0x08, '\b', '\x7F'},
    {"escape", 0x1B, '\x1B', '\x1B'},
    {"delete", 0x2E, 0, 0},
    {"up", 0x26, 0, 0},
    {"down", 0x28, 0, 0},
};

std::optional<Key> FindKey(std::string_view name, bool withControl) {
  for (const Key& key : kKeys)
    if (key.name == name) return key;
  const bool isLetter = name.size() == 1 && name[0] >= 'a' && name[0] <= 'z';
  if (!isLetter || !withControl) return std::nullopt;
  const char fromOne = static_cast<char>(name[0] - 'a' + 1);
  return Key{name, static_cast<WParam>('A' + fromOne - 1), name[0], fromOne};
}

}  // namespace

void TypeText(Client& client, Window window, std::string_view text) {
  for (const char character : text) {
    if (!client.windows().Exists(window)) return;
    client.windows().Send(window, wm::kChar, static_cast<unsigned char>(character), 0);
  }
}

bool PressKey(Client& client, Window window, std::string_view name) {
  const bool control = name.starts_with(kWithControl);
  if (control) name.remove_prefix(kWithControl.size());
  const auto key = FindKey(name, control);
  if (!key) return false;
  WindowSystem& windows = client.windows();
  const char character = control ? key->withControl : key->character;
  if (control) windows.Send(window, wm::kKeyDown, kControlKey, 0);
  windows.Send(window, wm::kKeyDown, key->virtualKey, 0);
  if (character != 0) windows.Send(window, wm::kChar, static_cast<unsigned char>(character), 0);
  windows.Send(window, wm::kKeyUp, key->virtualKey, 0);
  if (control) windows.Send(window, wm::kKeyUp, kControlKey, 0);
  return true;
}

void Click(Client& client, Window icon) {
  client.windows().Send(icon, wm::kLButtonDown, 1, 0);
  client.windows().Send(icon, wm::kLButtonUp, 0, 0);
}

bool RightClickPerson(Client& client, RoomWindow& room, std::string_view person) {
  const RowList* list = room.people();
  const auto row = list == nullptr ? std::nullopt : list->RowOf(person);
  if (!row) return false;
  const LParam point = RowList::PointOf(*row);
  const Window window = room.listWindow();
  client.windows().Send(window, wm::kRButtonDown, 2, point);
  client.windows().Send(window, wm::kRButtonUp, 0, point);
  return true;
}

Window TypingTarget(Client& client) {
  const auto* focused = client.FindAs<TextBox>(client.windows().Focus());
  if (focused != nullptr && focused->CanType()) return focused->window();
  const auto room = client.Standing<RoomWindow>();
  return room ? room->inputWindow() : Window{};
}

}  // namespace corvel::practice
