// How other processes speak to practice.exe: a runner that plays a script, launch32.dll that
// answers for the client, a second waol.exe with a target.
//
// practice.exe has a hidden top-level window of the class "CorvelPractice". It takes WM_COPYDATA
// with dwData = kRequest; the data are words: each its length in four bytes, low byte first, and
// its bytes. The first word names a section of memory that the asker has made, the second is the
// verb. The reply comes as words too, into that section: the length of them all in four bytes, then
// they; the message's result is 1. A result of 0 means that no reply could be written.
//
//   ask QUESTION...       -> error, answer...       answered at once
//   do COMMAND...         -> ticket                 runs later, in its own time, in order
//   reply TICKET          -> "pending", or "done", error, answer...
//   witness               -> entry...               what has left the client since the last time;
//                                                   an entry is words itself: kind, word...
//   target TARGET         -> nothing                the client goes there, later
//   version               -> the version as launch32.dll tells it
//   online                -> "0" or "1"
//   names                 -> six buffers
//   hang MS AFTER END     -> nothing                AFTER milliseconds later it takes no messages
//                                                   for so long, at most a minute, or until the
//                                                   event kHangEvent is set; then, if END is
//                                                   "crash", its process vanishes
//
// A command is not run inside the message, since whoever waits for an answer to a message can't
// answer others: what a command sets off may need the asker.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include <windows.h>

namespace corvel::practice {

inline constexpr char kChannelClass[] = "CorvelPractice";
// An event that is there while the client hangs.
inline constexpr char kHangEvent[] = "CorvelPractice.Hang";
inline constexpr ULONG_PTR kRequest = 0x50524331;  // "PRC1"
// What a section holds at most: a view with all its lines many times over.
inline constexpr std::size_t kSectionBytes = std::size_t{1} << 20;

using Words = std::vector<std::string>;

std::string Packed(const Words& words);
// Nothing if the bytes are not words.
std::optional<Words> Unpacked(std::string_view bytes);

// A section of shared memory under a name.
class Section {
 public:
  static Section Make(const std::string& name);
  static Section Open(const std::string& name);
  ~Section();
  Section(Section&& other) noexcept;
  Section& operator=(Section&&) = delete;

  explicit operator bool() const { return view_ != nullptr; }
  bool Write(const Words& words);  // false: too long
  std::optional<Words> Read() const;

 private:
  explicit Section(HANDLE mapping);
  HANDLE mapping_;
  char* view_;
};

}  // namespace corvel::practice
