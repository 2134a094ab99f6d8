#include "wavlib/wav_following.h"

#include "base/text.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "wavlib/fav_wavs.h"
#include "wavlib/frmEditDesc.h"
#include "wavlib/wav_categories.h"
#include "wavlib/wav_descriptions.h"

#include <algorithm>

namespace corvel {
namespace {

// Whether a category or the FavWavs have a wav of this name.
bool IsKnown(Program& program, const std::string& name) {
  const auto holdsIt = [&](const std::string& category) {
    return FileExists(program, CategoryFolder(program, category) + "\\" + name + ".wav");
  };
  const auto categories = CategoryNames(program);
  if (std::any_of(categories.begin(), categories.end(), holdsIt)) return true;
  const auto favWavs = FavWavFile(program).Load();
  return std::any_of(favWavs.begin(), favWavs.end(),
                     [&](const FavWav& wav) { return EqualNoCase(wav.name, name); });
}

void MoveDescription(Program& program, const std::string& from, const std::string& to) {
  const std::string text = FindDescription(program, from);
  if (text.empty() || !CanBeDescribed(to) || !FindDescription(program, to).empty()) return;
  WriteDescription(program, {to, text});
  if (!IsKnown(program, from)) DeleteDescription(program, from);
}

void FollowPath(Program& program, const std::string& oldPath, const FavWav& now) {
  Reported(program, {"frmTabs", "FollowPath"}, [&] { FavWavFile(program).Follow(oldPath, now); });
}

}  // namespace

void FollowRename(Program& program, const ListedWav& wav, const std::string& newName) {
  const std::string name = Lower(newName);
  FollowPath(program, wav.path, {name, Lower(wav.folder + "\\" + newName + ".wav")});
  Reported(program, {"frmTabs", "FollowRename"}, [&] { MoveDescription(program, wav.name, name); });
  RefreshDescriptionEditor(program);
}

void FollowMove(Program& program, const ListedWav& wav, const std::string& newPath) {
  FollowPath(program, wav.path, {wav.name, Lower(newPath)});
}

}  // namespace corvel
