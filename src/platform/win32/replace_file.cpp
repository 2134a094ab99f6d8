#include "platform/win32/replace_file.h"

#include "base/text.h"
#include "platform/win32/file_errors.h"
#include "platform/win32/owned.h"

namespace corvel::win32 {
namespace {

using FindHandle = Owned<HANDLE, FindClose>;

std::string FolderWithSlash(const std::string& path) {
  return path.substr(0, path.find_last_of("\\/:") + 1);
}

// The path with its last name as it stands on the drive.
std::string AsOnDrive(const std::string& path) {
  WIN32_FIND_DATAA found;
  const FindHandle find(FindFirstFileA(path.c_str(), &found));
  return find ? FolderWithSlash(path) + found.cFileName : path;
}

std::string NewNameIn(const std::string& target) {
  const std::string folder = FolderWithSlash(target);
  char path[MAX_PATH];
  if (!GetTempFileNameA(folder.empty() ? "." : folder.c_str(), "cvl", 0, path))
    ThrowLastError(target);
  return path;
}

// The system refuses access to a file that is open elsewhere in the same words as to one that is
// barred to us.
[[noreturn]] void ThrowRefusal(const std::string& path) {
  const DWORD error = GetLastError();
  const OwnedHandle alone(
      CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  const bool isOpen = !alone && GetLastError() == ERROR_SHARING_VIOLATION;
  SetLastError(isOpen ? ERROR_SHARING_VIOLATION : error);
  ThrowLastError(path);
}

using MoveFileExFunction = BOOL(WINAPI*)(LPCSTR, LPCSTR, DWORD);

// Windows 95 and 98 export the call too, and it fails there.
MoveFileExFunction FindMoveFileEx() {
  OSVERSIONINFOA version{};
  version.dwOSVersionInfoSize = sizeof version;
  GetVersionExA(&version);
  if (version.dwPlatformId != VER_PLATFORM_WIN32_NT) return nullptr;
  const FARPROC address = GetProcAddress(GetModuleHandleA("kernel32.dll"), "MoveFileExA");
  return reinterpret_cast<MoveFileExFunction>(reinterpret_cast<void*>(address));
}

}  // namespace

FileBeside::FileBeside(const std::string& target)
    : target_(AsOnDrive(target)), path_(NewNameIn(target)) {}

FileBeside::~FileBeside() {
  if (path_.empty()) return;
  SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileA(path_.c_str());
}

void FileBeside::Replace() {
  if (ReplaceAtOnce())
    path_.clear();
  else
    ReplaceInSteps();
}

bool FileBeside::ReplaceAtOnce() const {
  static const MoveFileExFunction kMoveFileEx = FindMoveFileEx();
  if (!kMoveFileEx) return false;
  if (!kMoveFileEx(path_.c_str(), target_.c_str(), MOVEFILE_REPLACE_EXISTING))
    ThrowRefusal(target_);
  return true;
}

void FileBeside::ReplaceInSteps() {
  const std::string aside = path_.substr(0, path_.rfind('.')) + ".old";
  const bool isThere = GetFileAttributesA(target_.c_str()) != INVALID_FILE_ATTRIBUTES;
  if (isThere && !MoveFileA(target_.c_str(), aside.c_str())) ThrowRefusal(target_);
  if (!MoveFileA(path_.c_str(), target_.c_str())) {
    const DWORD error = GetLastError();
    if (isThere) MoveFileA(aside.c_str(), target_.c_str());
    SetLastError(error);
    ThrowLastError(target_);
  }
  path_.clear();
  if (!isThere) return;
  SetFileAttributesA(aside.c_str(), FILE_ATTRIBUTE_NORMAL);
  DeleteFileA(aside.c_str());
}

}  // namespace corvel::win32
