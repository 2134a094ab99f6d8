// The stage on the desk: in memory, in virtual time, with every fault that can be thought of.
#pragma once

#include "platform/desk/desk.h"
#include "tools/hand/desk_touch.h"
#include "tools/stage.h"

#include <set>

namespace corvel::tools {

class DeskStage : public Stage, private desk::Agent {
 public:
  explicit DeskStage(std::uint64_t seed);
  ~DeskStage() override;

  desk::Desk& desk() { return desk_; }
  practice::PracticeClient* Client();  // the running one, or nullptr
  ProcessId ClientProcess() const;
  ProcessId StartProgram(const std::string& commandLine);
  // The first of the running programs, or 0.
  ProcessId Program() const;
  bool HasStarted(ProcessId program) const { return started_.contains(program); }

  std::string_view Home() const override { return "desk"; }
  std::int64_t NowMs() const override { return desk_.NowMs(); }
  std::int64_t PatienceMs() const override { return 0; }
  std::int64_t StuckAfterMs() const override { return 10 * 60 * 1000; }
  std::string InnermostWait() override;
  void Run(Actor& actor) override;

  void SetWallClock(const CivilTime& now) override { desk_.SetWallClock(now); }
  void SetTimeZone(const std::string& name) override { desk_.SetTimeZone(name); }
  void SetWindowsPlatform(int platform) override;
  void SetDisplay(int bitsPerPixel, int width, int height) override;
  void SetTaskbar(bool present) override;
  void NextDraws(const std::vector<double>& draws) override;
  Registry& registry() override;
  void PutFile(std::string_view path, std::string_view bytes) override;
  void RemoveFile(std::string_view path) override;
  std::optional<std::string> Peek(std::string_view path) override;
  void SetDrive(char letter, DriveKind kind, bool hasDisk) override;
  desk::WebTable& web() override;
  void FailFile(int call, int errorNumber, const std::string& part) override;
  void SetFreeSpace(std::int64_t bytes) override;
  void LockFile(std::string_view path, bool locked) override;

  void ChangeClient() override;
  bool ClientRuns() override { return ClientProcess() != 0; }
  Deed HangClient(const Hang& hang) override;
  void ReleaseClient() override;
  bool ClientHangs() override;
  void CrashClient() override { desk_.Kill(ClientProcess()); }
  Deed DoInClient(const std::vector<std::string>& words,
                  std::shared_ptr<practice::Reply> reply) override;
  practice::Reply AskClient(const std::vector<std::string>& words) override;

  Deed Start(const std::string& commandLine) override;
  bool ProgramRuns() override { return Program() != 0; }
  bool ProgramWaitsForUser() override;
  void EndAll() override;

  Hand& hand() override { return hand_; }
  bool TrayMouse(LParam mouseMessage) override;
  std::vector<std::shared_ptr<desk::Prompt>>& Prompts() override { return desk_.Prompts(); }
  Menus& menus() override;

  desk::Journal& journal() override { return desk_.journal(); }
  int HookCount() override;
  bool HasTrayIcon() override;
  std::vector<std::string> LeftOpen() override { return desk_.LeftOpen(0); }

 protected:
  void InstallProgram(Platform& platform);

 private:
  void InstallClient(bool start) override;
  bool IsUp(ProcessId program) const;
  void BeginHang(ProcessId client, const Hang& hang);
  bool Act() override { return actor_->Act(); }
  std::optional<std::int64_t> NextActAt() override { return actor_->NextActAt(); }

  desk::Desk desk_;
  DeskTouch touch_{desk_};
  Hand hand_{touch_};
  std::vector<ProcessId> programs_;
  std::set<ProcessId> started_;
  Actor* actor_ = nullptr;
};

}  // namespace corvel::tools
