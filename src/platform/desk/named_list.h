// Things with names that are compared without case and keep the order in which they came: the
// values of a registry key, the entries of a folder.
#pragma once

#include "base/cp1252.h"
#include "base/text.h"

#include <cstdint>
#include <iterator>
#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace corvel::desk {

// Finding, adding and removing cost the same however long the list is. T may be an incomplete type
// behind a pointer.
template <typename T>
class NamedList {
 public:
  struct Item {
    std::string name;
    std::string lowerName;  // kept so that patterns can be matched fast
    T value;
  };

  NamedList() = default;
  NamedList(const NamedList&) = delete;  // the index points into the items
  NamedList& operator=(const NamedList&) = delete;

  Item* Find(std::string_view name) {
    const auto found = places_.find(name);
    return found == places_.end() ? nullptr : &*found->second;
  }
  const Item* Find(std::string_view name) const { return const_cast<NamedList*>(this)->Find(name); }

  // At the end of the list; the name must not be there yet.
  Item& Add(std::string_view name, T value) {
    Item& item = items_.emplace_back(Item{std::string(name), Lower(name), std::move(value)});
    places_.emplace(item.lowerName, std::prev(items_.end()));
    return item;
  }

  // Takes the item of that name, which must be there, out of the list.
  T Take(std::string_view name) {
    const auto found = places_.find(name);
    const auto item = found->second;
    T value = std::move(item->value);
    places_.erase(found);
    items_.erase(item);
    return value;
  }

  std::size_t Size() const { return items_.size(); }

  // The items, in the order of adding.
  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  struct Hash {
    std::size_t operator()(std::string_view name) const {
      std::uint64_t hash = 14695981039346656037u;
      for (const char c : name)
        hash = (hash ^ static_cast<unsigned char>(LowerChar(c))) * 1099511628211u;
      return static_cast<std::size_t>(hash);
    }
  };
  struct Equal {
    bool operator()(std::string_view a, std::string_view b) const { return EqualNoCase(a, b); }
  };

  std::list<Item> items_;
  std::unordered_map<std::string_view, typename std::list<Item>::iterator, Hash, Equal> places_;
};

}  // namespace corvel::desk
