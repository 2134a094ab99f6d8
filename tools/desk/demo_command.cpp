// corvel-desk demo: plays the demonstration scenario and tells it as it happens.
#include "base/cp1252.h"
#include "base/text.h"
#include "forms/marked_text.h"
#include "tools/desk/desk_stage.h"
#include "tools/desk/scenario_command.h"
#include "tools/desk/terminal_text.h"
#include "tools/scenario_commands.h"
#include "tools/scenario_player.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <thread>

namespace corvel::tools {
namespace {

constexpr const char* kDemoPath = "tests/scenarios/demo.scn";

// In the folder at hand or one above it: the demonstration is started from a checkout.
std::string FindDemo() {
  std::error_code error;
  std::filesystem::path folder = std::filesystem::current_path(error);
  while (!error) {
    if (std::filesystem::is_regular_file(folder / kDemoPath, error))
      return (folder / kDemoPath).string();
    if (folder == folder.parent_path()) break;
    folder = folder.parent_path();
    error.clear();
  }
  return kDemoPath;
}

// Where the terminal shows no colours: which ones the client gets.
std::string FadeNote(const std::string& line) {
  constexpr std::string_view kTag = "<FONT COLOR=";
  const auto first = line.find(kTag), last = line.rfind(kTag);
  if (first == std::string::npos) return {};
  return "   (faded from " + line.substr(first + kTag.size(), 7) + " to " +
         line.substr(last + kTag.size(), 7) + ", " + std::to_string(line.size()) + " bytes)";
}

// What of the effects is told, and how: the others (settings, files, hooks) are for the trace.
class Teller {
 public:
  Teller(bool color, bool paced) : color_(color), paced_(paced) {}

  void Narrate(const std::string& text) {
    std::cout << (color_ ? "\x1b[1m" + text + "\x1b[0m" : text) << std::endl;
    Rest(text.empty() ? 0 : 1400);
  }

  // What is done: by the user, by the people in the room. Not what is looked at or set beforehand.
  void Command(const Words& words);
  void Effect(const desk::JournalEntry& entry);

 private:
  struct Telling {
    const char* kind;
    std::string (Teller::*text)(const desk::JournalEntry& entry);
  };

  std::string Line(const desk::JournalEntry& entry) {
    const std::string line = "the room reads   " + OnTerminal(entry.words[0], color_);
    return color_ ? line : line + FadeNote(entry.words[0]);
  }
  std::string Message(const desk::JournalEntry& entry) {
    const std::string plain = Replaced(forms::PlainText(entry.words[0]), "\n", " ");
    return "a message says   " + ToUtf8(plain);
  }
  std::string Shown(const desk::JournalEntry& entry) {
    return "a window comes   " + ToUtf8(entry.words[0]);
  }
  std::string Hidden(const desk::JournalEntry& entry) {
    return "a window goes    " + ToUtf8(entry.words[0]);
  }
  std::string Sound(const desk::JournalEntry& entry) {
    return "a sound plays    " + ToUtf8(entry.words[0]);
  }
  std::string Hook(const desk::JournalEntry& entry) {
    return "hooked now       the client's " + ToUtf8(entry.words[0]);
  }

  void Tell(const desk::JournalEntry& entry, const std::string& text) {
    Rest(std::min<std::int64_t>(entry.at - lastAt_, 900));
    lastAt_ = entry.at;
    char time[24];
    std::snprintf(time, sizeof time, "%8.3f", static_cast<double>(entry.at) / 1000);
    std::cout << "   " << time << "  " << text << std::endl;
  }
  void Rest(std::int64_t milliseconds) const {
    if (paced_) std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
  }

  const bool color_, paced_;
  std::int64_t lastAt_ = 0;
};

void Teller::Command(const Words& words) {
  const tools::Command* const command = FindCommand(words[0]);
  if (command->when != When::kRun || words[0] == "expect" || words[0] == "wait") return;
  std::string text = words[0];
  for (const std::string& word : words.From(1)) {
    const bool plain = !word.empty() && word.find_first_of(" \"\\\t\r\n") == std::string::npos;
    text += ' ' + (plain ? ToUtf8(word) : Quoted(word));
  }
  std::cout << (color_ ? "\x1b[36m> " + text + "\x1b[0m" : "> " + text) << std::endl;
  Rest(700);
}

void Teller::Effect(const desk::JournalEntry& entry) {
  static constexpr Telling kTellings[] = {{"line", &Teller::Line},   {"message", &Teller::Message},
                                          {"shown", &Teller::Shown}, {"hidden", &Teller::Hidden},
                                          {"sound", &Teller::Sound}, {"hook", &Teller::Hook}};
  for (const Telling& telling : kTellings)
    if (entry.kind == telling.kind) return Tell(entry, (this->*telling.text)(entry));
}

}  // namespace

int DemoCommand(Arguments& arguments) {
  const bool plain = arguments.TakeFlag("--plain");
  const bool fast = arguments.TakeFlag("--fast");
  const std::string file = arguments.TakeValue("--file").value_or(FindDemo());
  if (!arguments.Rest().empty() || !arguments.Error().empty()) {
    std::cerr << "usage: corvel-desk demo [--plain] [--fast] [--file FILE]\n";
    return kUnreadable;
  }
  Teller teller(!plain && StdoutShowsColor(), !fast && StdoutIsTerminal());
  ScenarioOptions options;
  options.onEffect = [&](const desk::JournalEntry& entry) { teller.Effect(entry); };
  options.onNarration = [&](const std::string& text) { teller.Narrate(text); };
  options.onCommand = [&](const Words& words) { teller.Command(words); };
  const int exitCode = PlayScenarioFiles(
      {file}, [] { return std::make_unique<DeskStage>(1); }, options);
  if (exitCode == kHeld)
    std::cout
        << "\nEvery byte above was checked. Play on by hand:  build/desk/corvel-desk scenario -\n";
  return exitCode;
}

}  // namespace corvel::tools
