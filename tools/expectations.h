// Expectations: what a scenario says must have happened by now, or must stand now.
#pragma once

#include "tools/scenario_file.h"
#include "tools/user.h"

#include <cstddef>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace corvel::tools {

class Answers;

class Expectations {
 public:
  Expectations(Stage& stage, User& user, Answers& answers)
      : stage_(stage), user_(user), answers_(answers) {}

  // A row of the table of the words behind `expect`.
  struct Form {
    const char* word;
    const char* form;                                        // how its line reads
    std::size_t least, most;                                 // words behind `word`
    std::string (Expectations::*check)(const Words& words);  // nullptr: not built yet
  };
  static std::span<const Form> Table();
  // The row for the word behind `expect`, or nullptr.
  static const Form* Find(std::string_view word);

  // `words` begins with "expect" and has been found to be of its form. "" if it holds, else
  // "expected …, got …"; then nothing has been used up, so that it can be tried again.
  std::string Check(const Words& words);

  // What must hold at the end of every scenario: the first thing that doesn't, and its line (0: the
  // last one).
  struct Verdict {
    std::string failure;
    int line = 0;
  };
  Verdict AtEnd();

 private:
  using Entry = desk::JournalEntry;
  const Entry* NextOf(std::initializer_list<std::string_view> kinds);
  using SameText = std::function<bool(const std::string& got, const std::string& wanted)>;
  std::string Happened(const Words& words, const std::string& kind, const SameText& same);
  static std::string Failed(const Words& words, const std::string& got);
  std::string Ask(const std::vector<std::string>& question, std::string& why);
  std::string Same(const Words& words, const std::string& got, const std::string& wanted);
  std::string Flag(const Words& words, bool holds, const std::string& otherwise);
  std::string OfControl(const Words& words,
                        std::string (*judge)(const ControlState&, const Words&));

  std::string InOrder(const Words& words);
  std::string PathInOrder(const Words& words);
  std::string LikeInOrder(const Words& words);
  std::string Message(const Words& words);
  std::string NoMore(const Words& words);
  std::string LineSeen(const Words& words);
  std::string Mail(const Words& words);
  std::string Setting(const Words& words);
  std::string NoSetting(const Words& words);
  std::string FileIs(const Words& words);
  std::string FileHas(const Words& words);
  std::string NoFile(const Words& words);
  std::string Recycled(const Words& words);
  std::string Shown(const Words& words);
  std::string Value(const Words& words);
  std::string Items(const Words& words);
  std::string Enabled(const Words& words);
  std::string Tip(const Words& words);
  std::string Popup(const Words& words);
  std::string Greyed(const Words& words);
  std::string Input(const Words& words);
  std::string Im(const Words& words);
  std::string ClientMenu(const Words& words);
  std::string Window(const Words& words);
  std::string NoWindow(const Words& words);
  std::string Place(const Words& words);
  std::string Hooked(const Words& words);
  std::string Running(const Words& words);
  std::string ClientRunning(const Words& words);
  std::string ClientEnabled(const Words& words);
  std::string Tray(const Words& words);

  Stage& stage_;
  User& user_;
  Answers& answers_;
  std::map<std::string, std::size_t, std::less<>> used_;  // of each kind: entries up to here
  std::vector<std::size_t> named_;                        // message entries that a line has named
};

}  // namespace corvel::tools
