// The folders and files of the desk's drives: what is there, without rules about who may do what.
#pragma once

#include "platform/desk/desk_paths.h"
#include "platform/desk/named_list.h"
#include "platform/files.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace corvel::desk {

struct FileNode {
  bool folder = false;
  std::uint32_t attributes = 0;  // of namespace file_attribute; kFolder for a folder
  std::string bytes;
  bool locked = false;
  NamedList<std::unique_ptr<FileNode>> entries;  // of a folder

  static std::unique_ptr<FileNode> Folder();
  bool IsReadOnly() const;
};

struct Drive {
  DriveKind kind = DriveKind::kFixed;
  bool hasDisk = true;
  std::unique_ptr<FileNode> root = FileNode::Folder();
};

class FileTree {
 public:
  // nullptr where there is no such thing. The drive's state is not looked at.
  FileNode* Find(const DosPath& path);
  FileNode* FindParent(const DosPath& path);
  // Makes the folders that are missing; a file in their way becomes a folder.
  FileNode& MakeFolders(char drive, const std::vector<std::string_view>& names);

  std::map<char, Drive>& Drives() { return drives_; }  // by lower-case letter
  const std::map<char, Drive>& Drives() const { return drives_; }

 private:
  FileNode* Walk(const DosPath& path, std::size_t parts);

  std::map<char, Drive> drives_;
};

// The 8.3 form of the name of an entry, upper-case. The numbers of long names are dealt out in the
// order in which these came.
std::string ShortNameIn(const FileNode& folder, std::string_view name);
// Whether `node` or any file below it is locked.
bool HoldsLockedFile(const FileNode& node);
// The bytes of all files below `node`.
std::int64_t BytesIn(const FileNode& node);

}  // namespace corvel::desk
