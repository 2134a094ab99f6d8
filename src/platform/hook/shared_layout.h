// What the program and its library in the client's process share: one section of memory for each
// thread of a client that the program has entered, and the messages that point into it. Fields have
// fixed widths, so that the layout is the same on 32 and 64 bits.
//
// Whoever waits owns the slot that it waits with. A message names a slot and the slot's sequence
// number; when the number has moved on, its sender no longer waits, and the message means nothing.
#pragma once

#include "platform/hook/deed.h"

#include <cstdint>
#include <windows.h>

namespace corvel::hook {

// Changes with anything below, and by itself with the number of deeds. A program and a library of
// different versions leave each other alone.
inline constexpr std::uint32_t kLayoutVersion = 1 << 16 | static_cast<std::uint32_t>(Deed::kCount);

inline constexpr char kLibraryName[] = "corvelhk.dll";
// Registered messages. The number at the end is the version.
inline constexpr char kEnterMessage[] = "Corvel.Hook.Enter.1";  // to any window of the thread
inline constexpr char kDeedMessage[] = "Corvel.Hook.Deed.1";    // program to agent
// Posted by the program to the agent; wParam: a deed, and its number behind kDeedBits; lParam: the
// window, or a hook's id.
inline constexpr char kLaterMessage[] = "Corvel.Hook.Later.1";
inline constexpr char kAskMessage[] = "Corvel.Hook.Ask.1";        // agent to program
inline constexpr char kNoticeMessage[] = "Corvel.Hook.Notice.1";  // agent to program, posted
// A section's name, of the program's process id and the link's number.
inline constexpr char kSectionName[] = "Corvel.Hook.%08lX.%lu";

inline constexpr std::uint32_t kAskSlots = 8;   // asks within asks
inline constexpr std::uint32_t kDeedSlots = 8;  // deeds within deeds
inline constexpr std::uint32_t kSlotBits = 3;
inline constexpr std::uint32_t kDeedBits = 8;
inline constexpr std::uint32_t kAskText = 32768, kDeedText = 8192;  // bytes with the NUL
inline constexpr std::uint32_t kChatRoom = 65536;                   // a power of two
inline constexpr std::uint32_t kMostMessages = 32;                  // a hook listens to
inline constexpr std::uint32_t kNoText = 0xFFFFFFFF;

// How a hook listens: it is asked before the window's procedure, or told the text of a message
// after it.
enum class Listening : std::uint32_t { kAsked, kTold };

// In the wParam of a notice, beside the link's number.
enum class Notice : std::uint32_t {
  kTexts,     // there is something in the ring
  kGone,      // lParam: a hook whose window has died
  kAreYouUp,  // clears `hung` when it is read
};

enum class SlotState : std::uint32_t { kFree, kWaiting, kTaken, kDone };

// One message on its way to a hooked window, and the program's answer.
struct AskSlot {
  std::uint32_t sequence;
  SlotState state;
  std::uint32_t hook, window, message;
  std::uint32_t consume;
  std::int64_t wParam, lParam, result;
  std::uint32_t textLength;  // kNoText: the message carries none
  std::uint32_t reserved;
  char text[kAskText];
};

struct DeedSlot {
  std::uint32_t sequence;
  Deed deed;
  std::uint32_t handle;
  std::int32_t number;
  std::uint32_t flags, id, sub;
  std::uint32_t textLength;
  std::int64_t value;
  char text[kDeedText];  // of the request, then of the reply
};

// Texts that are told and not asked: a ring of records. `written` and `read` count bytes and run on
// for ever; their rests by kChatRoom are the places.
struct TextRecord {
  std::uint32_t hook, length;
};
struct TextRing {
  std::uint32_t written, read;
  char bytes[kChatRoom];
};

struct Section {
  std::uint32_t version, size;
  // Filled in by the program before it enters.
  std::uint32_t owner, ownerThread, ownerProcess;
  // Filled in by the library: the window in the client's thread that does deeds.
  std::uint32_t agent;
  // Set by the library when the program didn't take a message in time; until the program clears it
  // messages pass unasked.
  std::uint32_t hung;
  std::uint32_t reserved;
  AskSlot asks[kAskSlots];
  DeedSlot deeds[kDeedSlots];
  TextRing texts;
};

static_assert(sizeof(AskSlot) == 56 + kAskText && sizeof(DeedSlot) == 40 + kDeedText &&
              sizeof(Section) ==
                  32 + kAskSlots * sizeof(AskSlot) + kDeedSlots * sizeof(DeedSlot) + 8 + kChatRoom);

// Handles travel as 32 bits and are kept sign-extended on the 64-bit editions.
template <class Handle>
Handle ToHandle(std::uint32_t value) {
  return reinterpret_cast<Handle>(static_cast<std::intptr_t>(static_cast<std::int32_t>(value)));
}
template <class Handle>
std::uint32_t ToValue(Handle handle) {
  return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(handle));
}

// Where the other side may write at any time, a field is read and written through these.
template <class T>
T Look(const T& field) {
  return *const_cast<const volatile T*>(&field);
}
template <class T>
void Set(T& field, T value) {
  *const_cast<volatile T*>(&field) = value;
}

// What the library exports.
using VersionFunction = std::uint32_t(CALLBACK*)();
// Enters the calling thread for the program's process and link number.
using EnterFunction = void(CALLBACK*)(DWORD process, DWORD link);

}  // namespace corvel::hook
