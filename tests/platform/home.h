// A place where the conformance suite runs: the program's process, and beside it a second one whose
// windows it looks at. The desk is one such place; real windows are to answer the same.
//
// What a test here asserts is what the system does. Where a home answers otherwise, it is wrong.
#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvel::test {

// A process that makes windows on request and keeps a log of the messages they get. Its windows
// give every message to OwnWindows::Default.
class OtherProcess {
 public:
  virtual ~OtherProcess() = default;
  // `name` stands for the window in the log.
  virtual Window Make(const std::string& name, const NewWindow& window) = 0;
  virtual void Destroy(Window window) = 0;
  virtual Window ShowDialog(Window owner, const std::string& caption, const std::string& text) = 0;
  // A menu bar of the window, by rows like "File/Open=101", "File/-", "Help=7".
  virtual void MakeMenu(Window window, const std::vector<std::string>& rows) = 0;
  // The windows will answer this message with `result` instead of asking Default.
  virtual void AnswerWith(MessageId id, MessageResult result) = 0;
  // Which messages are logged, from now on.
  virtual void Record(std::vector<MessageId> ids) = 0;
  // What came since the last call, like "frame:destroy", "box:char(65)", "box:settext(hello)".
  virtual std::vector<std::string> TakeLog() = 0;
  virtual std::uint32_t Allocate(const std::string& bytes) = 0;
  // Sends a message with a text to a window of its own; a private message's goes no further.
  virtual void SendText(Window window, MessageId id, const std::string& text) = 0;
  virtual ProcessId Id() = 0;
};

class Home {
 public:
  virtual ~Home() = default;
  virtual Platform& platform() = 0;
  virtual OtherProcess& other() = 0;
  // A folder for the test's own files, empty at the start: "C:\\NAME" in capitals.
  virtual std::string Folder() = 0;
  // Runs as the program's process.
  virtual void Run(const std::function<void()>& code) = 0;
  // Time passes, with the events of all processes.
  virtual void RunFor(std::int64_t ms) = 0;
};

// The home of this test program.
std::unique_ptr<Home> MakeHome();

// The word of a message in logs: "destroy" for kDestroy; its number if it has none.
std::string WordOf(MessageId id);
std::string LogLine(const std::string& window, const Message& message);

using Log = std::vector<std::string>;

}  // namespace corvel::test
