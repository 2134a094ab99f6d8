#include "platform/win32/win32_files.h"

#include "base/error.h"
#include "base/text.h"
#include "platform/win32/file_errors.h"
#include "platform/win32/owned.h"
#include "platform/win32/replace_file.h"

#include <algorithm>
#include <cstring>

namespace corvel::win32 {
namespace {

constexpr std::size_t kLongestPath = 259;
constexpr std::uint32_t kSettable = file_attribute::kReadOnly | file_attribute::kHidden |
                                    file_attribute::kSystem | file_attribute::kArchive;
constexpr std::uint32_t kTold = kSettable | file_attribute::kFolder;

using FindHandle = Owned<HANDLE, FindClose>;

[[noreturn]] void Fail(int number) { throw RunTimeError(number); }

bool IsSlash(char c) { return c == '\\' || c == '/'; }

// The name behind the last slash that isn't at the end.
std::string LastName(std::string path) {
  while (!path.empty() && IsSlash(path.back())) path.pop_back();
  return path.substr(path.find_last_of("\\/:") + 1);
}

bool IsValidName(std::string_view name) {
  if (name.find_first_not_of(". ") == std::string_view::npos) return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' || std::strchr("<>:\"|?*", c) != nullptr;
  });
}

DWORD AttributesOf(const std::string& path) { return GetFileAttributesA(path.c_str()); }

bool IsFolderAt(const std::string& path) {
  const DWORD attributes = AttributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The path as the system takes it. What no file can be called is found here, since the system's
// releases differ in how they refuse it: some take "..." for a folder above.
std::string Checked(std::string_view path) {
  const std::string text(path.substr(0, path.find('\0')));
  if (text.size() > kLongestPath) Fail(err::kPathNotFound);
  const std::string name = LastName(text);
  if (name.empty()) Fail(err::kPathFileAccess);
  if (IsValidName(name)) return text;
  const auto parent = text.find_last_of("\\/:");
  if (parent == std::string::npos || IsFolderAt(text.substr(0, parent + 1)))
    Fail(err::kBadFileName);
  Fail(RunTimeErrorFor(ERROR_PATH_NOT_FOUND, text));
}

// The attributes of what can be written to; 0 if it is yet to be made.
DWORD CheckWritable(const std::string& path) {
  if (IsSlash(path.back())) Fail(RunTimeErrorFor(ERROR_PATH_NOT_FOUND, path));
  const DWORD attributes = AttributesOf(path);
  if (attributes == INVALID_FILE_ATTRIBUTES) return 0;
  if (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) Fail(err::kPathFileAccess);
  return attributes;
}

std::string FullPath(const std::string& path) {
  char full[MAX_PATH], *name = nullptr;
  const DWORD length = GetFullPathNameA(path.c_str(), sizeof full, full, &name);
  return length > 0 && length < sizeof full ? std::string(full, length) : path;
}

std::string ShortPathOf(const std::string& path) {
  char text[MAX_PATH];
  const DWORD length = GetShortPathNameA(path.c_str(), text, sizeof text);
  return length > 0 && length < sizeof text ? std::string(text, length) : std::string();
}

// True if both exist and are one: a short name is the same for all forms of a path.
bool IsSame(const std::string& a, const std::string& b) {
  const std::string shortPath = ShortPathOf(FullPath(a));
  return !shortPath.empty() && EqualNoCase(shortPath, ShortPathOf(FullPath(b)));
}

bool WriteAll(HANDLE file, std::string_view bytes) {
  DWORD written = 0;
  if (!WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr))
    return false;
  if (written == bytes.size()) return true;
  SetLastError(ERROR_DISK_FULL);
  return false;
}

// Overwrites a file of ours.
void WriteNew(const std::string& path, std::string_view bytes) {
  const OwnedHandle file(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file || !WriteAll(file.Get(), bytes) || !FlushFileBuffers(file.Get())) ThrowLastError(path);
}

void GiveAttributes(const std::string& path, DWORD attributes) {
  attributes &= kSettable;
  if (!SetFileAttributesA(path.c_str(), attributes ? attributes : FILE_ATTRIBUTE_NORMAL))
    ThrowLastError(path);
}

// To a name that differs in case only, which a single step may take for the same.
bool MoveInSteps(const std::string& source, const std::string& target) {
  const std::string between = source + '~';
  if (!MoveFileA(source.c_str(), between.c_str())) return false;
  if (MoveFileA(between.c_str(), target.c_str())) return true;
  const DWORD error = GetLastError();
  MoveFileA(between.c_str(), source.c_str());
  SetLastError(error);
  return false;
}

bool IsSelfOrParent(const WIN32_FIND_DATAA& found) {
  return std::strcmp(found.cFileName, ".") == 0 || std::strcmp(found.cFileName, "..") == 0;
}

FindHandle FindFirst(std::string_view pattern, WIN32_FIND_DATAA& found) {
  const std::string text(pattern.substr(0, pattern.find('\0')));
  if (text.empty() || text.size() > kLongestPath || IsSlash(text.back())) return {};
  return FindHandle(FindFirstFileA(text.c_str(), &found));
}

}  // namespace

Win32Files::Win32Files()
    : oldErrorMode_(SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX)) {}
Win32Files::~Win32Files() { SetErrorMode(oldErrorMode_); }

std::vector<FoundFile> Win32Files::Search(std::string_view pattern) {
  std::vector<FoundFile> files;
  WIN32_FIND_DATAA found;
  const FindHandle find = FindFirst(pattern, found);
  for (bool more = static_cast<bool>(find); more; more = FindNextFileA(find.Get(), &found))
    if (!IsSelfOrParent(found))
      files.push_back(
          {found.cFileName, static_cast<std::uint32_t>(found.dwFileAttributes) & kTold});
  return files;
}

bool Win32Files::Exists(std::string_view pattern) {
  WIN32_FIND_DATAA found;
  const FindHandle find = FindFirst(pattern, found);
  bool more = static_cast<bool>(find);
  while (more && IsSelfOrParent(found)) more = FindNextFileA(find.Get(), &found);
  return more;
}

bool Win32Files::IsFolder(std::string_view path) {
  return path.size() <= kLongestPath && IsFolderAt(std::string(path));
}

std::string Win32Files::Read(std::string_view path) {
  const std::string name = Checked(path);
  // The client keeps files of its own open for writing that we read.
  const OwnedHandle file(CreateFileA(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) ThrowLastError(name);
  DWORD high = 0, read = 0;
  const DWORD size = GetFileSize(file.Get(), &high);
  if (high != 0) Fail(err::kOutOfMemory);
  std::string bytes(size, '\0');
  if (!ReadFile(file.Get(), bytes.data(), size, &read, nullptr)) ThrowLastError(name);
  bytes.resize(read);
  return bytes;
}

void Win32Files::Write(std::string_view path, std::string_view bytes) {
  const std::string name = Checked(path);
  const DWORD attributes = CheckWritable(name);
  FileBeside beside(name);
  WriteNew(beside.Path(), bytes);
  GiveAttributes(beside.Path(), attributes | FILE_ATTRIBUTE_ARCHIVE);
  beside.Replace();
}

void Win32Files::Append(std::string_view path, std::string_view bytes) {
  const std::string name = Checked(path);
  CheckWritable(name);
  SetLastError(0);
  OwnedHandle file(CreateFileA(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_ALWAYS,
                               FILE_ATTRIBUTE_ARCHIVE, nullptr));
  const bool isNew = GetLastError() != ERROR_ALREADY_EXISTS;
  if (!file) ThrowLastError(name);
  const DWORD oldSize = SetFilePointer(file.Get(), 0, nullptr, FILE_END);
  if (WriteAll(file.Get(), bytes)) return;
  const DWORD error = GetLastError();
  SetFilePointer(file.Get(), static_cast<LONG>(oldSize), nullptr, FILE_BEGIN);
  SetEndOfFile(file.Get());
  file.Reset();
  if (isNew) DeleteFileA(name.c_str());
  Fail(RunTimeErrorFor(error, name));
}

void Win32Files::MakeFolder(std::string_view path) {
  const std::string name = Checked(path);
  if (CreateDirectoryA(name.c_str(), nullptr)) return;
  if (GetLastError() == ERROR_ALREADY_EXISTS) Fail(err::kPathFileAccess);
  ThrowLastError(name);
}

void Win32Files::Delete(std::string_view path) {
  const std::string name = Checked(path);
  CheckWritable(name);
  if (!DeleteFileA(name.c_str())) ThrowLastError(name);
}

void Win32Files::Copy(std::string_view from, std::string_view to) {
  const std::string source = Checked(from), target = Checked(to);
  const DWORD attributes = AttributesOf(source);
  if (attributes == INVALID_FILE_ATTRIBUTES) ThrowLastError(source);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) || IsSame(source, target)) Fail(err::kPathFileAccess);
  CheckWritable(target);
  FileBeside beside(target);
  if (!CopyFileA(source.c_str(), beside.Path().c_str(), FALSE)) ThrowLastError(source);
  GiveAttributes(beside.Path(), attributes);
  beside.Replace();
}

void Win32Files::Rename(std::string_view from, std::string_view to) {
  const std::string source = Checked(from), target = Checked(to);
  const std::string sourceInTarget = FullPath(target).substr(0, FullPath(source).size() + 1);
  if (EqualNoCase(sourceInTarget, FullPath(source) + '\\') && IsFolderAt(source))
    Fail(err::kPathFileAccess);
  const bool moved = IsSame(source, target) ? MoveInSteps(source, target)
                                            : MoveFileA(source.c_str(), target.c_str());
  if (!moved) ThrowLastError(source, target);
}

void Win32Files::SetAttributes(std::string_view path, std::uint32_t attributes) {
  GiveAttributes(Checked(path), attributes);
}

std::string Win32Files::ShortPath(std::string_view path) {
  return path.empty() ? std::string() : ShortPathOf(FullPath(std::string(path)));
}

DriveKind Win32Files::DriveKindOf(std::string_view path) { return KindOfDrive(path); }
int Win32Files::DriveState(std::string_view path) { return DriveStateOf(path); }

std::vector<std::string> Win32Files::Drives() {
  std::vector<std::string> drives;
  const DWORD present = GetLogicalDrives();
  for (int i = 0; i < 26; ++i)
    if (present >> i & 1) drives.push_back({static_cast<char>('a' + i), ':'});
  return drives;
}

}  // namespace corvel::win32
