#include "practice/commands/user_hand.h"

#include "practice/client/client.h"
#include "practice/controls/row_list.h"
#include "practice/controls/text_box.h"
#include "practice/documents/room.h"

namespace corvel::practice {
namespace {

struct KeyRow {
  std::string_view name;
  WParam virtualKey;
  char character;  // 0: the key makes none
};

constexpr KeyRow kKeys[] = {
    {"enter", 0x0D, '\r'},     {"ctrl+enter", 0x0D, '\n'}, {"tab", 0x09, '\t'},
    {"backspace", 0x08, '\b'}, {"escape", 0x1B, '\x1B'},   {"delete", 0x2E, 0},
    {"up", 0x26, 0},           {"down", 0x28, 0},
};

}  // namespace

void TypeText(Client& client, Window window, std::string_view text) {
  for (const char character : text) {
    if (!client.windows().Exists(window)) return;
    client.windows().Send(window, wm::kChar, static_cast<unsigned char>(character), 0);
  }
}

bool PressKey(Client& client, Window window, std::string_view key) {
  for (const KeyRow& row : kKeys) {
    if (row.name != key) continue;
    WindowSystem& windows = client.windows();
    windows.Send(window, wm::kKeyDown, row.virtualKey, 0);
    if (row.character != 0)
      windows.Send(window, wm::kChar, static_cast<unsigned char>(row.character), 0);
    windows.Send(window, wm::kKeyUp, row.virtualKey, 0);
    return true;
  }
  return false;
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
