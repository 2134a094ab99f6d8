// The asking end of the channel to practice.exe; see channel.h.
#pragma once

#include "practice/commands/reply.h"
#include "practice/win32/channel.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace corvel::practice {

class PracticeChannel {
 public:
  using Seen = std::pair<std::string, Words>;  // kind, words

  // `whileWaiting` is called over and over until a command has been run: it should let the asker's
  // own events happen, and may throw to give up. Without one only what is sent to the thread's
  // windows is taken.
  explicit PracticeChannel(std::function<void()> whileWaiting = {});

  // The client of this machine that takes questions; false if none runs (any more).
  bool IsThere();
  // Waits until it is; false at the time limit.
  bool WaitUntilThere(std::uint32_t milliseconds);

  // Both answer "the client is not running" as their error if it is not, or goes meanwhile.
  Reply Do(const Words& words);
  Reply Ask(const Words& words);
  // Do in two halves, for an asker who has other things to do meanwhile: a ticket, or nothing if no
  // client runs; and the reply, once the command has been run.
  std::optional<std::string> Begin(const Words& words);
  std::optional<Reply> ReplyTo(const std::string& ticket);
  // Takes no messages, `after` milliseconds from now and for so long; `end` says how it ends.
  bool Hang(std::uint32_t milliseconds, std::uint32_t after, const std::string& end);
  bool Hangs();
  void Release();  // if it hangs
  // What has left the client since the last call, oldest first.
  std::vector<Seen> TakeWitness();
  void GoTo(const std::string& target);

  // What launch32.dll tells; nothing if no client runs.
  std::optional<std::string> Version();
  std::optional<bool> IsOnline();
  std::optional<Words> ScreenNames();

 private:
  std::optional<Words> Request(const Words& words);
  void Wait();
  std::function<void()> whileWaiting_;
  std::string name_;
  Section section_;
};

}  // namespace corvel::practice
