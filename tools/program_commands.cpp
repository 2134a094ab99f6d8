// The commands for the user in the program: menus, controls, and answers to dialogs.
#include "base/text.h"
#include "tools/scenario_commands.h"

#include <charconv>
#include <utility>

namespace corvel::tools {
namespace {

constexpr LParam kMouseDoubleClick = 0x0203, kMouseRightUp = 0x0205;

// Finds the control that words[1] names and does something to it.
template <class Do>
Failure AtControl(Play& play, const Words& words, const Do& doIt) {
  std::string why;
  const auto control = play.user.FindControl(words[1], why);
  const std::string what = words[0] + " " + words[1];
  if (!control) return "expected to " + what + ", got " + why;
  return play.Await(doIt(*control), what);
}

std::string CheckControl(const Words& words) {
  const auto name = ParseControlName(words[1]);
  return name && !name->control.empty() ? "" : "FORM.CONTROL is wanted";
}

// --- Menus ---------------------------------------------------------------------------------------

// Where the user clicks to have a menu. Two windows may have one of the same name: the toolbar's
// come first.
struct MenuPlace {
  const char* form;
  const char* menu;
  const char* control;
  bool rightClick = false;
};
constexpr MenuPlace kMenus[] = {{"frmCV7", "mnuMenu", "cmdMenu"},
                                {"frmCV7", "mnuWavs", "cmdWavs"},
                                {"frmCV7", "mnuIMs", "cmdIMs"},
                                {"frmCV7", "mnuHotWords", "cmdPeople"},
                                {"frmCV7", "mnuEditor", "cmdHugs", true},
                                {"frmTabs", "mnuWav", "lstWav", true},
                                {"frmTabs", "mnuFavWav", "cmdFav"},
                                {"frmTabs", "mnuPrLst", "cmdPrint"},
                                {"frmEditDesc", "mnuPrintItem", "cmdPrint"}};

// "mnuWav", or "frmTabs.mnuWav".
const MenuPlace* FindMenu(const std::string& name) {
  const auto point = name.find('.');
  const std::string form = point == std::string::npos ? "" : name.substr(0, point);
  const std::string menu = point == std::string::npos ? name : name.substr(point + 1);
  for (const MenuPlace& place : kMenus)
    if (EqualNoCase(menu, place.menu) && (form.empty() || EqualNoCase(form, place.form)))
      return &place;
  return nullptr;
}

std::string CheckMenu(const Words& words) {
  if (FindMenu(words[1])) return {};
  std::string known;
  for (const MenuPlace& place : kMenus)
    known += (known.empty() ? "" : ", ") + (place.form + ("." + std::string(place.menu)));
  return "the menus are " + known;
}

// Chooses rows of the pop-up as soon as it is open; one that lacks them is put away again.
void ThenChoose(Play& play, std::vector<std::string> path) {
  play.Then([&play, path = std::move(path)]() -> Failure {
    const std::string why = play.user.Choose(path);
    if (why.empty()) return {};
    play.user.DismissPopup();
    return "expected to choose the row \"" + path.back() + "\", got " + why;
  });
}

Failure PlayMenu(Play& play, const Words& words) {
  const MenuPlace& menu = *FindMenu(words[1]);
  std::string why;
  const auto button = play.user.FindControl(menu.form + ("." + std::string(menu.control)), why);
  if (!button) return "expected to open " + words[1] + ", got " + why;
  const Deed deed =
      menu.rightClick ? play.stage.RightClick(button->window) : play.stage.Click(button->window);
  ThenChoose(play, words.From(2));
  return play.Await(deed, "open " + words[1]);
}

// The icon's message is posted, and its owner acts on it a little later.
Failure PlayTrayMouse(Play& play, LParam mouse) {
  if (!play.stage.TrayMouse(mouse)) return "expected to click the tray icon, got there is none";
  play.SleepFor(100);
  return {};
}

Failure PlayTray(Play& play, const Words& words) {
  if (words.size() > 1) ThenChoose(play, words.From(1));
  return PlayTrayMouse(play, kMouseRightUp);
}

Failure PlayTrayDoubleClick(Play& play, const Words&) {
  return PlayTrayMouse(play, kMouseDoubleClick);
}

Failure PlayPopup(Play& play, const Words& words) {
  ThenChoose(play, words.From(1));
  return {};
}

// --- Controls ------------------------------------------------------------------------------------

Failure PlayClick(Play& play, const Words& words) {
  return AtControl(play, words, [&](const ControlView& at) { return play.stage.Click(at.window); });
}

Failure PlayRightClick(Play& play, const Words& words) {
  return AtControl(play, words,
                   [&](const ControlView& at) { return play.stage.RightClick(at.window); });
}

Failure SelectRow(Play& play, const Words& words, const std::string& item, bool keepMarked) {
  std::string why;
  const auto control = play.user.FindControl(words[1], why);
  const std::string what = "select \"" + item + "\" in " + words[1];
  if (!control) return "expected to " + what + ", got " + why;
  const int row = User::FindRow(*control->state, item);
  if (row < 0) return "expected to " + what + ", got no such row";
  return play.Await(play.stage.Select(control->window, row, keepMarked), what);
}

Failure PlaySelect(Play& play, const Words& words) {
  for (std::size_t i = 3; i < words.size(); ++i)
    play.Then([&play, words, i] { return SelectRow(play, words, words[i], true); });
  return SelectRow(play, words, words[2], false);
}

Failure DoubleClickNow(Play& play, const Words& words) {
  return AtControl(play, words,
                   [&](const ControlView& at) { return play.stage.DoubleClick(at.window); });
}

Failure PlayDoubleClick(Play& play, const Words& words) {
  if (words.size() == 2) return DoubleClickNow(play, words);
  play.Then([&play, words] { return DoubleClickNow(play, words); });
  return SelectRow(play, words, words[2], false);
}

Failure PlaySet(Play& play, const Words& words) {
  return AtControl(play, words,
                   [&](const ControlView& at) { return play.stage.Type(at.window, words[2]); });
}

Failure PlayTypeInto(Play& play, const Words& words) {
  for (const char c : words[2])
    play.Then([&play, words, c] {
      return AtControl(play, words, [&](const ControlView& at) {
        return play.stage.Type(at.window, at.state->text + c);
      });
    });
  return {};
}

std::string CheckCheck(const Words& words) {
  if (!words.IsBare(2, "on") && !words.IsBare(2, "off")) return "it is on or off";
  return CheckControl(words);
}

Failure PlayCheck(Play& play, const Words& words) {
  return AtControl(play, words, [&](const ControlView& at) {
    const bool asWanted = (at.state->value != 0) == (words[2] == "on");
    return asWanted ? Deed{} : play.stage.Click(at.window);
  });
}

std::string CheckKeyIn(const Words& words) {
  return ParseKey(words[2]) ? CheckControl(words) : "no such key";
}

Failure PlayKeyIn(Play& play, const Words& words) {
  return AtControl(play, words, [&](const ControlView& at) {
    return play.stage.Press(at.window, *ParseKey(words[2]));
  });
}

std::string CheckDrag(const Words& words) {
  const bool numbers = IsNumeric(words[2]) && IsNumeric(words[3]);
  return numbers ? CheckControl(words) : "numbers of pixels are wanted";
}

Failure PlayDrag(Play& play, const Words& words) {
  return AtControl(play, words, [&](const ControlView& at) {
    return play.stage.Drag(at.window, IntVal(words[2]), IntVal(words[3]));
  });
}

// The window's one tab strip; a tab is known by what it reads.
Failure PlayTab(Play& play, const Words& words) {
  const std::string what = "turn " + words[1] + " to its tab \"" + words[2] + "\"";
  const auto form = play.user.FindForm(words[1]);
  if (!form) return "expected to " + what + ", got it is not loaded";
  auto strips = play.stage.ControlsOf(form->window);
  std::erase_if(strips, [](const ControlView& control) {
    return control.state->kind != ControlKind::kTabStrip || !control.state->visible;
  });
  if (strips.size() != 1)
    return "expected to " + what + ", got it shows " + std::to_string(strips.size()) +
           " tab strips";
  const int row = User::FindCaption(*strips[0].state, words[2]);
  if (row < 0) return "expected to " + what + ", got no such tab";
  return play.Await(play.stage.Select(strips[0].window, row, false), what);
}

Failure PlayClose(Play& play, const Words& words) {
  const auto form = play.user.FindForm(words[1]);
  if (!form) return "expected to close " + words[1] + ", got it is not loaded";
  return play.Await(play.stage.Close(form->window), "close " + words[1]);
}

// --- Answers -------------------------------------------------------------------------------------

Failure PlayAnswer(Play& play, const Words& words) {
  play.answers.buttons.push_back(words[1]);
  return {};
}

Failure PlayInputAnswer(Play& play, const Words& words) {
  const bool nobody = words.IsBare(1, "nobody"), cancel = words.IsBare(1, "cancel");
  play.answers.inputs.push_back(
      {nobody || cancel ? std::nullopt : std::optional(words[1]), nobody});
  return {};
}

template <AnswerQueue<std::string> Answers::*kQueue>
Failure PlayTextAnswer(Play& play, const Words& words) {
  const bool cancel = words.IsBare(1, "cancel");
  (play.answers.*kQueue).push_back(cancel ? std::nullopt : std::optional(words[1]));
  return {};
}

std::optional<Color> ParseColor(const std::string& word) {
  Color color = 0;
  const char* const last = word.data() + word.size();
  const auto [end, error] = std::from_chars(word.data(), last, color);
  return error == std::errc() && end == last ? std::optional(color) : std::nullopt;
}

std::string CheckColor(const Words& words) {
  return words.IsBare(1, "cancel") || ParseColor(words[1]) ? "" : "a number or cancel is wanted";
}

Failure PlayColorAnswer(Play& play, const Words& words) {
  play.answers.colors.push_back(ParseColor(words[1]));
  return {};
}

constexpr Command kProgramCommands[] = {
    {"menu", "MENU \"ROW\" [\"ROW\"]", 2, 3, When::kRun, PlayMenu, CheckMenu},
    {"tray", "[\"ROW\"] [\"ROW\"]", 0, 2, When::kRun, PlayTray},
    {"tray-dblclick", "", 0, 0, When::kRun, PlayTrayDoubleClick},
    {"popup", "\"ROW\" [\"ROW\"]", 1, 2, When::kRun, PlayPopup, nullptr, true},
    {"click", "FORM.CONTROL", 1, 1, When::kRun, PlayClick, CheckControl},
    {"dblclick", "FORM.CONTROL [\"ITEM\"]", 1, 2, When::kRun, PlayDoubleClick, CheckControl},
    {"right-click-on", "FORM.CONTROL", 1, 1, When::kRun, PlayRightClick, CheckControl},
    {"select", "FORM.CONTROL \"ITEM\"...", 2, kAnyNumber, When::kRun, PlaySelect, CheckControl},
    {"set", "FORM.CONTROL \"TEXT\"", 2, 2, When::kRun, PlaySet, CheckControl},
    {"check", "FORM.CONTROL on|off", 2, 2, When::kRun, PlayCheck, CheckCheck},
    {"key-in", "FORM.CONTROL KEY", 2, 2, When::kRun, PlayKeyIn, CheckKeyIn},
    {"type-into", "FORM.CONTROL \"TEXT\"", 2, 2, When::kRun, PlayTypeInto, CheckControl},
    {"tab", "FORM \"CAPTION\"", 2, 2, When::kRun, PlayTab},
    {"drag", "FORM.CONTROL DX DY", 3, 3, When::kRun, PlayDrag, CheckDrag},
    {"close", "FORM", 1, 1, When::kRun, PlayClose},
    {"answer", "BUTTON", 1, 1, When::kAnyTime, PlayAnswer, nullptr, true},
    {"answer-input", "\"TEXT\"|cancel|nobody", 1, 1, When::kAnyTime, PlayInputAnswer, nullptr,
     true},
    {"answer-file", "\"PATH\"|cancel", 1, 1, When::kAnyTime, PlayTextAnswer<&Answers::files>,
     nullptr, true},
    {"answer-folder", "\"PATH\"|cancel", 1, 1, When::kAnyTime, PlayTextAnswer<&Answers::folders>,
     nullptr, true},
    {"answer-color", "NUMBER|cancel", 1, 1, When::kAnyTime, PlayColorAnswer, CheckColor, true},
};

}  // namespace

std::span<const Command> ProgramCommands() { return kProgramCommands; }

}  // namespace corvel::tools
