// What the program keeps for a wav by its name or its path follows the file.
#pragma once

#include "core/program.h"
#include "wavlib/wav_files.h"

#include <string>

namespace corvel {

// The file has this new name now. Its description goes along, unless the new name has one already
// or can't have any, and its FavWav does. The old name keeps the description too if another wav of
// that name is known. What can't be written is reported, which waits for the user.
void FollowRename(Program& program, const ListedWav& wav, const std::string& newName);

// The file lies at this path now: its FavWav goes along.
void FollowMove(Program& program, const ListedWav& wav, const std::string& newPath);

}  // namespace corvel
