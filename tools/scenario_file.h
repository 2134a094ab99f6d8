// Scenario files as text: lines of words, with quotes, escapes and files beside. docs/scenarios.md
// tells the form. Pure and total: any bytes give lines and errors, never an exception.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tools {

// The words of one command, as Windows-1252 bytes.
class Words {
 public:
  void Add(std::string text, bool quoted);
  std::size_t size() const { return words_.size(); }
  bool empty() const { return words_.empty(); }
  const std::string& operator[](std::size_t at) const { return words_[at].text; }
  // The word stands there without quotes and reads so: a keyword where a text could stand too.
  bool IsBare(std::size_t at, std::string_view text) const;
  std::vector<std::string> From(std::size_t first) const;
  // The words from there on, as a line of their own.
  Words Behind(std::size_t first) const;
  std::vector<std::string> All() const { return From(0); }

 private:
  struct Word {
    std::string text;
    bool quoted;
  };
  std::vector<Word> words_;
};

struct ScenarioLine {
  int number = 0;         // from 1
  Words words;            // empty: a narration
  std::string narration;  // of a line that begins with "#:", UTF-8
};

struct ScenarioError {
  int line = 0;
  std::string text;
};

// The bytes of a file beside the scenario; nothing if it can't be read.
using ReadBeside = std::function<std::optional<std::string>(const std::string& name)>;

// One line without its end. Gives its words (none for an empty line or a comment), or sets `error`.
Words ParseScenarioLine(std::string_view utf8, const ReadBeside& readBeside, std::string& error);

struct ScenarioFile {
  std::vector<ScenarioLine> lines;  // empty lines and comments left out
  std::vector<ScenarioError> errors;
};

ScenarioFile ParseScenario(std::string_view utf8, const ReadBeside& readBeside);

// A word as it can stand in a scenario again: in quotes, with the escapes, in UTF-8.
std::string Quoted(std::string_view text);

}  // namespace corvel::tools
