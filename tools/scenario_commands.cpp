// The commands of the scenario language; see scenario_commands.h.
#include "tools/scenario_commands.h"

#include "base/cp1252.h"
#include "base/text.h"
#include "tools/expectations.h"

#include <charconv>

namespace corvel::tools {
namespace {

std::string WordCountError(const Words& words, std::size_t least, std::size_t most,
                           const std::string& form) {
  const std::size_t behind = words.size() - 1;
  if (behind >= least && behind <= most) return {};
  return std::string(behind < least ? "words are missing" : "too many words") +
         "; it reads: " + form;
}

constexpr std::int64_t kTryAgainMs = 20;

// Where time goes on by itself, what is expected may be about to come.
Failure ExpectBy(Play& play, const Words& words, std::int64_t last) {
  Failure failure = play.expectations.Check(words);
  if (failure.empty() || play.stage.NowMs() >= last) return failure;
  play.SleepFor(kTryAgainMs);
  play.Then([&play, words, last] { return ExpectBy(play, words, last); });
  return {};
}

Failure PlayExpect(Play& play, const Words& words) {
  return ExpectBy(play, words, play.stage.NowMs() + play.stage.PatienceMs());
}

std::string CheckIm(const Words& words) {
  if (words.IsBare(3, "in-manager")) return "`expect im ... in-manager` is not built yet";
  const bool has = words.IsBare(3, "has") && words.size() == 5;
  const bool state = (words.IsBare(3, "open") || words.IsBare(3, "closed")) && words.size() == 4;
  return has || state ? "" : "it is `has \"TEXT\"`, `open` or `closed`";
}

std::string CheckMail(const Words& words) {
  for (const char* part : {"to", "subject", "body", "attached", "body-has"})
    if (words.IsBare(2, part)) return {};
  return "it is to, subject, body, attached or body-has";
}

std::string CheckWindow(const Words& words) {
  const bool state =
      words.IsBare(3, "shown") || words.IsBare(3, "hidden") || words.IsBare(3, "closed");
  if (words.size() == 3 || (state && words.size() == 4)) return {};
  return words.IsBare(3, "has") && words.size() == 5
             ? ""
             : "it is shown, hidden, closed or has \"TEXT\"";
}

std::string CheckPlace(const Words& words) {
  for (std::size_t i = 3; i < words.size(); ++i)
    if (words[i] != std::to_string(IntVal(words[i]))) return "whole numbers of pixels are wanted";
  return {};
}

std::string CheckExpectedControl(const Words& words) {
  const auto name = ParseControlName(words[2]);
  const bool whole = words[1] == "value";  // of a window: its caption
  return name && (whole || !name->control.empty()) ? "" : "FORM.CONTROL is wanted";
}

std::string CheckExpectedCount(const Words& words) {
  const std::string& text = words[2];
  const bool digits = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  return digits ? "" : "a count is wanted";
}

struct ExpectCheck {
  const char* word;
  std::string (*check)(const Words& words);
};
constexpr ExpectCheck kExpectChecks[] = {{"im", CheckIm},
                                         {"mail", CheckMail},
                                         {"window", CheckWindow},
                                         {"place", CheckPlace},
                                         {"value", CheckExpectedControl},
                                         {"items", CheckExpectedControl},
                                         {"enabled", CheckExpectedControl},
                                         {"disabled", CheckExpectedControl},
                                         {"tip", CheckExpectedControl},
                                         {"hooked", CheckExpectedCount}};

std::string CheckExpect(const Words& words) {
  const Expectations::Form* const form = Expectations::Find(words[1]);
  if (!form) return "no such expectation: " + ToUtf8(words[1]);
  const std::size_t behind = words.size() - 2;
  if (behind < form->least || behind > form->most)
    return std::string(behind < form->least ? "words are missing" : "too many words") +
           "; it reads: expect " + form->form;
  if (!form->check) return "`expect " + words[1] + "` is not built yet";
  for (const ExpectCheck& check : kExpectChecks)
    if (words[1] == check.word) return check.check(words);
  return {};
}

constexpr Command kExpect{"expect",   "WHAT... (see below)", 1,   kAnyNumber, When::kRun,
                          PlayExpect, CheckExpect,           true};

}  // namespace

double ParseSeconds(const std::string& word, double most) {
  double seconds = -1;
  const char* const last = word.data() + word.size();
  const auto [end, error] = std::from_chars(word.data(), last, seconds, std::chars_format::fixed);
  const bool good = error == std::errc() && end == last && seconds >= 0 && seconds <= most;
  return good ? seconds : -1;
}

const Command* FindCommand(std::string_view word) {
  if (word == kExpect.word) return &kExpect;
  for (const auto table : {SceneCommands(), ClientCommands(), ProgramCommands(), TimingCommands()})
    for (const Command& command : table)
      if (word == command.word) return &command;
  return nullptr;
}

const Command* CommandGiven(const Words& words) {
  return FindCommand(words[words.size() > 1 && words.IsBare(0, "begin") ? 1 : 0]);
}

std::string CheckCommand(const Words& words) {
  const Command* const command = FindCommand(words[0]);
  if (!command) return "no such command: " + ToUtf8(words[0]);
  const std::string form = std::string(command->word) + " " + command->form;
  std::string error = WordCountError(words, command->least, command->most, form);
  if (error.empty() && !command->play) error = "`" + words[0] + "` is not built yet";
  if (error.empty() && command->check) error = command->check(words);
  return error;
}

std::string CommandHelp() {
  std::string text;
  const auto add = [&text](std::span<const Command> table, const char* heading) {
    text += heading;
    for (const Command& command : table)
      if (command.play) text += "  " + std::string(command.word) + " " + command.form + "\n";
  };
  add(SceneCommands(), "Before the start:\n");
  add(ClientCommands(), "The client, its user and the people in it:\n");
  add(ProgramCommands(), "The user in the program:\n");
  add(TimingCommands(), "Several things at once:\n");
  text += "Expectations:\n";
  for (const Expectations::Form& form : Expectations::Table())
    if (form.check) text += "  expect " + std::string(form.form) + "\n";
  return text;
}

}  // namespace corvel::tools
