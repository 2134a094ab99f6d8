// The random user of the soak: thinks up one command of the scenario language after the other, in a
// client and a program as they happen to stand. So each of its deeds can be played by hand again.
#pragma once

#include "tools/desk/dice.h"
#include "tools/play.h"
#include "tools/scenario_file.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvel::tools {

class SoakUser {
 public:
  SoakUser(Play& play, Dice& dice) : play_(play), dice_(dice) {}

  // A command that could be given now; none if the one thought of can't be.
  Words Think();
  // What an impatient user does when too many windows wait for him.
  Words CloseSomething();
  // Queues an answer for whatever dialog comes next.
  void ThinkOfAnswer();
  // The next client to be, before it starts.
  void ChooseClient();

 private:
  using Thought = std::vector<std::string>;
  struct Deed {
    int weight;
    Thought (SoakUser::*think)();
  };
  static std::span<const Deed> Deeds();

  Thought UseControl();
  Thought UseMenu();
  Thought UsePopup();
  Thought UseTray();
  Thought UseRoom();
  Thought UsePeople();
  Thought UseIm();
  Thought UseMail();
  Thought UseClient();
  Thought ChangeFiles();
  Thought BreakFiles();
  Thought MendFiles();
  Thought HangClient();
  Thought EndClient();
  Thought EndProgram();

  std::string SomeText();
  std::string SomePerson();
  std::string SomeWave();
  std::optional<FormView> SomeForm();

  Play& play_;
  Dice& dice_;
};

}  // namespace corvel::tools
