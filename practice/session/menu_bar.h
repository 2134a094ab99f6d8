// The client's menu bar: its rows with their exact captions, and what they do.
#pragma once

#include "practice/client/client.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvel::practice {

inline constexpr std::uint32_t kExitCommand = 8207;

void MakeMenuBar(Client& client);
// False: not one of the client's own commands.
bool RunMenuCommand(Client& client, std::uint32_t id);

struct MenuRow {
  std::uint32_t id;
  bool enabled;
};
// Looks through the whole bar, sub-menus and strangers' rows included, for a row with this caption:
// as it stands, or without "&" and shortcut.
std::optional<MenuRow> FindMenuRow(Client& client, std::string_view caption);
// Pulls down one top-level menu after the other, as a user does who looks for a row: their owners
// get kInitMenuPopup first.
std::optional<MenuRow> LookForMenuRow(Client& client, std::string_view caption);

}  // namespace corvel::practice
