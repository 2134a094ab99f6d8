#include "practice/controls/row_list.h"

#include "practice/controls/markup.h"
#include "practice/controls/window_host.h"

#include <utility>

namespace corvel::practice {
namespace {

constexpr std::size_t kPointerAt = 24;
constexpr std::size_t kNameAt = 6;
constexpr std::size_t kNameBytes = 16;
constexpr MessageId kAddString = 0x0180, kDeleteString = 0x0182;

std::string LittleEndian(std::uint32_t number) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
  return bytes;
}

}  // namespace

RowMemory::RowMemory(OwnMemory& memory, std::string_view name)
    : memory_(&memory), name_(name.substr(0, kNameBytes)) {
  std::string record(kNameAt, '\0');
  record += name_;
  record.resize(kNameAt + kNameBytes + 1, '\0');
  record_ = memory.Allocate(record);
  data_ = memory.Allocate(std::string(kPointerAt, '\0') + LittleEndian(record_));
}

RowMemory::~RowMemory() {
  if (memory_ == nullptr) return;
  memory_->Free(data_);
  memory_->Free(record_);
}

RowMemory::RowMemory(RowMemory&& other) noexcept
    : memory_(std::exchange(other.memory_, nullptr)),
      name_(std::move(other.name_)),
      record_(other.record_),
      data_(other.data_) {}

RowMemory& RowMemory::operator=(RowMemory&& other) noexcept {
  std::swap(memory_, other.memory_);
  std::swap(name_, other.name_);
  std::swap(record_, other.record_);
  std::swap(data_, other.data_);
  return *this;
}

void RowList::Add(std::string_view name) {
  rows_.emplace_back(host().memory(), name);
  Changed(kAddString);
}

void RowList::Changed(MessageId how) {
  if (Alive()) Default({.id = how});
}

bool RowList::Remove(std::string_view name) {
  const auto row = RowOf(name);
  if (!row) return false;
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(*row));
  // The selection stays on its person, and is lost with that person.
  const int at = static_cast<int>(*row);
  if (selected_ == at) selected_ = -1;
  if (selected_ > at) --selected_;
  Changed(kDeleteString);
  return true;
}

std::optional<std::size_t> RowList::RowOf(std::string_view name) const {
  const std::string key = NameKey(name);
  for (std::size_t row = 0; row < rows_.size(); ++row)
    if (NameKey(rows_[row].name()) == key) return row;
  return std::nullopt;
}

std::string RowList::NameAt(int row) const {
  return row >= 0 && static_cast<std::size_t>(row) < rows_.size()
             ? rows_[static_cast<std::size_t>(row)].name()
             : "";
}

void RowList::Select(int row) {
  selected_ = row >= 0 && static_cast<std::size_t>(row) < rows_.size() ? row : -1;
  Changed(wm::kLbSetCurSel);
}

LParam RowList::PointOf(std::size_t row) {
  const LParam y = static_cast<LParam>(row) * kRowHeight + kRowHeight / 2;
  return y << 16 | 8;
}

MessageResult RowList::Handle(const Message& message) {
  switch (message.id) {
    case wm::kLbGetCount:
    case wm::kCbGetCount:
      return static_cast<MessageResult>(rows_.size());
    case wm::kLbGetCurSel:
    case wm::kCbGetCurSel:
      return selected_;
    case wm::kLbSetCurSel:
    case wm::kCbSetCurSel:
      Select(static_cast<int>(message.wParam));
      return selected_;
    case wm::kLbGetItemData:
    case wm::kCbGetItemData:
      return message.wParam < rows_.size()
                 ? static_cast<MessageResult>(rows_[message.wParam].data())
                 : -1;
    case wm::kLButtonDown:
    case wm::kRButtonDown:
      Select(static_cast<int>(message.lParam >> 16 & 0xFFFF) / kRowHeight);
      return 0;
    case wm::kLButtonDblClk:
      Tell(Notice::kEnter);
      return 0;
    default:
      return Default(message);
  }
}

}  // namespace corvel::practice
