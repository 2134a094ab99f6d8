// The drives of a scenario; see scripted_files.h.
#include "tools/scripted_files.h"

#include "base/cp1252.h"
#include "base/error.h"
#include "base/text.h"
#include "platform/desk/profile_text.h"

namespace corvel::tools {
namespace {

constexpr char kSystemDrive = 'c';
constexpr const char* kDriveFolders = "C:\\DRIVES";

// A path without one is on C.
char LetterOf(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' ? LowerChar(path[0]) : kSystemDrive;
}

std::string FolderFor(char letter) { return std::string(kDriveFolders) + '\\' + UpperChar(letter); }

}  // namespace

ScriptedDrives DrivesOfEveryMachine() {
  return {{'a', {DriveKind::kFloppy, false}}, {kSystemDrive, {}}};
}

void AddDrive(Files& home, ScriptedDrives& drives, char letter, ScriptedDrive drive) {
  drives[LowerChar(letter)] = drive;
  for (const std::string& folder : {std::string(kDriveFolders), FolderFor(letter)})
    if (!home.IsFolder(folder)) home.MakeFolder(folder);
}

std::string RealPath(std::string_view path) {
  const char letter = LetterOf(path);
  if (letter == kSystemDrive) return std::string(path);
  const std::string_view inside = path.substr(2);
  return FolderFor(letter) + (inside.starts_with('\\') ? "" : "\\") + std::string(inside);
}

int ScriptedFiles::StateOf(std::string_view path) const {
  const auto drive = drives_.find(LetterOf(path));
  if (drive == drives_.end()) return err::kDeviceUnavailable;
  return drive->second.hasDisk ? 0 : err::kDiskNotReady;
}

std::string ScriptedFiles::Reached(std::string_view path) const {
  if (const int state = StateOf(path)) throw RunTimeError(state);
  return RealPath(path);
}

std::vector<FoundFile> ScriptedFiles::Search(std::string_view pattern) {
  return StateOf(pattern) == 0 ? home_.Search(RealPath(pattern)) : std::vector<FoundFile>{};
}

bool ScriptedFiles::Exists(std::string_view pattern) {
  return StateOf(pattern) == 0 && home_.Exists(RealPath(pattern));
}

bool ScriptedFiles::IsFolder(std::string_view path) {
  return StateOf(path) == 0 && home_.IsFolder(RealPath(path));
}

std::size_t ScriptedFiles::SizeOf(std::string_view path) {
  if (!Exists(path) || IsFolder(path)) return 0;
  try {
    return home_.Read(RealPath(path)).size();
  } catch (const RunTimeError&) {
    return 0;
  }
}

// A file that can't be written to says so, on a full drive too: writing nothing finds it out.
void ScriptedFiles::CheckRoom(std::string_view path, std::size_t bytes) {
  if (faults_.HasRoom(static_cast<std::int64_t>(bytes))) return;
  const bool isNew = !Exists(path);
  home_.Append(Reached(path), "");
  if (isNew) home_.Delete(Reached(path));
  throw RunTimeError(err::kDiskFull);
}

std::string ScriptedFiles::Read(std::string_view path) {
  faults_.Begin(path);
  return home_.Read(Reached(path));
}

void ScriptedFiles::Write(std::string_view path, std::string_view bytes) {
  faults_.Begin(path);
  const std::string real = Reached(path);
  CheckRoom(path, bytes.size());
  const std::size_t before = SizeOf(path);
  home_.Write(real, bytes);
  faults_.Changed(before, bytes.size());
}

void ScriptedFiles::Append(std::string_view path, std::string_view bytes) {
  faults_.Begin(path);
  const std::string real = Reached(path);
  CheckRoom(path, bytes.size());
  home_.Append(real, bytes);
  faults_.Changed(0, bytes.size());
}

void ScriptedFiles::MakeFolder(std::string_view path) {
  faults_.Begin(path);
  home_.MakeFolder(Reached(path));
}

void ScriptedFiles::Delete(std::string_view path) {
  faults_.Begin(path);
  const std::string real = Reached(path);
  const std::size_t before = SizeOf(path);
  home_.Delete(real);
  faults_.Changed(before, 0);
}

void ScriptedFiles::Copy(std::string_view from, std::string_view to) {
  faults_.Begin(from, to);
  const std::string source = Reached(from), target = Reached(to);
  const std::size_t size = SizeOf(from), before = SizeOf(to);
  if (!faults_.HasRoom(static_cast<std::int64_t>(size))) {
    home_.Read(source);  // what can't be read can't be copied, whatever the room
    CheckRoom(to, size);
  }
  home_.Copy(source, target);
  faults_.Changed(before, size);
}

void ScriptedFiles::Rename(std::string_view from, std::string_view to) {
  faults_.Begin(from, to);
  const std::string source = Reached(from), target = Reached(to);
  if (LetterOf(from) != LetterOf(to) && home_.IsFolder(source))
    throw RunTimeError(err::kPathFileAccess);  // a folder stays on its drive
  home_.Rename(source, target);
}

void ScriptedFiles::SetAttributes(std::string_view path, std::uint32_t attributes) {
  faults_.Begin(path);
  home_.SetAttributes(Reached(path), attributes);
}

std::string ScriptedFiles::ShortPath(std::string_view path) {
  const std::string found = StateOf(path) == 0 ? home_.ShortPath(RealPath(path)) : "";
  const char letter = LetterOf(path);
  if (found.empty() || letter == kSystemDrive) return found;
  return std::string{UpperChar(letter), ':'} + found.substr(FolderFor(letter).size());
}

DriveKind ScriptedFiles::DriveKindOf(std::string_view path) {
  const auto drive = drives_.find(LetterOf(path));
  return drive == drives_.end() ? DriveKind::kNone : drive->second.kind;
}

int ScriptedFiles::DriveState(std::string_view path) {
  return StateOf(path) == 0 ? 0 : err::kDeviceUnavailable;
}

std::vector<std::string> ScriptedFiles::Drives() {
  std::vector<std::string> drives;
  for (const auto& [letter, drive] : drives_) drives.push_back({letter, ':'});
  return drives;
}

std::string ScriptedFiles::ReadProfile(std::string_view path, std::string_view section,
                                       std::string_view key) {
  return StateOf(path) == 0 ? home_.ReadProfile(RealPath(path), section, key) : "";
}

bool ScriptedFiles::WriteProfile(std::string_view path, std::string_view section,
                                 std::string_view key, std::optional<std::string_view> value) {
  const std::string whole = desk::ProfilePath(path, "C:\\WINDOWS");
  try {
    faults_.Begin(whole);
    const std::string real = Reached(whole);
    const std::string old = SizeOf(whole) > 0 ? home_.Read(real) : "";
    const std::size_t size = desk::WithProfileValue(old, section, key, value).size();
    if (!faults_.HasRoom(static_cast<std::int64_t>(size))) return false;
    if (!home_.WriteProfile(real, section, key, value)) return false;
    faults_.Changed(old.size(), size);
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace corvel::tools
