// The practice client: a stand-in for the online client, with the windows, messages, menus, list
// memory and account file that the program relies on. docs/practice-client.md lists those facts.
//
// One object is one running client process. It is written against the seam only, so that it is the
// same on the desk and, as practice.exe, in real windows. Whoever plays the user in it (a scenario,
// a person's script) speaks to it in commands of words; on the desk that is a call, on Windows a
// channel of its own.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

enum class Locale { kUs, kUk, kCanada, kAustralia, kGermany };

struct Setup {
  std::string version = "4.0";  // "3.0", "4.0", "5.0", "5.1", "6.0", or any text
  Locale locale = Locale::kUs;
  std::vector<std::string> screenNames = {"PracticeOne"};  // the master name first; at most 7
  std::string signedOnAs = "PracticeOne";                  // "" for signed off
  std::uint32_t delayMs = 50;  // from asking for a window until it shows
  std::string folder = "C:\\AOL";
};

// What the client's process offers its lists: memory of its own that a stranger can read, at
// addresses that fit in 32 bits.
class OwnMemory {
 public:
  virtual ~OwnMemory() = default;
  virtual std::uint32_t Allocate(std::string_view bytes) = 0;
  virtual void Write(std::uint32_t address, std::string_view bytes) = 0;
  virtual void Free(std::uint32_t address) = 0;
};

// Things that leave the client: what the service, or another member, would see. Kinds are the words
// of the scenario language: line {text}, keyword {target}, im-sent {person, text}, ...
using Witness = std::function<void(std::string_view kind, std::vector<std::string> words)>;

// An answer to a command. An error names what the user could not do ("no room is open").
struct Reply {
  std::string error;                 // "" if all is well
  std::vector<std::string> answers;  // of a question
};

class PracticeClient {
 public:
  PracticeClient(Platform& platform, OwnMemory& memory, const Setup& setup, Witness witness);
  ~PracticeClient();
  PracticeClient(const PracticeClient&) = delete;
  PracticeClient& operator=(const PracticeClient&) = delete;

  void
  Start();  // makes its windows; the sign-on window or the Welcome window comes after the delay
  bool Finished() const;  // its main window has gone

  // One command of the user or the world: the words of a scenario line of "The user in the client",
  // and `sign-on NAME`, `sign-off`, `client-close`, `client-delay SECONDS`. Texts are Windows-1252.
  Reply Do(const std::vector<std::string>& words);
  // One question: `input` (the chat input's text), `view` (the room's view), `room` (its
  // name, "" for none), `line-seen PERSON
  // TEXT`
  // ("1"/"0"), `im PERSON text|open`, `window CAPTION state|visible|text|place`, `mail to|subject|body|attached`, `menu CAPTION` ("1"/"0"),
  // `enabled` (its main window), `signed-on-as`, `target` (the window class and caption on top).
  Reply Ask(const std::vector<std::string>& words);

  // A second process of this client was started with "-s" and a target: go there.
  void TakeCommandLine(std::string_view target);

  // What launch32.dll tells of this client.
  std::string LibraryVersion() const;
  int LibraryIsOnline() const;
  std::vector<std::string> LibraryScreenNames() const;
  // qrvproxy's stop entry.
  void StopSound();

  Window Frame() const;
  Window Mdi() const;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

// The account index file: every byte that the program relies on, for these names.
std::string AccountIndex(const std::vector<std::string>& screenNames);

}  // namespace corvel::practice
