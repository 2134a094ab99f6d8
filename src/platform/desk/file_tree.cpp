// The folders and files of the desk's drives.
#include "platform/desk/file_tree.h"

#include "platform/files.h"

#include <algorithm>

namespace corvel::desk {

std::unique_ptr<FileNode> FileNode::Folder() {
  auto node = std::make_unique<FileNode>();
  node->folder = true;
  node->attributes = file_attribute::kFolder;
  return node;
}

bool FileNode::IsReadOnly() const { return (attributes & file_attribute::kReadOnly) != 0; }

FileNode* FileTree::Walk(const DosPath& path, std::size_t parts) {
  const auto drive = drives_.find(path.drive);
  if (drive == drives_.end()) return nullptr;
  FileNode* node = drive->second.root.get();
  for (std::size_t i = 0; i < parts; ++i) {
    auto* item = node->folder ? node->entries.Find(path.parts[i]) : nullptr;
    if (!item) return nullptr;
    node = item->value.get();
  }
  return node;
}

FileNode* FileTree::Find(const DosPath& path) { return Walk(path, path.parts.size()); }

FileNode* FileTree::FindParent(const DosPath& path) {
  if (path.parts.empty()) return nullptr;
  FileNode* parent = Walk(path, path.parts.size() - 1);
  return parent && parent->folder ? parent : nullptr;
}

FileNode& FileTree::MakeFolders(char drive, const std::vector<std::string_view>& names) {
  FileNode* node = drives_[drive].root.get();
  for (const std::string_view name : names) {
    auto* item = node->entries.Find(name);
    if (!item) item = &node->entries.Add(name, FileNode::Folder());
    if (!item->value->folder) item->value = FileNode::Folder();
    node = item->value.get();
  }
  return *node;
}

std::string ShortNameIn(const FileNode& folder, std::string_view name) {
  ShortNames names([&](std::string_view made) { return folder.entries.Find(made) != nullptr; });
  if (const auto already = names.IfShort(name)) return *already;
  for (const auto& item : folder.entries) {
    std::string made = names.For(item.name);
    if (EqualNoCase(item.name, name)) return made;
  }
  return "";
}

bool HoldsLockedFile(const FileNode& node) {
  return node.locked ||
         std::any_of(node.entries.begin(), node.entries.end(),
                     [](const auto& entry) { return HoldsLockedFile(*entry.value); });
}

std::int64_t BytesIn(const FileNode& node) {
  auto bytes = static_cast<std::int64_t>(node.bytes.size());
  for (const auto& item : node.entries) bytes += BytesIn(*item.value);
  return bytes;
}

}  // namespace corvel::desk
