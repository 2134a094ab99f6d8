// The desk's clipboard: one for all processes.
#include "base/text.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/named_list.h"

namespace corvel::desk {
namespace {

constexpr std::uint32_t kFirstRegistered = 0xC000;

}  // namespace

struct DeskClipboard::Impl {
  Desk& desk;
  std::optional<ProcessId> holder{};
  bool heldByStranger = false;
  std::map<std::uint32_t, std::string> texts{};
  NamedList<std::uint32_t> formats{};

  bool HoldsIt() const { return holder && *holder == desk.Current(); }
};

DeskClipboard::DeskClipboard(Desk& desk) : impl_(new Impl{.desk = desk}) {}
DeskClipboard::~DeskClipboard() = default;

bool DeskClipboard::Open(Window) {
  if (IsOpen()) return false;
  impl_->holder = impl_->desk.Current();
  return true;
}

void DeskClipboard::Close() {
  if (impl_->HoldsIt()) impl_->holder.reset();
}

void DeskClipboard::Empty() {
  if (impl_->HoldsIt()) impl_->texts.clear();
}

bool DeskClipboard::Set(std::uint32_t format, std::string_view text) {
  if (!impl_->HoldsIt()) return false;
  impl_->texts[format] = CutAtNul(text);
  return true;
}

std::optional<std::string> DeskClipboard::Get(std::uint32_t format) {
  const auto found = impl_->texts.find(format);
  if (!impl_->HoldsIt() || found == impl_->texts.end()) return std::nullopt;
  return found->second;
}

std::uint32_t DeskClipboard::RegisterFormat(std::string_view name) {
  if (const auto* known = impl_->formats.Find(name)) return known->value;
  const auto number = kFirstRegistered + static_cast<std::uint32_t>(impl_->formats.Size());
  return impl_->formats.Add(name, number).value;
}

void DeskClipboard::HoldOpenByStranger(bool held) { impl_->heldByStranger = held; }

std::optional<std::string> DeskClipboard::Peek(std::string_view formatName) const {
  const auto* known = impl_->formats.Find(formatName);
  if (!formatName.empty() && !known) return std::nullopt;
  const auto found = impl_->texts.find(formatName.empty() ? kClipboardText : known->value);
  if (found == impl_->texts.end()) return std::nullopt;
  return found->second;
}

void DeskClipboard::Put(std::string_view formatName, std::string_view text) {
  const auto format = formatName.empty() ? kClipboardText : RegisterFormat(formatName);
  impl_->texts[format] = CutAtNul(text);
}

bool DeskClipboard::IsOpen() const { return impl_->heldByStranger || impl_->holder.has_value(); }

ProcessId DeskClipboard::Holder() const { return impl_->holder.value_or(0); }

void DeskClipboard::ProcessEnded(ProcessId process) {
  if (impl_->holder == process) impl_->holder.reset();
}

}  // namespace corvel::desk
