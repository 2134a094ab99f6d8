// The practice client: a stand-in for the online client, with the windows, messages, menus, list
// memory and account file that the program relies on. docs/practice-client.md lists those facts.
//
// One object is one running client process. It is written against the seam only, so that it is the
// same on the desk and, as practice.exe, in real windows. Whoever plays the user in it (a scenario,
// a person's script) speaks to it in commands of words; on the desk that is a call, on Windows a
// channel of its own.
#pragma once

#include "platform/platform.h"
#include "practice/client/setup.h"
#include "practice/commands/reply.h"
#include "practice/controls/own_memory.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

class PracticeClient {
 public:
  PracticeClient(Platform& platform, OwnMemory& memory, const Setup& setup, Witness witness);
  ~PracticeClient();
  PracticeClient(const PracticeClient&) = delete;
  PracticeClient& operator=(const PracticeClient&) = delete;

  // Makes its windows; the sign-on window or the Welcome window comes after the delay.
  void Start();
  bool Finished() const;  // its main window has gone

  // One command of the user or the world: the words of a scenario line of "The user in the client",
  // and `sign-on NAME`, `sign-off`, `client-close`, `client-delay SECONDS`. Texts are Windows-1252.
  Reply Do(const std::vector<std::string>& words);
  // One question: `input` (the chat input's text), `view` (the room's view), `room` (its name, ""
  // for none), `line-seen PERSON TEXT` ("1"/"0"), `im PERSON text|open`,
  // `mail to|subject|body|attached`, `window CAPTION state|visible|text|place`, `menu CAPTION`
  // ("1"/"0"), `enabled` (its main window), `signed-on-as`, `target` (the window class and caption
  // on top).
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
