// The desk's drives: the rules of the file system over the tree of files, faults included.
#include "base/cp1252.h"
#include "base/error.h"
#include "base/text.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/file_faults.h"
#include "platform/desk/file_tree.h"
#include "platform/desk/profile_text.h"

#include <algorithm>
#include <utility>

namespace corvel::desk {
namespace {

constexpr std::uint32_t kSettable = file_attribute::kReadOnly | file_attribute::kHidden |
                                    file_attribute::kSystem | file_attribute::kArchive;

[[noreturn]] void Fail(int number) { throw RunTimeError(number); }

}  // namespace

struct DeskFiles::Impl {
  Desk& desk;
  FileTree tree{};
  FileFaults faults{};

  // 0, or the error number of every use of the drive.
  int StateOf(char drive) const {
    const auto found = tree.Drives().find(drive);
    if (found == tree.Drives().end()) return err::kDeviceUnavailable;
    return found->second.hasDisk ? 0 : err::kDiskNotReady;
  }

  // The path taken apart; throws where no file can be, whatever its name: the drive, the length.
  DosPath Parse(std::string_view path) const {
    DosPath parsed = ParsePath(path);
    if (const int state = StateOf(parsed.drive)) Fail(state);
    if (path.size() > kLongestPath) Fail(err::kPathNotFound);
    return parsed;
  }

  // The folder that holds the path's last name, which is a valid one.
  FileNode& ParentOf(const DosPath& path) {
    if (path.parts.empty()) Fail(err::kPathFileAccess);  // the drive's root, or ""
    FileNode* parent = tree.FindParent(path);
    if (!parent) Fail(err::kPathNotFound);
    if (!IsValidName(path.parts.back())) Fail(err::kBadFileName);
    return *parent;
  }

  // An existing file that no one holds open.
  FileNode& OpenFile(const DosPath& path) {
    const auto* item = ParentOf(path).entries.Find(path.parts.back());
    if (!item) Fail(err::kFileNotFound);
    if (item->value->folder) Fail(err::kPathFileAccess);
    if (item->value->locked) Fail(err::kPermissionDenied);
    return *item->value;
  }

  void CheckWritable(const FileNode& node) {
    if (node.folder || node.IsReadOnly()) Fail(err::kPathFileAccess);
    if (node.locked) Fail(err::kPermissionDenied);
  }

  // The file to write to, made if missing, after all checks. So many more bytes must find room
  // beside what is there already.
  FileNode& WritableFile(const DosPath& path, std::int64_t room) {
    if (path.endsInSlash) Fail(err::kPathNotFound);
    FileNode& parent = ParentOf(path);
    auto* item = parent.entries.Find(path.parts.back());
    if (item) CheckWritable(*item->value);
    if (!faults.HasRoom(room)) Fail(err::kDiskFull);
    if (!item) item = &parent.entries.Add(path.parts.back(), std::make_unique<FileNode>());
    item->value->attributes |= file_attribute::kArchive;
    return *item->value;
  }

  void SetBytes(FileNode& file, std::string bytes) {
    faults.Changed(file.bytes.size(), bytes.size());
    file.bytes = std::move(bytes);
  }

  void Write(std::string_view path, std::string bytes) {
    const auto size = static_cast<std::int64_t>(bytes.size());
    SetBytes(WritableFile(Parse(path), size), std::move(bytes));
    desk.Note("file", {std::string(path)});
  }

  bool IsSame(const DosPath& a, const DosPath& b) {
    const FileNode* node = tree.Find(a);
    return node && node == tree.Find(b);
  }
};

DeskFiles::DeskFiles(Desk& desk) : impl_(new Impl{.desk = desk}) {
  SetDrive('A', DriveKind::kFloppy, false);
  PutFolder("C:\\WINDOWS\\SYSTEM");
}
DeskFiles::~DeskFiles() = default;

std::vector<FoundFile> DeskFiles::Search(std::string_view pattern) {
  std::vector<FoundFile> found;
  const DosPath path = ParsePath(pattern);
  const FileNode* folder = impl_->StateOf(path.drive) == 0 ? impl_->tree.FindParent(path) : nullptr;
  if (!folder || path.endsInSlash || pattern.size() > kLongestPath) return found;
  if (!HasWildCards(path.parts.back())) {
    if (const auto* item = folder->entries.Find(path.parts.back()))
      found.push_back({item->name, item->value->attributes});
    return found;
  }
  const std::string lowerPattern = Lower(path.parts.back());
  for (const auto& item : folder->entries)
    if (MatchesWildCards(lowerPattern, item.lowerName))
      found.push_back({item.name, item.value->attributes});
  return found;
}

bool DeskFiles::Exists(std::string_view pattern) {
  const DosPath path = ParsePath(pattern);
  const FileNode* folder = impl_->StateOf(path.drive) == 0 ? impl_->tree.FindParent(path) : nullptr;
  if (!folder || path.endsInSlash || pattern.size() > kLongestPath) return false;
  if (!HasWildCards(path.parts.back())) return folder->entries.Find(path.parts.back()) != nullptr;
  const std::string lowerPattern = Lower(path.parts.back());
  return std::any_of(folder->entries.begin(), folder->entries.end(), [&](const auto& entry) {
    return MatchesWildCards(lowerPattern, entry.lowerName);
  });
}

bool DeskFiles::IsFolder(std::string_view path) {
  const DosPath parsed = ParsePath(path);
  const FileNode* node = impl_->StateOf(parsed.drive) == 0 ? impl_->tree.Find(parsed) : nullptr;
  return !path.empty() && node && node->folder;
}

std::string DeskFiles::Read(std::string_view path) {
  impl_->faults.Begin(path);
  return impl_->OpenFile(impl_->Parse(path)).bytes;
}

void DeskFiles::Write(std::string_view path, std::string_view bytes) {
  impl_->faults.Begin(path);
  impl_->Write(path, std::string(bytes));
}

void DeskFiles::Append(std::string_view path, std::string_view bytes) {
  impl_->faults.Begin(path);
  const auto size = static_cast<std::int64_t>(bytes.size());
  impl_->WritableFile(impl_->Parse(path), size).bytes.append(bytes);
  impl_->faults.Changed(0, bytes.size());
  impl_->desk.Note("file", {std::string(path)});
}

void DeskFiles::MakeFolder(std::string_view path) {
  impl_->faults.Begin(path);
  const DosPath parsed = impl_->Parse(path);
  FileNode& parent = impl_->ParentOf(parsed);
  if (parent.entries.Find(parsed.parts.back())) Fail(err::kPathFileAccess);
  parent.entries.Add(parsed.parts.back(), FileNode::Folder());
}

void DeskFiles::Delete(std::string_view path) {
  impl_->faults.Begin(path);
  const DosPath parsed = impl_->Parse(path);
  FileNode& file = impl_->OpenFile(parsed);
  impl_->CheckWritable(file);
  impl_->faults.Changed(file.bytes.size(), 0);
  impl_->ParentOf(parsed).entries.Take(parsed.parts.back());
  impl_->desk.Note("file-deleted", {std::string(path)});
}

void DeskFiles::Copy(std::string_view from, std::string_view to) {
  impl_->faults.Begin(from, to);
  const DosPath source = impl_->Parse(from), target = impl_->Parse(to);
  const FileNode& file = impl_->OpenFile(source);
  if (impl_->IsSame(source, target)) Fail(err::kPathFileAccess);
  const auto size = static_cast<std::int64_t>(file.bytes.size());
  FileNode& copy = impl_->WritableFile(target, size);
  impl_->SetBytes(copy, file.bytes);
  copy.attributes = file.attributes;
  impl_->desk.Note("file", {std::string(to)});
}

void DeskFiles::Rename(std::string_view from, std::string_view to) {
  impl_->faults.Begin(from, to);
  const DosPath source = impl_->Parse(from), target = impl_->Parse(to);
  FileNode& oldParent = impl_->ParentOf(source);
  const FileNode* node = impl_->tree.Find(source);
  if (!node) Fail(err::kFileNotFound);
  FileNode& newParent = impl_->ParentOf(target);
  if (newParent.entries.Find(target.parts.back()) && !impl_->IsSame(source, target))
    Fail(err::kFileExists);
  if (HoldsLockedFile(*node)) Fail(err::kPermissionDenied);
  const bool intoItself =
      target.drive == source.drive && target.parts.size() > source.parts.size() &&
      std::equal(source.parts.begin(), source.parts.end(), target.parts.begin(), EqualNoCase);
  if (intoItself || (node->folder && source.drive != target.drive)) Fail(err::kPathFileAccess);
  newParent.entries.Add(target.parts.back(), oldParent.entries.Take(source.parts.back()));
  impl_->desk.Note("file", {std::string(to)});
}

void DeskFiles::SetAttributes(std::string_view path, std::uint32_t attributes) {
  impl_->faults.Begin(path);
  const DosPath parsed = impl_->Parse(path);
  const auto* item = impl_->ParentOf(parsed).entries.Find(parsed.parts.back());
  if (!item) Fail(err::kFileNotFound);
  item->value->attributes =
      (item->value->attributes & file_attribute::kFolder) | (attributes & kSettable);
}

std::string DeskFiles::ShortPath(std::string_view path) {
  const DosPath parsed = ParsePath(path);
  if (path.empty() || impl_->StateOf(parsed.drive) != 0 || !impl_->tree.Find(parsed)) return "";
  std::string result{UpperChar(parsed.drive), ':'};
  DosPath folder;
  folder.drive = parsed.drive;
  for (const std::string_view name : parsed.parts) {
    result += '\\' + ShortNameIn(*impl_->tree.Find(folder), name);
    folder.parts.push_back(name);
  }
  return parsed.parts.empty() || parsed.endsInSlash ? result + '\\' : result;
}

DriveKind DeskFiles::DriveKindOf(std::string_view path) {
  const auto found = impl_->tree.Drives().find(ParsePath(path).drive);
  return found == impl_->tree.Drives().end() ? DriveKind::kNone : found->second.kind;
}

int DeskFiles::DriveState(std::string_view path) {
  return impl_->StateOf(ParsePath(path).drive) == 0 ? 0 : err::kDeviceUnavailable;
}

std::vector<std::string> DeskFiles::Drives() {
  std::vector<std::string> drives;
  for (const auto& [letter, drive] : impl_->tree.Drives())
    drives.push_back(std::string(1, letter) + ':');
  return drives;
}

void DeskFiles::Put(std::string_view path, std::string_view bytes, std::uint32_t attributes) {
  DosPath parsed = ParsePath(path);
  const std::string_view name = parsed.parts.back();
  parsed.parts.pop_back();
  auto& entries = impl_->tree.MakeFolders(parsed.drive, parsed.parts).entries;
  auto* item = entries.Find(name);
  if (!item) item = &entries.Add(name, nullptr);
  item->value = std::make_unique<FileNode>();
  item->value->bytes = bytes;
  item->value->attributes = attributes;
}

void DeskFiles::PutFolder(std::string_view path) {
  const DosPath parsed = ParsePath(path);
  impl_->tree.MakeFolders(parsed.drive, parsed.parts);
}

bool DeskFiles::TakeAway(std::string_view path) {
  const DosPath parsed = ParsePath(path);
  const FileNode* file = impl_->StateOf(parsed.drive) == 0 ? impl_->tree.Find(parsed) : nullptr;
  if (!file || file->folder || file->locked) return false;
  Remove(path);
  return true;
}

void DeskFiles::Remove(std::string_view path) {
  const DosPath parsed = ParsePath(path);
  FileNode* parent = impl_->tree.FindParent(parsed);
  if (!parent || !parent->entries.Find(parsed.parts.back())) return;
  const auto node = parent->entries.Take(parsed.parts.back());
  impl_->faults.Changed(static_cast<std::size_t>(BytesIn(*node)), 0);
}

std::optional<std::string> DeskFiles::Peek(std::string_view path) const {
  const FileNode* file = impl_->tree.Find(ParsePath(path));
  if (!file || file->folder) return std::nullopt;
  return file->bytes;
}

namespace {

void CollectPaths(const FileNode& folder, const std::string& path,
                  std::vector<std::string>& result) {
  for (const auto& item : folder.entries) {
    const std::string own = path + '\\' + item.name;
    if (item.value->folder)
      CollectPaths(*item.value, own, result);
    else
      result.push_back(own);
  }
}

}  // namespace

std::vector<std::string> DeskFiles::AllPaths() const {
  std::vector<std::string> paths;
  for (const auto& [letter, drive] : impl_->tree.Drives())
    CollectPaths(*drive.root, {UpperChar(letter), ':'}, paths);
  std::sort(paths.begin(), paths.end());
  return paths;
}

void DeskFiles::SetFreeSpace(std::int64_t bytes) { impl_->faults.SetFreeSpace(bytes); }

std::optional<std::string> DeskFiles::ReadByOther(std::string_view path) const {
  const DosPath parsed = ParsePath(path);
  const FileNode* file = impl_->StateOf(parsed.drive) == 0 ? impl_->tree.Find(parsed) : nullptr;
  if (!file || file->folder || file->locked) return std::nullopt;
  return file->bytes;
}

void DeskFiles::SetDrive(char letter, DriveKind kind, bool hasDisk) {
  Drive& drive = impl_->tree.Drives()[LowerChar(letter)];
  drive.kind = kind;
  drive.hasDisk = hasDisk;
}

void DeskFiles::Lock(std::string_view path, bool locked) {
  if (FileNode* file = impl_->tree.Find(ParsePath(path))) file->locked = locked;
}

void DeskFiles::FailCall(int n, int errorNumber, std::string part) {
  impl_->faults.FailCall(n, errorNumber, std::move(part));
}

std::size_t DeskFiles::FaultsPending() const { return impl_->faults.Pending(); }

std::string DeskFiles::ReadProfile(std::string_view path, std::string_view section,
                                   std::string_view key) {
  const std::string whole = ProfilePath(path, "C:\\WINDOWS");
  const DosPath parsed = ParsePath(whole);
  const FileNode* file = impl_->StateOf(parsed.drive) == 0 ? impl_->tree.Find(parsed) : nullptr;
  if (!file || file->folder || file->locked) return "";
  return std::string(ProfileValue(file->bytes, section, key).value_or(""));
}

bool DeskFiles::WriteProfile(std::string_view path, std::string_view section, std::string_view key,
                             std::optional<std::string_view> value) {
  const std::string whole = ProfilePath(path, "C:\\WINDOWS");
  try {
    impl_->faults.Begin(whole);
    const DosPath parsed = impl_->Parse(whole);
    const FileNode* file = impl_->tree.Find(parsed);
    const std::string_view old = file ? std::string_view(file->bytes) : "";
    std::string text = WithProfileValue(old, section, key, value);
    if (!value && text == old) return true;
    if (text.size() > kLargestProfile) return false;
    impl_->Write(whole, std::move(text));
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace corvel::desk
