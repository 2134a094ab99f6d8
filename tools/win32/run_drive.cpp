// The drive of a scenario run; see run_drive.h.
#include "tools/win32/run_drive.h"

#include "base/error.h"
#include "base/text.h"

#include <stdexcept>
#include <windows.h>

namespace corvel::tools {
namespace {

constexpr const char* kMark = "C:\\corvel-win.run";
constexpr const char* kRegistryTree = "Software\\QRV Software";
constexpr const char* kUsersFolders[] = {"C:\\Corvel", "C:\\AOL"};

std::string RootName(std::string_view path) {
  const std::string_view inside = path.substr(3);
  return Lower(inside.substr(0, inside.find('\\')));
}

}  // namespace

RunDrive::RunDrive(Platform& platform) : platform_(platform) {
  if (!platform_.files.Exists(kMark)) TakePossession();
  const std::string mark = platform_.files.Read(kMark);
  for (const std::string_view name : Lines(mark)) kept_.emplace(name);
  Clear();
}

RunDrive::~RunDrive() {
  try {
    Clear();
  } catch (const RunTimeError&) {  // the next run tries again
  }
}

void RunDrive::TakePossession() {
  bool used = platform_.registry.KeyExists(kRegistryTree);
  for (const char* folder : kUsersFolders) used = used || platform_.files.Exists(folder);
  if (used)
    throw std::runtime_error(
        "C:\\Corvel, C:\\AOL or the settings of a user stand here, and a scenario would empty "
        "them; use a machine, or a prefix, of its own");
  std::string names = Lower(std::string_view(kMark).substr(3)) + "\r\n";
  for (const FoundFile& found : platform_.files.Search("C:\\*"))
    names += Lower(found.name) + "\r\n";
  platform_.files.Write(kMark, names);
}

void RunDrive::Clear() {
  locks_.clear();
  for (const std::string& path : strewn_) Remove(path);
  strewn_.clear();
  for (const FoundFile& found : platform_.files.Search("C:\\*")) {
    if (kept_.contains(Lower(found.name))) continue;
    const std::string path = "C:\\" + found.name;
    if ((found.attributes & file_attribute::kFolder) != 0)
      DeleteTree(path);
    else
      Remove(path);
  }
  DeleteKeys(kRegistryTree);
}

void RunDrive::DeleteTree(const std::string& folder) {
  for (const FoundFile& found : platform_.files.Search(folder + "\\*")) {
    const std::string path = folder + "\\" + found.name;
    if ((found.attributes & file_attribute::kFolder) != 0)
      DeleteTree(path);
    else
      Remove(path);
  }
  RemoveDirectoryA(folder.c_str());
}

void RunDrive::DeleteKeys(const std::string& key) {
  const auto names = platform_.registry.SubKeyNames(key);
  if (!names) return;
  for (const std::string& name : *names) DeleteKeys(key + "\\" + name);
  platform_.registry.DeleteKey(key);
}

void RunDrive::MakeFoldersOf(std::string_view path) {
  for (auto at = path.find('\\', 3); at != path.npos; at = path.find('\\', at + 1))
    CreateDirectoryA(std::string(path.substr(0, at)).c_str(), nullptr);
}

void RunDrive::Put(std::string_view path, std::string_view bytes) {
  MakeFoldersOf(path);
  if (kept_.contains(RootName(path))) strewn_.emplace(path);
  platform_.files.Write(path, bytes);
}

void RunDrive::Remove(std::string_view path) {
  const std::string name(path);
  SetFileAttributesA(name.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileA(name.c_str());
}

std::optional<std::string> RunDrive::Peek(std::string_view path) {
  if (!platform_.files.Exists(path) || platform_.files.IsFolder(path)) return std::nullopt;
  try {
    return platform_.files.Read(path);
  } catch (const RunTimeError&) {  // somebody holds it; it is there, but can't be looked into
    return std::nullopt;
  }
}

void RunDrive::Lock(const std::string& path, bool locked) {
  locks_.erase(Lower(path));
  if (!locked) return;
  const HANDLE file =
      CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file != INVALID_HANDLE_VALUE) locks_[Lower(path)] = {file, CloseHandle};
}

}  // namespace corvel::tools
