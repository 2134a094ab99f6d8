// corvel-win: the program in real windows, played by scenarios.
#include "tools/scenario_player.h"
#include "tools/teller.h"
#include "tools/trace.h"
#include "tools/win32/camera.h"
#include "tools/win32/win32_stage.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <windows.h>

namespace {

using namespace corvel::tools;

std::string OwnFolder() {
  char path[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string own = path;
  return own.substr(0, own.rfind('\\'));
}

using Files = std::vector<std::string>;

int Play(const Files& files, const ScenarioOptions& options, const Win32Stage::Options& stage) {
  const std::string folder = OwnFolder();
  return PlayScenarioFiles(
      files, [&] { return std::make_unique<Win32Stage>(folder, stage); }, options);
}

int Scenario(Files files) {
  Win32Stage::Options stage;
  stage.byHand = std::erase(files, "--hands") > 0;
  ScenarioOptions options;
  if (std::erase(files, "--trace") > 0)
    options.onEffect = [](const corvel::desk::JournalEntry& entry) {
      std::cout << TraceLine(entry) << std::endl;
    };
  return Play(files, options, stage);
}

// Pictures of a demonstration: where the hand touches something, where a window or a line comes;
// of what is done without a hand, when it is over.
class Album {
 public:
  explicit Album(Win32Stage::Options& stage) {
    stage.onTouch = [this] { Show(); };
    stage.rests = [this] { return camera_.Rest(); };
  }

  ScenarioOptions Beside(ScenarioOptions told) {
    const auto effect = told.onEffect;
    told.onEffect = [this, effect](const corvel::desk::JournalEntry& entry) {
      effect(entry);
      if (entry.kind == "shown" || entry.kind == "hidden" || entry.kind == "line") Show();
    };
    const auto narration = told.onNarration;
    told.onNarration = [this, narration](const std::string& utf8) {
      CloseLast(false);
      narration(utf8);
    };
    const auto command = told.onCommand;
    told.onCommand = [this, command](const Words& words) {
      if (Teller::Tells(words)) CloseLast(true);
      command(words);
    };
    return told;
  }

 private:
  void Show() {
    unseen_ = false;
    camera_.Want();
  }
  void CloseLast(bool another) {
    if (unseen_) camera_.TakeNow();
    unseen_ = another;
  }

  Camera camera_;
  bool unseen_ = false;  // of the last command nothing has been shown yet
};

// Told as it happens. The windows themselves, and the hand that moves, take the time that a person
// needs to follow.
int Demo(Files files) {
  const bool color = std::erase(files, "--color") > 0;
  Teller teller(color, {});
  Win32Stage::Options stage;
  stage.byHand = true;
  if (std::erase(files, "--pictures") == 0) return Play(files, teller.Options(), stage);
  Album album(stage);
  return Play(files, album.Beside(teller.Options()), stage);
}

struct SubCommand {
  const char* name;
  int (*run)(Files files);
};
constexpr SubCommand kSubCommands[] = {{"scenario", Scenario}, {"demo", Demo}};

}  // namespace

int main(int count, char** values) {
  Files words(values + 1, values + count);
  const std::string name = words.empty() ? "" : words.front();
  for (const SubCommand& command : kSubCommands) {
    if (name != command.name || words.size() < 2) continue;
    words.erase(words.begin());
    try {
      return command.run(std::move(words));
    } catch (const std::exception& error) {
      std::cerr << "corvel-win: " << error.what() << '\n';
      return kUnreadable;
    }
  }
  std::cerr << "usage: corvel-win scenario [--trace] [--hands] FILE...\n"
               "       corvel-win demo [--color] [--pictures] FILE\n"
               "Plays scenarios with the program in real windows. It needs a machine, or a prefix, "
               "of its own.\n"
               "--hands moves the mouse and strikes the keys, as demo does.\n"
               "--pictures prints \"picture NUMBER X Y\" for each and waits for a line of input.\n";
  return kUnreadable;
}
