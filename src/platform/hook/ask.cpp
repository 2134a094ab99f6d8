// Asking; see ask.h.
#include "platform/hook/ask.h"

#include "platform/hook/agent.h"

namespace corvel::hook {
namespace {

// For so long the program may leave a message lying before it counts as hung.
constexpr DWORD kUntilTakenMs = 4000;
// For so long a handler may do something else than pump. One that pumps has all the time it needs:
// it may stand in a message box.
constexpr DWORD kUntilPumpedMs = 30000;
constexpr DWORD kBetweenLooksMs = 20;

constexpr UINT kTextAppended = 0x2803;  // a view of the client has grown by this text
constexpr UINT kTextMessages[] = {WM_SETTEXT, EM_REPLACESEL, kTextAppended};

// The length of a text, at most `most`.
std::uint32_t LengthOf(const char* text, std::uint32_t most) {
  std::uint32_t length = 0;
  while (length < most && text[length]) ++length;
  return length;
}

void CopyBytes(char* to, const char* from, std::uint32_t length) {
  for (std::uint32_t i = 0; i < length; ++i) to[i] = from[i];
}

void Fill(AskSlot& slot, std::uint32_t hook, const Passing& passing) {
  slot.hook = hook;
  slot.window = ToValue(passing.window);
  slot.message = passing.message;
  slot.wParam = static_cast<std::int64_t>(passing.wParam);
  slot.lParam = static_cast<std::int64_t>(passing.lParam);
  slot.consume = 0;
  slot.result = 0;
  slot.textLength = kNoText;
  if (!passing.text) return;
  slot.textLength = LengthOf(passing.text, kAskText - 1);
  CopyBytes(slot.text, passing.text, slot.textLength);
  slot.text[slot.textLength] = 0;
}

// Runs what has been sent to this thread meanwhile.
void TakeSent(const Link& link) {
  MsgWaitForMultipleObjects(0, nullptr, FALSE, kBetweenLooksMs, QS_SENDMESSAGE);
  MSG none;
  PeekMessageA(&none, link.agent, AskMessage(), AskMessage(), PM_NOREMOVE);
}

// The handler is at work and has outlived the first wait: stay with it for as long as its thread
// answers.
bool WaitForHandler(const Link& link, const AskSlot& slot) {
  while (Look(slot.state) == SlotState::kTaken) {
    DWORD_PTR reply = 0;
    if (!SendMessageTimeoutA(link.owner, WM_NULL, 0, 0, SMTO_NORMAL, kUntilPumpedMs, &reply)) break;
    if (Look(slot.state) == SlotState::kTaken) TakeSent(link);
  }
  return Look(slot.state) == SlotState::kDone;
}

enum class Outcome { kAnswered, kTimedOut, kNotTaken };

Outcome SendAsk(const Link& link, const AskSlot& slot, std::uint32_t index) {
  const WPARAM which = link.number << kSlotBits | index;
  const std::uint32_t sequence = slot.sequence;
  DWORD_PTR reply = 0;
  const LRESULT sent =
      SendMessageTimeoutA(link.owner, AskMessage(), which, static_cast<LPARAM>(sequence),
                          SMTO_NORMAL, kUntilTakenMs, &reply);
  if (sent) return reply == sequence ? Outcome::kAnswered : Outcome::kNotTaken;
  if (Look(slot.state) != SlotState::kTaken) return Outcome::kTimedOut;
  return WaitForHandler(link, slot) ? Outcome::kAnswered : Outcome::kTimedOut;
}

// Nothing came back: the program is gone, or hangs, or could not be bothered just now.
void AfterFailure(Link* link, Outcome outcome) {
  if (!OwnerLives(*link)) return Release(link);
  if (outcome != Outcome::kTimedOut) return;
  Set(link->section->hung, 1U);
  Tell(link, Notice::kAreYouUp, 0);
}

std::uint32_t NextSequence(Link& link) {
  link.lastSequence = (link.lastSequence + 1) & 0x7FFFFFFF;
  if (link.lastSequence == 0) link.lastSequence = 1;
  return link.lastSequence;
}

void PutBytes(TextRing& ring, std::uint32_t& at, const char* bytes, std::uint32_t length) {
  for (std::uint32_t i = 0; i < length; ++i) ring.bytes[at++ % kChatRoom] = bytes[i];
}

}  // namespace

const char* TextOf(UINT message, LPARAM lParam) {
  const auto* text = reinterpret_cast<const char*>(lParam);
  for (const UINT id : kTextMessages)
    if (id == message) return text && !IsBadStringPtrA(text, kAskText) ? text : nullptr;
  return nullptr;
}

bool Ask(Link* link, std::uint32_t hook, const Passing& passing, LRESULT& result) {
  if (link->released || link->asks >= kAskSlots || Look(link->section->hung)) return false;
  const std::uint32_t index = link->asks++;
  ++link->uses;
  AskSlot& slot = link->section->asks[index];
  Fill(slot, hook, passing);
  Set(slot.state, SlotState::kWaiting);
  Set(slot.sequence, NextSequence(*link));
  const Outcome outcome = SendAsk(*link, slot, index);
  const bool consumed = outcome == Outcome::kAnswered && slot.consume;
  if (consumed) result = static_cast<LRESULT>(slot.result);
  Set(slot.sequence, 0U);
  --link->asks;
  --link->uses;
  if (outcome != Outcome::kAnswered && !link->released) {
    AfterFailure(link, outcome);
  } else {
    FreeIfDone(link);
  }
  return consumed;
}

void TellText(Link* link, std::uint32_t hook, const char* text) {
  TextRing& ring = link->section->texts;
  const TextRecord record{hook, LengthOf(text, kAskText)};
  const std::uint32_t used = ring.written - Look(ring.read);
  // A program that doesn't read misses what doesn't fit.
  if (link->released || used + sizeof(record) + record.length > kChatRoom) return;
  std::uint32_t at = ring.written;
  PutBytes(ring, at, reinterpret_cast<const char*>(&record), sizeof(record));
  PutBytes(ring, at, text, record.length);
  Set(ring.written, at);
  Tell(link, Notice::kTexts, 0);
}

}  // namespace corvel::hook
