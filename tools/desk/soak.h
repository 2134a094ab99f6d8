// The soak: a random user at a random client on one desk for virtual hours, with slow windows, a
// client that dies or hangs, and a drive that fails.
#pragma once

#include "tools/desk/desk_stage.h"
#include "tools/desk/soak_checks.h"
#include "tools/desk/soak_user.h"
#include "tools/play.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvel::tools {

class Soak : public desk::Agent {
 public:
  explicit Soak(std::uint64_t seed);
  ~Soak() override;

  // To put more on it before the run.
  DeskStage& stage() { return stage_; }
  // Told each effect as it comes.
  void OnEffect(std::function<void(const desk::JournalEntry&)> hear) {
    onEffect_ = std::move(hear);
  }
  // Plays for so long, then lets the program end. What went wrong, or "".
  std::string Run(double hours);

  double HoursPlayed() { return static_cast<double>(stage_.NowMs()) / 3.6e6; }
  int Deeds() const { return deeds_; }
  int Lives() const { return lives_; }
  // What the user has found, and how often he has used it.
  const SoakUses& Uses() const { return user_.Uses(); }
  // The last effects before now, as in a trace.
  std::vector<std::string> LastEffects() const;

  bool Act() override;
  std::optional<std::int64_t> NextActAt() override { return actAt_; }

 private:
  void Hear(const desk::JournalEntry& entry);
  void Step();
  bool BringUp();
  void AnswerDialogs();
  bool Do(const Words& words);
  void Ending();
  void NoteState();
  void Fail(const std::string& why);
  void End();
  std::int64_t Pause();

  Dice dice_;
  DeskStage stage_;
  Play play_{stage_};
  SoakUser user_{stage_, play_, dice_};
  SoakChecks checks_{stage_};
  std::deque<desk::JournalEntry> last_;
  std::function<void(const desk::JournalEntry&)> onEffect_;
  std::int64_t actAt_ = 0, endAt_ = 0, endingSince_ = 0;
  bool over_ = false, acting_ = false;
  std::string failure_;
  int deeds_ = 0, lives_ = 0;
};

}  // namespace corvel::tools
