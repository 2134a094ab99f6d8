// The soak; see soak.h.
#include "tools/desk/soak.h"

#include "base/error.h"
#include "platform/desk/desk_services.h"
#include "platform/desk/desk_windows.h"
#include "practice/desk/desk_home.h"
#include "tools/scenario_commands.h"
#include "tools/trace.h"

#include <exception>

namespace corvel::tools {
namespace {

constexpr std::size_t kEffectsKept = 200;
// Windows that wait inside one another; a real user would have given up long before.
constexpr std::size_t kDeepest = 12;
constexpr std::int64_t kEndingMs = 10 * 60 * 1000;

}  // namespace

Soak::Soak(std::uint64_t seed) : dice_(seed), stage_(seed) {
  desk::Desk& desk = stage_.desk();
  desk.journal().KeepNothing();
  desk.journal().Listen([this](const desk::JournalEntry& entry) { Hear(entry); });
  for (const char* wave : {"C:\\AOL\\boing.wav", "C:\\AOL\\welcome.wav", "C:\\WINDOWS\\ding.wav",
                           "C:\\Wavs\\my song.wav"})
    stage_.PutWave(wave, 0.5);
  desk.files().Put("C:\\AUTOEXEC.BAT", SoakChecks::kAutoexec);
}

Soak::~Soak() {
  stage_.desk().SetAgent(nullptr);
  stage_.desk().journal().Listen(nullptr);
}

std::string Soak::Run(double hours) {
  desk::Desk& desk = stage_.desk();
  endAt_ = static_cast<std::int64_t>(hours * 3.6e6);
  desk.SetAgent(this);
  try {
    while (!over_) desk.Round(desk.NowMs() + 1000);
  } catch (const std::exception& fault) {
    over_ = true;
    failure_ = std::string("a fault: ") + fault.what();
  } catch (const RunTimeError& error) {
    over_ = true;
    failure_ = "an error that nobody took: " + error.Text();
  }
  desk.SetAgent(nullptr);
  return failure_;
}

std::vector<std::string> Soak::LastEffects() const {
  std::vector<std::string> lines;
  for (const desk::JournalEntry& entry : last_) lines.push_back(TraceLine(entry));
  return lines;
}

void Soak::Hear(const desk::JournalEntry& entry) {
  checks_.Hear(entry);
  if (onEffect_) onEffect_(entry);
  last_.push_back(entry);
  if (last_.size() > kEffectsKept) last_.pop_front();
}

bool Soak::Act() {
  if (over_ || acting_) return false;
  std::string failure = checks_.CheckProgress();
  desk::Desk& desk = stage_.desk();
  if (failure.empty() && desk.NowMs() < actAt_) return false;
  acting_ = true;
  if (failure.empty()) failure = checks_.Check();
  if (!failure.empty())
    Fail(failure);
  else if (desk.NowMs() >= endAt_)
    Ending();
  else
    Step();
  actAt_ = desk.NowMs() + (endingSince_ == 0 ? Pause() : 500);
  acting_ = false;
  return true;
}

// Mostly quick, as a user who knows what he wants; sometimes he is away.
std::int64_t Soak::Pause() {
  if (dice_.Chance(1)) return dice_.Between(60'000, 900'000);
  return dice_.Chance(30) ? dice_.Between(500, 5000) : dice_.Between(1, 400);
}

void Soak::Step() {
  const bool settled = play_.IsSettled();
  while (play_.TakeLate()) continue;
  if (settled && play_.HasSteps()) {
    play_.RunStep();  // what can't be done is left out
    return;
  }
  if (BringUp()) return;
  if (dice_.Chance(60)) AnswerDialogs();
  const bool deep = stage_.desk().Pumps().size() > kDeepest;
  const SoakUser::Thought thought = deep ? user_.CloseSomething() : user_.Think();
  if (!thought.words.empty() && Do(thought.words)) user_.Did(thought);
}

// True: a client or program was started, or is yet to come up.
bool Soak::BringUp() {
  if (stage_.ClientProcess() == 0 && (stage_.Program() != 0 || dice_.Chance(80))) {
    if (stage_.Program() != 0 && dice_.Chance(95)) return false;
    user_.ChooseClient();
    if (stage_.HasClient()) {
      stage_.ChangeClient();
      practice::StartOnDesk(stage_.desk());
    } else {
      stage_.PutClient();
    }
    return true;
  }
  if (stage_.Program() != 0 && !dice_.Chance(1)) return false;
  ++lives_;
  if (dice_.Chance(20)) user_.ChangeSettings();
  stage_.desk().windows().SetHung(stage_.ClientProcess(), false);  // nobody else would end it
  stage_.StartProgram(dice_.Chance(5) ? "LIVEUPDATE" : "");
  return true;
}

void Soak::AnswerDialogs() {
  if (dice_.Chance(60)) user_.ThinkOfAnswer();
  play_.answers.Act();
  play_.answers.TakeFailure();  // a button that the box doesn't have
  play_.answers.unexpected.clear();
}

// False: it could not be done, which is an answer too.
bool Soak::Do(const Words& words) {
  if (const std::string wrong = CheckCommand(words); !wrong.empty()) {
    Fail("the random user said " + words[0] + ": " + wrong);
    return false;
  }
  stage_.desk().Note("user", words.All());
  ++deeds_;
  play_.DropSteps();
  return FindCommand(words[0])->play(play_, words).empty();
}

// The user closes the client and answers what is still asked; the program has to go with it.
void Soak::Ending() {
  if (endingSince_ == 0) endingSince_ = stage_.desk().NowMs();
  if (stage_.desk().NowMs() > endingSince_ + kEndingMs)
    return Fail("the program did not end with its client");
  stage_.desk().files().SetFreeSpace(1'000'000'000);
  stage_.desk().windows().SetHung(stage_.ClientProcess(), false);
  play_.user.DismissPopup();
  AnswerDialogs();
  if (stage_.Program() == 0) return End();
  if (!stage_.Client() || !dice_.Chance(20)) return;
  for (const char* line : {"upload off", "client-close"}) {
    std::string error;
    Do(ParseScenarioLine(line, {}, error));
  }
}

// What waits and the client's windows as they stand, for whoever looks into a failure.
void Soak::NoteState() {
  desk::Desk& desk = stage_.desk();
  for (const auto& pump : desk.Pumps())
    desk.Note("waits", {std::to_string(pump.process), std::string(pump.wait.name)});
  for (const auto& form : desk.peers().Forms())
    desk.Note("form", {form.state->name, form.state->visible ? "visible" : "hidden"});
  const practice::PracticeClient* const client = stage_.Client();
  if (!client) return;
  desk::DeskWindows& windows = desk.windows();
  desk.Note("client-window", {"AOL Frame25", windows.CaptionOf(client->Frame()),
                              windows.IsEnabled(client->Frame()) ? "enabled" : "disabled"});
  for (Window child = windows.TopChild(client->Mdi()); child; child = windows.Next(child))
    desk.Note("client-window", {windows.ClassOf(child), windows.CaptionOf(child),
                                windows.IsVisible(child) ? "visible" : "hidden"});
}

void Soak::Fail(const std::string& why) {
  failure_ = why;
  NoteState();
  End();
}

void Soak::End() {
  over_ = true;
  stage_.EndAll();
}

}  // namespace corvel::tools
