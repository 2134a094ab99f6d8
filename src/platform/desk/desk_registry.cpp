// The desk's registry: a tree of keys in memory.
#include "base/text.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/named_list.h"

namespace corvel::desk {
namespace {

constexpr std::size_t kLongestName = 255;
constexpr std::string_view kProgramRoot = "Software\\QRV Software\\Corvel";

struct Key {
  NamedList<RegistryValue> values;
  NamedList<std::unique_ptr<Key>> subKeys;
};

// The system takes names as texts that end at a NUL.
std::string_view UpToNul(std::string_view text) { return text.substr(0, text.find('\0')); }

// Takes the next name off the front of a path, "" at its end.
std::string_view NextName(std::string_view& path) {
  while (!path.empty() && path.front() == '\\') path.remove_prefix(1);
  const std::string_view name = path.substr(0, path.find('\\'));
  path.remove_prefix(name.size());
  return name;
}

std::string Normalised(std::string_view path) {
  std::string result;
  for (std::string_view name; !(name = NextName(path)).empty();)
    result.append(result.empty() ? "" : "\\").append(name);
  return result;
}

// The part of a key's path below the program's own root; nothing if it lies elsewhere.
std::optional<std::string> ProgramSection(std::string_view path) {
  const std::string whole = Normalised(path);
  if (!EqualNoCase(std::string_view(whole).substr(0, kProgramRoot.size()), kProgramRoot))
    return std::nullopt;
  if (whole.size() == kProgramRoot.size()) return "";
  if (whole[kProgramRoot.size()] != '\\') return std::nullopt;
  return whole.substr(kProgramRoot.size() + 1);
}

template <typename T>
std::vector<std::string> NamesOf(const NamedList<T>& list) {
  std::vector<std::string> names;
  names.reserve(list.Size());
  for (const auto& item : list) names.push_back(item.name);
  return names;
}

}  // namespace

struct DeskRegistry::Impl {
  Desk& desk;
  Key root{};
  bool failWrites = false;

  Key* Open(std::string_view path) {
    path = UpToNul(path);
    Key* key = &root;
    for (std::string_view name; !(name = NextName(path)).empty();) {
      const auto* item = key->subKeys.Find(name);
      if (!item) return nullptr;
      key = item->value.get();
    }
    return key;
  }

  // nullptr if a name of the path is too long; then nothing is made.
  Key* Make(std::string_view path) {
    path = UpToNul(path);
    std::string_view rest = path;
    for (std::string_view name; !(name = NextName(rest)).empty();)
      if (name.size() > kLongestName) return nullptr;
    Key* key = &root;
    for (std::string_view name; !(name = NextName(path)).empty();) {
      auto* item = key->subKeys.Find(name);
      if (!item) item = &key->subKeys.Add(name, std::make_unique<Key>());
      key = item->value.get();
    }
    return key;
  }

  void Note(std::string_view kind, std::string_view path, std::vector<std::string> words) {
    auto section = ProgramSection(UpToNul(path));
    if (!section) return;
    words.insert(words.begin(), std::move(*section));
    desk.Note(kind, std::move(words));
  }
};

DeskRegistry::DeskRegistry(Desk& desk) : impl_(new Impl{.desk = desk}) {}
DeskRegistry::~DeskRegistry() = default;

std::optional<RegistryValue> DeskRegistry::Read(std::string_view key, std::string_view name,
                                                std::size_t room) {
  const Key* opened = impl_->Open(key);
  const auto* item = opened ? opened->values.Find(UpToNul(name)) : nullptr;
  if (!item || item->value.bytes.size() > room) return std::nullopt;
  return item->value;
}

bool DeskRegistry::Write(std::string_view key, std::string_view name, const RegistryValue& value) {
  name = UpToNul(name);
  if (impl_->failWrites || name.size() > kLongestName) return false;
  Key* made = impl_->Make(key);
  if (!made) return false;
  if (auto* item = made->values.Find(name))
    item->value = value;
  else
    made->values.Add(name, value);
  if (value.type == ValueType::kText || value.type == ValueType::kExpandText)
    impl_->Note("setting", key, {std::string(name), CutAtNul(value.bytes)});
  return true;
}

bool DeskRegistry::DeleteValue(std::string_view key, std::string_view name) {
  name = UpToNul(name);
  Key* opened = impl_->failWrites ? nullptr : impl_->Open(key);
  if (!opened || !opened->values.Find(name)) return false;
  opened->values.Take(name);
  impl_->Note("setting-deleted", key, {std::string(name)});
  return true;
}

bool DeskRegistry::DeleteKey(std::string_view key) {
  const std::string path = Normalised(UpToNul(key));
  Key* parent = impl_->failWrites || path.empty() ? nullptr : impl_->Open(FolderOf(path));
  const std::string name = FileNameOf(path);
  if (!parent || !parent->subKeys.Find(name)) return false;
  parent->subKeys.Take(name);
  impl_->Note("setting-deleted", path, {""});
  return true;
}

bool DeskRegistry::KeyExists(std::string_view key) { return impl_->Open(key) != nullptr; }

std::optional<std::vector<std::string>> DeskRegistry::ValueNames(std::string_view key) {
  const Key* opened = impl_->Open(key);
  if (!opened) return std::nullopt;
  return NamesOf(opened->values);
}

std::optional<std::vector<std::string>> DeskRegistry::SubKeyNames(std::string_view key) {
  const Key* opened = impl_->Open(key);
  if (!opened) return std::nullopt;
  return NamesOf(opened->subKeys);
}

void DeskRegistry::FailWrites(bool fail) { impl_->failWrites = fail; }

}  // namespace corvel::desk
