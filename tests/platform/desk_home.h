// The desk as a home of the conformance suite; desk tests use it too, to look behind the seam.
#pragma once

#include "platform/desk/desk_peers.h"
#include "platform/desk/desk_services.h"
#include "tests/platform/home.h"
#include "tools/hand/desk_touch.h"

#include <map>
#include <set>

namespace corvel::test {

// A program that does nothing by itself; code runs in it by RunAs.
class IdleBody : public desk::ProcessBody {
 public:
  explicit IdleBody(bool finished) : finished_(finished) {}
  void Start(const std::string&) override {}
  bool Finished() override { return finished_; }

 private:
  bool finished_;
};

class DeskOther : public OtherProcess, public WindowProcedure {
 public:
  DeskOther(desk::Desk& desk, ProcessId id) : desk_(desk), id_(id) {}
  Window Make(const std::string& name, const NewWindow& window) override;
  void Destroy(Window window) override;
  Window ShowDialog(Window owner, const std::string& caption, const std::string& text) override;
  void MakeMenu(Window window, const std::vector<std::string>& rows) override;
  void AnswerWith(MessageId id, MessageResult result) override { answers_[id] = result; }
  void Record(std::vector<MessageId> ids) override { recorded_ = {ids.begin(), ids.end()}; }
  std::vector<std::string> TakeLog() override;
  std::uint32_t Allocate(const std::string& bytes) override { return desk_.Allocate(id_, bytes); }
  void SendText(Window window, MessageId id, const std::string& text) override {
    desk_.RunAs(id_, [&] { desk_.platform().windows.SendText(window, id, 0, text); });
  }
  bool StartSound(const std::string& path) override;
  ProcessId Id() override { return id_; }
  void Crash() override { desk_.Kill(id_); }

  MessageResult OnMessage(Window window, const Message& message) override;
  // Called for each message before it is answered.
  std::function<void(Window, const Message&)> onMessage;

 private:
  desk::Desk& desk_;
  ProcessId id_;
  std::string making_;  // the name of the window that is being made
  std::map<Window, std::string> names_;
  std::map<MessageId, MessageResult> answers_;
  std::set<MessageId> recorded_;
  std::vector<std::string> log_;
};

class DeskUser : public UserWithHand, public desk::Agent {
 public:
  DeskUser(desk::Desk& desk, Home& home)
      : UserWithHand(std::make_unique<tools::DeskTouch>(desk), home), desk_(desk) {}
  void WillAnswer(Answer answer) override;
  bool Act() override;
  std::optional<std::int64_t> NextActAt() override { return std::nullopt; }

 private:
  desk::Desk& desk_;
  std::optional<Answer> answer_;
};

class DeskHome : public Home {
 public:
  static constexpr const char* kProgram = "C:\\Corvel\\corvel32.exe";
  static constexpr const char* kOther = "C:\\Other\\other.exe";
  static constexpr const char* kShortLived = "C:\\Other\\ends.exe";

  DeskHome();
  Platform& platform() override { return desk.platform(); }
  DeskOther& other() override { return *other_; }
  User& user() override { return *user_; }
  std::string Folder() override {
    desk.files().PutFolder("C:\\CONFORM");
    return "C:\\CONFORM";
  }
  void Run(const std::function<void()>& code) override { desk.RunAs(program, code); }
  void RunFor(std::int64_t ms) override { desk.RunFor(ms); }
  void HoldOpen(const std::string& path) override {
    desk.files().Lock(held_, false);
    desk.files().Lock(held_ = path, true);
  }
  std::string ShortLivedProgram() override { return kShortLived; }
  std::string CommandLine() override { return "--as started"; }
  bool IsSeenByAnotherInstance() override;
  bool HasTaskbar() override { return true; }
  void SetDrive(char letter, DriveKind kind, bool hasDisk) override {
    desk.files().SetDrive(letter, kind, hasDisk);
  }
  std::string Serve(const std::string& path, const std::string& text) override {
    return Answer(path, {.text = text});
  }
  std::string SilentAddress() override {
    return Answer("/silent", {.text = "too late", .afterMs = 3'600'000});
  }
  std::string DeadAddress() override {
    return Answer("/dead", {.error = web_error::kCannotConnect});
  }
  void SetPrinter(bool isThere) override { desk.services().SetPrinter(isThere, isThere); }
  Log Printed() override;

  // The windows keep their procedure until the desk has gone, so it comes last to go.
 private:
  std::string Answer(const std::string& path, desk::WebAnswer answer) {
    desk.services().webTable().Set(path, std::move(answer));
    return "http://server" + path;
  }

  std::unique_ptr<DeskOther> other_;
  std::unique_ptr<DeskUser> user_;
  std::string held_;

 public:
  desk::Desk desk;
  ProcessId program = 0, otherId = 0;
};

}  // namespace corvel::test
