// Tells a scenario as it happens; see teller.h.
#include "tools/teller.h"

#include "base/cp1252.h"
#include "base/text.h"
#include "forms/marked_text.h"
#include "tools/scenario_commands.h"
#include "tools/terminal_text.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace corvel::tools {
namespace {

// Where the terminal shows no colours: which ones the client gets.
std::string FadeNote(const std::string& line) {
  constexpr std::string_view kTag = "<FONT COLOR=";
  const auto first = line.find(kTag), last = line.rfind(kTag);
  if (first == std::string::npos) return {};
  return "   (faded from " + line.substr(first + kTag.size(), 7) + " to " +
         line.substr(last + kTag.size(), 7) + ", " + std::to_string(line.size()) + " bytes)";
}

}  // namespace

ScenarioOptions Teller::Options() {
  ScenarioOptions options;
  options.onEffect = [this](const desk::JournalEntry& entry) { Effect(entry); };
  options.onNarration = [this](const std::string& text) { Narrate(text); };
  options.onCommand = [this](const Words& words) { Command(words); };
  return options;
}

void Teller::Narrate(const std::string& text) {
  std::cout << (color_ ? "\x1b[1m" + text + "\x1b[0m" : text) << std::endl;
  RestFor(text.empty() ? 0 : 1400);
}

std::string Teller::Line(const desk::JournalEntry& entry) {
  const std::string line = "the room reads   " + OnTerminal(entry.words[0], color_);
  return color_ ? line : line + FadeNote(entry.words[0]);
}

std::string Teller::Message(const desk::JournalEntry& entry) {
  const std::string plain = Replaced(forms::PlainText(entry.words[0]), "\n", " ");
  return "a message says   " + ToUtf8(plain);
}

std::string Teller::Shown(const desk::JournalEntry& entry) {
  return "a window comes   " + ToUtf8(entry.words[0]);
}

std::string Teller::Hidden(const desk::JournalEntry& entry) {
  return "a window goes    " + ToUtf8(entry.words[0]);
}

std::string Teller::Sound(const desk::JournalEntry& entry) {
  return "a sound plays    " + ToUtf8(entry.words[0]);
}

std::string Teller::Hook(const desk::JournalEntry& entry) {
  return "hooked now       the client's " + ToUtf8(entry.words[0]);
}

void Teller::Tell(const desk::JournalEntry& entry, const std::string& text) {
  RestFor(std::min<std::int64_t>(entry.at - lastAt_, 900));
  lastAt_ = entry.at;
  char time[24];
  std::snprintf(time, sizeof time, "%8.3f", static_cast<double>(entry.at) / 1000);
  std::cout << "   " << time << "  " << text << std::endl;
}

void Teller::RestFor(std::int64_t milliseconds) const {
  if (rest_) rest_(milliseconds);
}

bool Teller::Tells(const Words& words) {
  return FindCommand(words[0])->when == When::kRun && words[0] != "expect" && words[0] != "wait";
}

void Teller::Command(const Words& words) {
  if (!Tells(words)) return;
  std::string text = words[0];
  for (const std::string& word : words.From(1)) {
    const bool plain = !word.empty() && word.find_first_of(" \"\\\t\r\n") == std::string::npos;
    text += ' ' + (plain ? ToUtf8(word) : Quoted(word));
  }
  std::cout << (color_ ? "\x1b[36m> " + text + "\x1b[0m" : "> " + text) << std::endl;
  RestFor(700);
}

void Teller::Effect(const desk::JournalEntry& entry) {
  static constexpr Telling kTellings[] = {{"line", &Teller::Line},   {"message", &Teller::Message},
                                          {"shown", &Teller::Shown}, {"hidden", &Teller::Hidden},
                                          {"sound", &Teller::Sound}, {"hook", &Teller::Hook}};
  for (const Telling& telling : kTellings)
    if (entry.kind == telling.kind) return Tell(entry, (this->*telling.text)(entry));
}

}  // namespace corvel::tools
