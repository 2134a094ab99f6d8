// The stage on Windows: the program in this very process on real windows, the practice client in
// another one, real files and settings, real time.
//
// Whoever acts is called when no message is waiting, in the program's own thread, so also from
// inside its waits. What he sets going runs as a task of its own, behind his call.
#pragma once

#include "app/corvel_process.h"
#include "platform/win32/win32_platform.h"
#include "practice/win32/channel_client.h"
#include "tools/scripted_platform.h"
#include "tools/stage.h"
#include "tools/win32/client_hand.h"
#include "tools/win32/control_hand.h"
#include "tools/win32/message_touch.h"
#include "tools/win32/run_drive.h"

#include <deque>
#include <set>

namespace corvel::tools {

struct Win32StageOptions {
  bool byHand = false;            // the user's hand moves the mouse and strikes the keys
  std::function<void()> onTouch;  // see Hands
  std::function<bool()> rests;    // true: whoever acts is to rest for now
};

class Win32Stage : public Stage {
 public:
  using Options = Win32StageOptions;
  // practice.exe and aol.exe, its starter, are copied from `folder`. Throws what RunDrive throws.
  explicit Win32Stage(std::string folder, Options options = {});
  ~Win32Stage() override;

  std::string_view Home() const override { return "windows"; }
  std::int64_t NowMs() const override;
  std::int64_t PatienceMs() const override { return 5000; }
  std::int64_t StuckAfterMs() const override { return 60 * 1000; }
  std::string InnermostWait() override;
  void Run(Actor& actor) override;

  void SetWallClock(const CivilTime& now) override;
  void SetTimeZone(const std::string& name) override { script_.timeZone = name; }
  void SetWindowsPlatform(int platform) override { script_.windowsPlatform = platform; }
  void SetDisplay(int bitsPerPixel, int width, int height) override;
  void SetTaskbar(bool present) override { script_.taskbar = present; }
  void NextDraws(const std::vector<double>& draws) override;
  Registry& registry() override { return home_.platform().registry; }
  void PutFile(std::string_view path, std::string_view bytes) override {
    drive_.Put(RealPath(path), bytes);
  }
  void RemoveFile(std::string_view path) override { drive_.Remove(RealPath(path)); }
  std::optional<std::string> Peek(std::string_view path) override {
    return drive_.Peek(RealPath(path));
  }
  void SetDrive(char letter, DriveKind kind, bool hasDisk) override {
    AddDrive(home_.platform().files, script_.drives, letter, {kind, hasDisk});
  }
  desk::WebTable& web() override { return script_.web; }
  void FailFile(int call, int errorNumber, const std::string& part) override {
    script_.faults.FailCall(call, errorNumber, part);
  }
  void SetFreeSpace(std::int64_t bytes) override { script_.faults.SetFreeSpace(bytes); }
  void LockFile(std::string_view path, bool locked) override {
    drive_.Lock(RealPath(path), locked);
  }

  void ChangeClient() override;
  bool ClientRuns() override { return channel_.IsThere(); }
  Deed HangClient(const Hang& hang) override;
  void ReleaseClient() override { channel_.Release(); }
  bool ClientHangs() override { return channel_.Hangs(); }
  void CrashClient() override;
  Deed DoInClient(const std::vector<std::string>& words,
                  std::shared_ptr<practice::Reply> reply) override;
  practice::Reply AskClient(const std::vector<std::string>& words) override;

  Deed Start(const std::string& commandLine) override;
  bool ProgramRuns() override;
  bool ProgramWaitsForUser() override;
  void EndAll() override;

  Hand& hand() override { return byHand_ ? byHand_->hand : messageHand_; }
  bool TrayMouse(LParam mouseMessage) override;
  std::vector<std::shared_ptr<desk::Prompt>>& Prompts() override { return script_.prompts; }
  Menus& menus() override { return home_.platform().menus; }
  void ChooseRow(desk::Prompt& popup, const std::vector<int>& rows) override;
  void PutAway(desk::Prompt& popup) override;
  bool HandIsBusy() override { return byHand_ && byHand_->hands.IsBusy(); }
  std::string TakeHandFailure() override;

  desk::Journal& journal() override { return journal_; }
  int HookCount() override;
  bool HasTrayIcon() override { return script_.trayIcon.has_value(); }
  std::vector<std::string> LeftOpen() override;

 private:
  // Answers for launch32.dll.
  struct Library : ClientLibrary {
    explicit Library(Win32Stage& known) : stage(known) {}
    Win32Stage& stage;
    std::string GetVersion(std::string_view clientFolder) override;
    int IsOnline() override;
    std::vector<std::string> GetScreenNames(std::string_view clientFolder) override;
  };
  // The user's hands, and what moves them.
  struct ByHand {
    explicit ByHand(Win32Stage& stage);
    ~ByHand();
    Hands hands;
    ControlHand controls;
    Hand hand;
    ClientHand client;
    UINT_PTR timer;
  };
  struct Task {
    int id;
    std::function<void()> run;
  };

  void InstallClient(bool start) override;
  void WritePracticeSettings();
  void StartClient();
  std::string WhatClientSays();
  void StartProgram(const std::string& commandLine);
  Deed Post(std::function<void()> run);
  Deed Begun();
  static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD);
  void OnTick();
  void EndFinished();
  bool OnIdle(Actor& actor);
  bool RunTask();
  void TakeWitness();
  void NoteForms();

  const std::string folder_;
  const Options options_;
  const std::uint32_t begin_;
  win32::Win32Platform home_;
  MessageTouch touch_{home_};
  Hand messageHand_{touch_};
  RunDrive drive_{home_.platform()};
  practice::PracticeChannel channel_;
  Library library_{*this};
  Script script_;
  ScriptedPlatform scripted_{home_.platform(), library_, script_};
  desk::Journal journal_;
  std::vector<std::unique_ptr<CorvelProcess>> programs_;
  std::deque<Task> tasks_;
  std::set<int> openTasks_;
  int lastTask_ = 0;
  bool takingWitness_ = false;
  Actor* actor_ = nullptr;
  std::unique_ptr<ByHand> byHand_;
  std::set<std::string> shown_;  // the forms that were visible when last looked at
};

}  // namespace corvel::tools
