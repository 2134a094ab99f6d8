// The random user of the soak: looks at what is there (windows and their controls, menus, the tray,
// the client's menu bar and documents) and thinks up one command of the scenario language after the
// other. So each of his deeds can be played by hand again, and whatever comes to the program he
// finds by himself.
#pragma once

#include "tools/desk/desk_stage.h"
#include "tools/desk/dice.h"
#include "tools/desk/soak_uses.h"
#include "tools/desk/soak_words.h"
#include "tools/play.h"
#include "tools/scenario_file.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace corvel::tools {

class SoakUser {
 public:
  SoakUser(DeskStage& stage, Play& play, Dice& dice) : stage_(stage), play_(play), dice_(dice) {}

  struct Thought {
    Words words;        // none: nothing that he thinks of can be done
    std::string thing;  // what he uses by it
  };
  Thought Think();
  // What an impatient user does when too many windows wait for him.
  Thought CloseSomething();
  // The thought was carried out.
  void Did(const Thought& thought);

  // Queues an answer for whatever dialog stands or comes next.
  void ThinkOfAnswer();
  // The next client to be, before it starts.
  void ChooseClient();
  // Earlier settings, as another evening may have left them: changes some of all that are declared.
  void ChangeSettings();

  const SoakUses& Uses() const { return uses_; }

 private:
  struct Offer {
    std::string thing;
    int weight;
    std::vector<std::string> words;
  };
  struct Area {
    int weight;
    Thought (SoakUser::*think)();
  };
  static std::span<const Area> Areas();

  Thought UseWindow();
  Thought UseForm(const FormView& form);
  Thought UsePopup();
  Thought UseTray();
  Thought UseClientMenu();
  Thought CloseDocument();
  Thought UseWord();

  Thought OneOf(const std::vector<Offer>& offers);
  void Look();
  std::vector<FormView> PlayableForms();
  std::vector<ControlView> UsableControls(Window form);
  std::vector<std::string> Documents();  // captions of the client's, the topmost first
  std::vector<std::string> WordsFor(const std::string& name, const ControlState& state);
  void AddRows(std::vector<Offer>& offers, MenuHandle menu, std::vector<std::string> path,
               const std::string& origin);
  std::string Another(const std::string& value);
  std::string SomeButton();
  std::string Some(std::string_view placeholder) { return made_.Some(placeholder).value_or(""); }

  DeskStage& stage_;
  Play& play_;
  Dice& dice_;
  SoakWords made_{dice_};
  SoakUses uses_;
  std::string opener_;  // what was used last: a pop-up that is open came of it
};

}  // namespace corvel::tools
