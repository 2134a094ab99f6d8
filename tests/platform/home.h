// A place where the conformance suite runs: the program's process, and beside it a second one whose
// windows it looks at. The desk is one such place; real windows are to answer the same.
//
// What a test here asserts is what the system does. Where a home answers otherwise, it is wrong.
#pragma once

#include "platform/platform.h"
#include "tools/hand/hand.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
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
  // Starts a sound without waiting for it; false if one that it has started still plays.
  virtual bool StartSound(const std::string& path) = 0;
  virtual ProcessId Id() = 0;
  virtual void Crash() = 0;  // the process vanishes, for the rest of the test
};

// What the user does with the next dialog of the system, or pop-up menu, that comes up.
struct Answer {
  int button = 0;                // of a dialog: 1 OK, 2 Cancel, 7 No
  std::string path{};            // typed before, into a file dialog
  std::optional<Color> color{};  // typed before, into a colour dialog
  int row = -1;                  // of a menu, by its place; -1 closes it
  std::function<void()> before{};
};

class User {
 public:
  virtual ~User() = default;
  virtual void WillAnswer(Answer answer) = 0;
  // Each says why it could not be done, or "". All that comes of it has come when the call is back,
  // unless the user hurries.
  virtual std::string Click(Window control) = 0;
  virtual std::string DoubleClick(Window control) = 0;
  virtual std::string RightClick(Window control) = 0;
  virtual std::string Select(Window control, int row, bool keepMarked) = 0;
  virtual std::string Type(Window control, const std::string& wholeText) = 0;
  virtual std::string Press(Window control, Key key) = 0;
  virtual std::string Drag(Window label, int dx, int dy) = 0;
  virtual std::string Close(Window form) = 0;
  virtual std::string MoveForm(Window form, int left, int top) = 0;
  bool hurries = false;
};

class Home {
 public:
  virtual ~Home() = default;
  virtual Platform& platform() = 0;
  virtual OtherProcess& other() = 0;
  virtual User& user() = 0;
  // A folder for the test's own files, empty at the start: "C:\\NAME" in capitals.
  virtual std::string Folder() = 0;
  // Runs as the program's process.
  virtual void Run(const std::function<void()>& code) = 0;
  // Time passes, with the events of all processes.
  virtual void RunFor(std::int64_t ms) = 0;
  // Another process opens this file and shares it with nobody, until it opens another one or "".
  virtual void HoldOpen(const std::string& path) = 0;
  // The path of a program that ends as soon as it has started.
  virtual std::string ShortLivedProgram() = 0;
  // What the program has been started with.
  virtual std::string CommandLine() = 0;
  // What PreviousInstance tells another process of the program.
  virtual bool IsSeenByAnotherInstance() = 0;
  virtual bool HasTaskbar() = 0;
  // The machine gets this drive, with an empty disk or none in it, for the length of the test.
  virtual void SetDrive(char letter, DriveKind kind, bool hasDisk) = 0;
  // The address at which a web server, from now on, answers this; one that accepts every question
  // and never answers; one where no server listens.
  virtual std::string Serve(const std::string& path, const std::string& text) = 0;
  virtual std::string SilentAddress() = 0;
  virtual std::string DeadAddress() = 0;
  virtual void SetPrinter(bool isThere) = 0;
  // What has been printed on it, line by line.
  virtual std::vector<std::string> Printed() = 0;
};

// The user's hand at a home's forms.
class UserWithHand : public User {
 public:
  UserWithHand(std::unique_ptr<tools::Touch> touch, Home& home)
      : touch_(std::move(touch)), hand_(*touch_), home_(home) {}
  std::string Click(Window control) override { return Come(hand_.Click(control)); }
  std::string DoubleClick(Window control) override { return Come(hand_.DoubleClick(control)); }
  std::string RightClick(Window control) override { return Come(hand_.RightClick(control)); }
  std::string Select(Window control, int row, bool keepMarked) override {
    return Come(hand_.Select(control, row, keepMarked));
  }
  std::string Type(Window control, const std::string& text) override {
    return Come(hand_.Type(control, text));
  }
  std::string Press(Window control, Key key) override { return Come(hand_.Press(control, key)); }
  std::string Drag(Window label, int dx, int dy) override {
    return Come(hand_.Drag(label, dx, dy));
  }
  std::string Close(Window form) override { return Come(hand_.Close(form)); }
  std::string MoveForm(Window form, int left, int top) override {
    return Come(hand_.MoveForm(form, left, top));
  }

 private:
  std::string Come(const tools::Deed& deed) {
    if (deed.refusal.empty() && !hurries) home_.RunFor(30);
    return deed.refusal;
  }
  std::unique_ptr<tools::Touch> touch_;
  tools::Hand hand_;
  Home& home_;
};

// The procedure of windows of our own that leave all to the system; it counts what comes.
class Counting : public WindowProcedure {
 public:
  explicit Counting(OwnWindows& own) : own_(own) {}
  MessageResult OnMessage(Window window, const Message& message) override {
    ++came[message.id];
    return own_.Default(window, message);
  }
  std::map<MessageId, int> came;

 private:
  OwnWindows& own_;
};

// The home of this test program.
std::unique_ptr<Home> MakeHome();

// The word of a message in logs: "destroy" for kDestroy; its number if it has none.
std::string WordOf(MessageId id);
std::string LogLine(const std::string& window, const Message& message);

// A PCM wave file of silence: one channel, 8 bits, 8000 samples a second.
std::string WaveFile(int milliseconds);

using Log = std::vector<std::string>;

}  // namespace corvel::test
