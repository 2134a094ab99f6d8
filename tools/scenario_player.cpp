// Plays scenario files; see scenario_player.h.
#include "tools/scenario_player.h"

#include "base/cp1252.h"
#include "tools/scenario_commands.h"
#include "tools/scenario_run.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace corvel::tools {
namespace {

class FileSource : public ScenarioSource {
 public:
  FileSource(std::string name, std::vector<ScenarioLine> lines, const ScenarioOptions& options)
      : name_(std::move(name)), lines_(std::move(lines)), options_(options) {}

  std::optional<ScenarioLine> Next() override {
    while (next_ < lines_.size()) {
      ScenarioLine& line = lines_[next_++];
      if (line.words.empty()) {
        if (options_.onNarration) options_.onNarration(line.narration);
        continue;
      }
      if (options_.onCommand) options_.onCommand(line.words);
      return std::move(line);
    }
    return std::nullopt;
  }

  bool Fail(int line, const Failure& failure) override {
    verdict.exitCode = kFailed;
    verdict.messages.push_back(name_ + ":" + std::to_string(line) + ": " + failure);
    return false;
  }

  ScenarioVerdict verdict;

 private:
  std::string name_;
  std::vector<ScenarioLine> lines_;
  const ScenarioOptions& options_;
  std::size_t next_ = 0;
};

bool SetsScene(const ScenarioLine& line) {
  const Command* const command = line.words.empty() ? nullptr : FindCommand(line.words[0]);
  return command && command->when == When::kScene;
}

// The line that keeps the scenario for another home, or nullptr.
const ScenarioLine* OnlyElsewhere(const ScenarioFile& file, const Stage& stage) {
  for (const ScenarioLine& line : file.lines)
    if (line.words.IsBare(0, "only") && line.words[1] != stage.Home()) return &line;
  return nullptr;
}

std::optional<std::string> ReadBytes(const std::filesystem::path& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

}  // namespace

void CheckScenario(ScenarioFile& file) {
  bool started = false;
  for (const ScenarioLine& line : file.lines) {
    if (line.words.empty()) continue;
    const std::string error = CheckCommand(line.words);
    if (!error.empty())
      file.errors.push_back({line.number, error});
    else if (started && SetsScene(line))
      file.errors.push_back({line.number, line.words[0] + " can stand before the start only"});
    const Command* const given = CommandGiven(line.words);
    started = started || (given && given->word == std::string_view("start"));
  }
  std::stable_sort(file.errors.begin(), file.errors.end(),
                   [](const auto& a, const auto& b) { return a.line < b.line; });
  std::stable_partition(file.lines.begin(), file.lines.end(), SetsScene);
}

ScenarioVerdict PlayScenario(Stage& stage, const std::string& name, std::string_view utf8,
                             const ReadBeside& readBeside, const ScenarioOptions& options) {
  ScenarioFile file = ParseScenario(utf8, readBeside);
  CheckScenario(file);
  if (!file.errors.empty()) {
    ScenarioVerdict verdict{kUnreadable, {}, {}};
    for (const ScenarioError& error : file.errors)
      verdict.messages.push_back(name + ":" + std::to_string(error.line) + ": " + error.text);
    return verdict;
  }
  if (const ScenarioLine* const only = OnlyElsewhere(file, stage))
    return {kHeld, name + ": only on " + only->words[1] + ": " + ToUtf8(only->words[2]), {}};
  FileSource source(name, std::move(file.lines), options);
  ScenarioRun run(source, stage);
  if (options.onEffect) stage.journal().Listen(options.onEffect);
  run.Run();
  return source.verdict;
}

ScenarioVerdict PlayScenarioFile(Stage& stage, const std::string& path,
                                 const ScenarioOptions& options) {
  const auto text = ReadBytes(path);
  if (!text) return {kUnreadable, {}, {path + ":0: can't read this file"}};
  const std::filesystem::path folder = std::filesystem::path(path).parent_path();
  return PlayScenario(
      stage, path, *text, [&](const std::string& name) { return ReadBytes(folder / ToUtf8(name)); },
      options);
}

namespace {

// What the stage itself can't do is said of the file, and the others are played all the same.
ScenarioVerdict PlayOnNewStage(const MakeStage& makeStage, const std::string& file,
                               const ScenarioOptions& options) {
  try {
    return PlayScenarioFile(*makeStage(), file, options);
  } catch (const std::exception& error) {
    ScenarioVerdict verdict;
    verdict.exitCode = kUnreadable;
    verdict.messages = {file + ": " + error.what()};
    return verdict;
  }
}

}  // namespace

int PlayScenarioFiles(const std::vector<std::string>& files, const MakeStage& makeStage,
                      const ScenarioOptions& options) {
  int exitCode = kHeld;
  for (const std::string& file : files) {
    const ScenarioVerdict verdict = PlayOnNewStage(makeStage, file, options);
    if (!verdict.skipped.empty()) std::cout << verdict.skipped << '\n';
    std::cout.flush();
    for (const std::string& message : verdict.messages) std::cerr << message << '\n';
    exitCode = std::max(exitCode, verdict.exitCode);
  }
  return exitCode;
}

}  // namespace corvel::tools
