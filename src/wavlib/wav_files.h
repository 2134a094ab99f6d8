// What the wav list does to the files themselves: the recycle bin, a new name, another folder. Each
// tells the user what went wrong.
#pragma once

#include "core/program.h"

#include <optional>
#include <string>

namespace corvel {

// A wav as it stood in the list when the user asked for something: what has waited for him goes on
// with this, whatever the list shows by then.
struct ListedWav {
  std::string folder;  // that the list showed; "" for a FavWav
  std::string name;    // in lower case, no ".wav"
  std::string path;
};

// Asks first. False if the user doesn't want it after all.
bool DeleteWav(Program& program, Window owner, const std::string& path);

// Asks for the new name. Nothing if the file has kept its old one.
std::optional<std::string> RenameWav(Program& program, const ListedWav& wav);

// Asks where to (frmSendTo), then copies or moves. The wav's path now; nothing if the user gives up
// or it can't be done.
std::optional<std::string> SendWavTo(Program& program, forms::Form& owner, const ListedWav& wav);

}  // namespace corvel
