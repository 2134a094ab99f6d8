#include "wavlib/wav_categories.h"

#include "base/error.h"
#include "base/text.h"
#include "wavlib/wav_name.h"

#include <algorithm>
#include <array>

namespace corvel {

std::vector<std::string> CategoryNames(Program& program) {
  CategoriesSettings& categories = program.settings.Categories;
  if (auto names = categories.Names()) return *names;
  categories.Write(kAolDirectory, program.g.AOLPath);
  categories.Write(kWindowsDirectory, program.g.WinDir);
  return categories.Names().value_or(std::vector<std::string>{});
}

std::string CategoryFolder(Program& program, std::string_view name) {
  if (name == kAolDirectory) return Lower(program.g.AOLPath);
  if (name == kWindowsDirectory) return Lower(program.g.WinDir);
  std::string folder = StoredFolder(program, name);
  if (folder.ends_with('\\')) folder.pop_back();
  return Lower(folder);
}

std::string StoredFolder(Program& program, std::string_view name) {
  return program.settings.Categories.Read(name);
}

void WriteCategory(Program& program, std::string_view name, std::string_view folder) {
  if (!program.settings.Categories.Write(name, folder))
    throw RunTimeError(err::kPathFileAccess);
}

bool IsClientSound(std::string_view name) {
  static constexpr std::array<std::string_view, 10> kSounds = {
      "welcome", "im",      "goodbye",  "filedone", "gotmail",
      "drop",    "buddyin", "buddyout", "inactive", "gotpics"};
  return std::find(kSounds.begin(), kSounds.end(), name) != kSounds.end();
}

std::vector<std::string> WavsIn(Program& program, const std::string& folder,
                                bool withoutClientSounds) {
  Files& files = program.platform.files;
  if (!files.IsFolder(folder)) throw RunTimeError(err::kPathNotFound);
  constexpr std::uint32_t kNotPlain =
      file_attribute::kFolder | file_attribute::kHidden | file_attribute::kSystem;
  std::vector<std::string> names;
  for (const FoundFile& file : files.Search(folder + "\\*.wav")) {
    if ((file.attributes & kNotPlain) != 0 || file.name.size() < kWavExtension) continue;
    std::string name = Lower(WithoutExtension(file.name));
    if (!withoutClientSounds || !IsClientSound(name)) names.push_back(std::move(name));
  }
  return names;
}

void CatsToReg(Program& program) {
  Files& files = program.platform.files;
  const std::string groups = program.InFolder("groups.dat");
  if (!files.Exists(groups)) return;
  const std::string bytes = files.Read(groups);
  for (const std::string_view line : Lines(bytes)) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) continue;
    const std::string name = Trim(line.substr(0, tab));
    if (name == kFavWavs) continue;
    program.settings.Categories.Write(name,
                           files.ReadProfile(program.InFolder("corvel32.ini"), "Catagories", name));
  }
}

}  // namespace corvel
