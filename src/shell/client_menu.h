// The program's menu in the client's own menu bar: its rows with the command ids that the hook on
// the client's window recognises.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"

#include <cstdint>
#include <optional>

namespace corvel {

namespace client_menu {

inline constexpr std::uint32_t kExit = 1004;

// The command of a row; nothing for an id that isn't the program's.
std::optional<Command> CommandOf(std::uint32_t id);

// Puts the menu among the client's own ones, where the version has its place for it. A row whose
// command isn't in the hub, or that the client's version can't do, is greyed. False if the client
// takes no menu.
bool Insert(Program& program, AolClient& client);
// Takes it away again, wherever it stands. Nothing happens if it isn't there.
void Remove(Program& program);
// Gives the row of a command another caption.
void SetCaption(Program& program, Command command, std::string_view caption);

}  // namespace client_menu

}  // namespace corvel
