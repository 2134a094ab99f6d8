#include "aolbridge/list_memory.h"

#include "base/text.h"

namespace corvel {
namespace {

constexpr std::uint32_t kPointerAt = 24, kTextAt = 6;
constexpr std::size_t kTextBytes = 16;

std::string TextBehind(ProcessMemory& memory, std::uint32_t data) {
  const auto pointer = memory.Read(data + kPointerAt, 4);
  if (!pointer) return {};
  std::uint32_t record = 0;
  for (std::size_t i = 4; i-- > 0;)
    record = record << 8 | static_cast<unsigned char>((*pointer)[i]);
  const auto text = memory.Read(record + kTextAt, kTextBytes);
  return text ? Trim(CutAtNul(*text)) : std::string();
}

}  // namespace

ClientList::ClientList(Platform& platform, Window list, Kind kind)
    : windows_(platform.windows),
      list_(list),
      kind_(kind),
      memory_(platform.processes.Open(platform.windows.ProcessOf(list))) {}

MessageResult ClientList::Ask(MessageId ofListBox, MessageId ofComboBox, WParam row) const {
  return windows_.Send(list_, kind_ == Kind::kListBox ? ofListBox : ofComboBox, row, 0);
}

int ClientList::Count() const {
  return memory_ ? static_cast<int>(Ask(wm::kLbGetCount, wm::kCbGetCount)) : 0;
}

int ClientList::Selected() const {
  return memory_ ? static_cast<int>(Ask(wm::kLbGetCurSel, wm::kCbGetCurSel)) : -1;
}

std::string ClientList::Row(int row) const {
  if (!memory_) return {};
  const auto data = Ask(wm::kLbGetItemData, wm::kCbGetItemData, static_cast<WParam>(row));
  return TextBehind(*memory_, static_cast<std::uint32_t>(data));
}

std::vector<std::string> ClientList::Rows() const {
  std::vector<std::string> rows;
  for (int row = 0, count = Count(); row < count; ++row) rows.push_back(Row(row));
  return rows;
}

}  // namespace corvel
