// Links; see hook_link.h.
#include "platform/win32/hook_link.h"

#include "platform/win32/handles.h"

#include <algorithm>
#include <cstring>

namespace corvel::win32 {
namespace {

std::string NameOfSection(DWORD number) {
  char name[64];
  wsprintfA(name, hook::kSectionName, GetCurrentProcessId(), number);
  return name;
}

std::string RingBytes(const hook::TextRing& ring, std::uint32_t at, std::uint32_t length) {
  std::string bytes(length, '\0');
  for (std::uint32_t i = 0; i < length; ++i) bytes[i] = ring.bytes[(at + i) % hook::kChatRoom];
  return bytes;
}

}  // namespace

SharedSection::SharedSection(const char* name) {
  mapping_ = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                sizeof(hook::Section), name);
  if (!mapping_) return;
  section_ = static_cast<hook::Section*>(
      MapViewOfFile(mapping_, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(hook::Section)));
}

SharedSection::~SharedSection() {
  if (section_) UnmapViewOfFile(section_);
  if (mapping_) CloseHandle(mapping_);
}

HookLink::HookLink(HWND owner, DWORD number, DWORD thread)
    : number_(number), thread_(thread), shared_(NameOfSection(number).c_str()) {
  hook::Section* const section = shared_.get();
  if (!section) return;
  section->version = hook::kLayoutVersion;
  section->size = sizeof(hook::Section);
  section->owner = hook::ToValue(owner);
  section->ownerThread = GetCurrentThreadId();
  section->ownerProcess = GetCurrentProcessId();
}

HookLink::~HookLink() {
  if (!Lives()) return;
  hook::DeedSlot& slot = section()->deeds[0];
  slot.deed = Deed::kRelease;
  if (!Send(slot, 0)) Later(Deed::kRelease, 0, 0);
}

bool HookLink::Lives() const {
  if (!section()) return false;
  const auto agent = hook::ToHandle<HWND>(hook::Look(section()->agent));
  return agent && GetWindowThreadProcessId(agent, nullptr) == thread_;
}

bool HookLink::Send(hook::DeedSlot& slot, std::size_t index) {
  static const UINT message = RegisterWindowMessageA(hook::kDeedMessage);
  lastSequence_ = std::max(1U, (lastSequence_ + 1) & 0x7FFFFFFF);
  const std::uint32_t sequence = lastSequence_;
  hook::Set(slot.sequence, sequence);
  DWORD_PTR reply = 0;
  const LRESULT sent = SendMessageTimeoutA(
      hook::ToHandle<HWND>(section()->agent), message, index, static_cast<LPARAM>(sequence),
      SMTO_NORMAL | SMTO_ABORTIFHUNG, kLongestAnswerMs, &reply);
  hook::Set(slot.sequence, 0U);  // one that comes too late means nothing
  return sent && reply == sequence;
}

std::optional<DeedReply> HookLink::Do(const DeedRequest& request) {
  if (!section() || deeds_ >= hook::kDeedSlots || request.text.size() >= hook::kDeedText)
    return std::nullopt;
  const auto self = shared_from_this();  // asks that come meanwhile may drop the link
  hook::DeedSlot& slot = section()->deeds[deeds_];
  slot.deed = request.deed;
  slot.handle = request.handle;
  slot.number = request.number;
  slot.flags = request.flags;
  slot.id = request.id;
  slot.sub = request.sub;
  slot.value = 0;
  slot.textLength = static_cast<std::uint32_t>(request.text.size());
  std::copy(request.text.begin(), request.text.end(), slot.text);
  slot.text[request.text.size()] = 0;
  const bool done = Send(slot, deeds_++);
  --deeds_;
  if (!done) return std::nullopt;
  DeedReply reply{slot.value, {}};
  if (request.text.empty()) {
    slot.text[hook::kDeedText - 1] = 0;
    reply.text = slot.text;
  }
  return reply;
}

void HookLink::Later(Deed deed, std::int32_t number, std::uint32_t value) {
  static const UINT message = RegisterWindowMessageA(hook::kLaterMessage);
  if (!Lives()) return;
  const auto what = static_cast<std::uint32_t>(deed) | static_cast<std::uint32_t>(number)
                                                           << hook::kDeedBits;
  PostMessageA(hook::ToHandle<HWND>(section()->agent), message, what, static_cast<LPARAM>(value));
}

std::vector<std::pair<std::uint32_t, std::string>> HookLink::TakeTexts() {
  std::vector<std::pair<std::uint32_t, std::string>> texts;
  hook::TextRing& ring = section()->texts;
  const std::uint32_t end = hook::Look(ring.written);
  std::uint32_t at = ring.read;
  while (end - at >= sizeof(hook::TextRecord) && end - at <= hook::kChatRoom) {
    hook::TextRecord record;
    std::memcpy(&record, RingBytes(ring, at, sizeof record).data(), sizeof record);
    at += sizeof record;
    if (record.length > end - at) break;  // not what the library writes
    texts.emplace_back(record.hook, RingBytes(ring, at, record.length));
    at += record.length;
  }
  hook::Set(ring.read, end);
  return texts;
}

}  // namespace corvel::win32
