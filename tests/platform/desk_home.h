// The desk as a home of the conformance suite; desk tests use it too, to look behind the seam.
#pragma once

#include "platform/desk/desk_services.h"
#include "tests/platform/home.h"

#include <map>
#include <set>

namespace corvel::test {

// A program that does nothing by itself; code runs in it by RunAs.
class IdleBody : public desk::ProcessBody {
 public:
  void Start(const std::string&) override {}
  bool Finished() override { return false; }
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
  ProcessId Id() override { return id_; }

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

class DeskHome : public Home {
 public:
  static constexpr const char* kProgram = "C:\\Corvel\\corvel32.exe";
  static constexpr const char* kOther = "C:\\Other\\other.exe";

  DeskHome();
  Platform& platform() override { return desk.platform(); }
  DeskOther& other() override { return *other_; }
  std::string Folder() override {
    desk.files().PutFolder("C:\\CONFORM");
    return "C:\\CONFORM";
  }
  void Run(const std::function<void()>& code) override { desk.RunAs(program, code); }
  void RunFor(std::int64_t ms) override { desk.RunFor(ms); }

  // The windows keep their procedure until the desk has gone, so it comes last to go.
 private:
  std::unique_ptr<DeskOther> other_;

 public:
  desk::Desk desk;
  ProcessId program = 0, otherId = 0;
};

}  // namespace corvel::test
