// What the user can have the program do, whatever way he takes to it: the toolbar's menus, the
// tray, the client's menu, a keyword.
//
// A menu row carries its command as its id, so a row is found by what it does and not by where it
// stands. A command that nobody answers is one whose feature isn't there yet: its rows are greyed
// and say so.
#pragma once

#include <functional>
#include <map>
#include <string>

namespace corvel {

enum class Command : int {
  kOptions = 1,  // 0 is a row without a command
  kKillHourglass,
  kUploadAndChat,
  kHideWelcome,
  kTechSupport,
  kAdvertise,
  kWebSite,
  kPalroster,
  kBackdrape,
  kExportImport,
  kHelp,
  kCheckForUpdates,
  kAbout,
  kExit,
  kHideAsTray,
  kHideAsMenu,
  kShowToolbar,
  kWavList,
  kHushlet,
  kFadeDesigner,
  kIMManager,
  kTurnIMsOff,
  kQuickFind,
  kRoomBuster,
  kAliases,
  kAimAddresses,
  kWebPages,
  kGarlandEditor,
  kHugEditor,
  kKeywordEditor,
  kHotWords,
  kEMailMessages,
  kDescriptions,
  kSendHug,
};

class Commands {
 public:
  // The argument says more than the rows do ("the options, on this tab"); rows give "".
  using Action = std::function<void(const std::string& argument)>;

  void Set(Command command, Action action) { actions_[command] = std::move(action); }
  void Set(Command command, std::function<void()> action) {
    Set(command, [action = std::move(action)](const std::string&) { action(); });
  }
  bool IsBuilt(Command command) const { return actions_.contains(command); }
  // Nothing happens if nobody answers it.
  void Run(Command command, const std::string& argument = {}) const {
    const auto found = actions_.find(command);
    if (found == actions_.end()) return;
    const Action action = found->second;
    action(argument);
  }

 private:
  std::map<Command, Action> actions_;
};

}  // namespace corvel
