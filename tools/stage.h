// The stage: what playing a scenario needs of a home, be it the desk or Windows. On it stand the
// practice client and the program, wired with each other. It sets the scene, starts processes,
// lends the user a hand and tells what came of it; it plays nobody.
#pragma once

#include "base/civil_time.h"
#include "platform/desk/journal.h"
#include "platform/desk/prompt.h"
#include "platform/desk/web_table.h"
#include "platform/files.h"
#include "platform/menus.h"
#include "platform/registry.h"
#include "practice/practice_client.h"
#include "tools/hand/hand.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tools {

// What was wrong: "expected …, got …". Empty: nothing.
using Failure = std::string;

// Whoever plays the user and the world. Called whenever nothing else is due, also from inside the
// program's waits.
class Actor {
 public:
  virtual ~Actor() = default;
  virtual bool Act() = 0;  // true: it did something, look for due things before time moves
  // The time at which it wants to act next, if known.
  virtual std::optional<std::int64_t> NextActAt() = 0;
  virtual bool IsOver() = 0;
};

class Stage {
 public:
  virtual ~Stage() = default;
  Stage() = default;
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  virtual std::string_view Home() const = 0;  // "desk", "windows"

  // --- Time ------------------------------------------------------------------------------------
  virtual std::int64_t NowMs() const = 0;  // since the scenario began
  // An expectation may come true so much later: 0 where nothing goes on but what is waited for.
  virtual std::int64_t PatienceMs() const = 0;
  virtual std::int64_t StuckAfterMs() const = 0;  // so long without progress in one command
  // The program's innermost wait, for whoever is told that it is stuck.
  virtual std::string InnermostWait() = 0;
  virtual void Run(Actor& actor) = 0;  // until it is over

  // --- The scene -------------------------------------------------------------------------------
  virtual void SetWallClock(const CivilTime& now) = 0;
  virtual void SetTimeZone(const std::string& name) = 0;
  virtual void SetWindowsPlatform(int platform) = 0;  // as SystemInfo has it
  virtual void SetDisplay(int bitsPerPixel, int width, int height) = 0;
  virtual void SetTaskbar(bool present) = 0;
  virtual void NextDraws(const std::vector<double>& draws) = 0;
  virtual Registry& registry() = 0;
  // Past all faults: writes with the folders, removes, reads (nothing: there is none).
  virtual void PutFile(std::string_view path, std::string_view bytes) = 0;
  virtual void RemoveFile(std::string_view path) = 0;
  virtual std::optional<std::string> Peek(std::string_view path) = 0;
  // Leaves one of the system's runtime files out.
  void RemoveRuntimeFile(std::string_view name);
  static bool IsRuntimeFile(std::string_view name);
  // A valid wave file of silence.
  void PutWave(std::string_view path, double seconds);

  // The machine has this drive; without a disk each use of it fails. A (an empty diskette drive)
  // and C are there from the start.
  virtual void SetDrive(char letter, DriveKind kind, bool hasDisk) = 0;
  // What the web answers, from now on.
  virtual desk::WebTable& web() = 0;

  // Faults.
  virtual void FailFile(int call, int errorNumber, const std::string& part) = 0;
  virtual void SetFreeSpace(std::int64_t bytes) = 0;
  virtual void LockFile(std::string_view path, bool locked) = 0;

  // --- The client ------------------------------------------------------------------------------
  practice::Setup setup;  // what it will be; changed until it is put on the stage
  bool clientRuns = true;
  // Puts it on the stage and, if it shall run, starts it. Its windows stand after StandMs.
  void PutClient();
  bool HasClient() const { return hasClient_; }
  std::int64_t StandMs() const;
  virtual void ChangeClient() = 0;  // `setup` counts from its next start on
  virtual bool ClientRuns() = 0;
  // It takes no messages, from so many milliseconds on and for so long, or until it is released; in
  // the end it goes on, or its process vanishes.
  struct Hang {
    std::int64_t afterMs = 0;
    std::optional<std::int64_t> forMs{};
    bool thenCrashes = false;
  };
  virtual Deed HangClient(const Hang& hang) = 0;
  virtual void ReleaseClient() = 0;
  virtual bool ClientHangs() = 0;
  virtual void CrashClient() = 0;
  // A command; `reply` is filled in when the deed is over. And a question, answered at once.
  virtual Deed DoInClient(const std::vector<std::string>& words,
                          std::shared_ptr<practice::Reply> reply) = 0;
  virtual practice::Reply AskClient(const std::vector<std::string>& words) = 0;

  // --- The program -----------------------------------------------------------------------------
  // Over when its Main has come back, it waits for its user, or it is no more.
  virtual Deed Start(const std::string& commandLine) = 0;
  virtual bool ProgramRuns() = 0;
  virtual bool ProgramWaitsForUser() = 0;
  // Ends all processes, however deep their calls stand.
  virtual void EndAll() = 0;

  // --- The user's hand -------------------------------------------------------------------------
  virtual Hand& hand() = 0;
  std::vector<FormView> Forms() { return hand().Forms(); }
  std::vector<ControlView> ControlsOf(Window form) { return hand().ControlsOf(form); }
  Deed Click(Window control) { return hand().Click(control); }
  Deed DoubleClick(Window control) { return hand().DoubleClick(control); }
  Deed RightClick(Window control) { return hand().RightClick(control); }
  Deed Select(Window control, int row, bool keepMarked) {
    return hand().Select(control, row, keepMarked);
  }
  Deed Type(Window control, const std::string& wholeText) {
    return hand().Type(control, wholeText);
  }
  Deed Press(Window control, Key key) { return hand().Press(control, key); }
  Deed Drag(Window control, int dx, int dy) { return hand().Drag(control, dx, dy); }
  Deed Close(Window form) { return hand().Close(form); }
  virtual bool TrayMouse(LParam mouseMessage) = 0;                    // false: there is no icon
  virtual std::vector<std::shared_ptr<desk::Prompt>>& Prompts() = 0;  // innermost last
  virtual Menus& menus() = 0;                                         // to look at a pop-up's rows
  // In the pop-up menu of this prompt: the row at the end of `rows`, from the outermost menu in.
  virtual void ChooseRow(desk::Prompt& popup, const std::vector<int>& rows);
  virtual void PutAway(desk::Prompt& popup) { popup.answered = true; }
  // Where the hand takes its time: it still moves; and, told once, why it could not do its work.
  virtual bool HandIsBusy() { return false; }
  virtual std::string TakeHandFailure() { return {}; }

  // --- What came of it -------------------------------------------------------------------------
  virtual desk::Journal& journal() = 0;
  void Note(std::string_view kind, std::vector<std::string> words);
  virtual int HookCount() = 0;
  virtual bool HasTrayIcon() = 0;
  // What programs that have ended left open. One sentence each.
  virtual std::vector<std::string> LeftOpen() = 0;

 protected:
  // A machine as every scenario finds it.
  void SetMachine();
  virtual void InstallClient(bool start) = 0;

 private:
  bool hasClient_ = false;
};

}  // namespace corvel::tools
