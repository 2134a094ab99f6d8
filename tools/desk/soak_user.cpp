// The random user of the soak; see soak_user.h.
#include "tools/desk/soak_user.h"

#include <algorithm>

namespace corvel::tools {
namespace {

constexpr const char* kLongTalk =
    "a very long line of talk that goes on and on, as people do who have an evening before them "
    "and nobody who stops them, until the room has had enough of it and says so";
constexpr const char* kTexts[] = {
    "",
    " ",
    "hi all",
    "a",
    "wavlist",
    "/fadeon",
    "/wavlist",
    "{S boing",
    "{S boing}",
    "{%}",
    "<b>bold</b> & more",
    "100% sure",
    "two\twords",
    "name=text",
    "[Data]",
    "~B~CRred",
    "\xE4\xF6\xFC \x80 \x95\xA4\x95",
    "C:\\AOL",
    "C:\\nowhere\\at all",
    "con",
    kLongTalk,
};
constexpr const char* kPeople[] = {"Ann", "Bob Two", "xXCarlXx", "Dee4", "Host NH", "practice one"};
constexpr const char* kRooms[] = {"Lobby", "Town Square", "a"};
constexpr const char* kWaves[] = {"C:\\AOL\\boing.wav", "C:\\AOL\\welcome.wav",
                                  "C:\\WINDOWS\\ding.wav", "C:\\Wavs\\my song.wav",
                                  "C:\\Wavs\\b.wav"};
constexpr const char* kVersions[] = {"3.0", "4.0", "4.0", "5.0", "5.1", "6.0"};
constexpr practice::Locale kClientLocales[] = {practice::Locale::kUs, practice::Locale::kUs,
                                               practice::Locale::kUk, practice::Locale::kCanada,
                                               practice::Locale::kAustralia};
constexpr const char* kButtons[] = {"Yes", "Yes", "OK", "No", "Cancel", "Retry", "Ignore", "Go on"};
constexpr const char* kPressedKeys[] = {"enter", "tab",  "escape",   "delete",
                                        "up",    "down", "backspace"};
constexpr const char* kLockedFiles[] = {"C:\\Corvel\\favwavs.dat", "C:\\Corvel\\data\\desc1.dat",
                                        "C:\\AOL\\boing.wav", "C:\\AUTOEXEC.BAT"};
constexpr const char* kFileErrors[] = {"53", "61", "70", "71", "75", "76"};

struct Row {
  const char* menu;
  const char* row;
};
constexpr Row kRows[] = {{"mnuWavs", "Wav List"},
                         {"mnuWavs", "Wav List"},
                         {"mnuWavs", "Hushlet"},
                         {"mnuMenu", "Options"},
                         {"mnuMenu", "Help"},
                         {"mnuMenu", "About Corvel"},
                         {"mnuMenu", "Tech Support"},
                         {"mnuMenu", "Kill the Hourglass"},
                         {"mnuMenu", "Hide Welcome Window"},
                         {"mnuIMs", "IM Manager"},
                         {"mnuHotWords", "QuickFind"},
                         {"mnuEditor", "Garlands"},
                         {"mnuEditor", "Wav Descriptions"}};

std::string NameOf(const FormView& form, const ControlState& control) {
  std::string name = form.state->name + "." + control.name;
  if (control.index >= 0) name += "(" + std::to_string(control.index) + ")";
  return name;
}

bool IsUsable(const ControlView& control) {
  const ControlKind kind = control.state->kind;
  return control.state->visible && control.state->enabled && kind != ControlKind::kFrame &&
         kind != ControlKind::kProgressBar;
}

}  // namespace

std::span<const SoakUser::Deed> SoakUser::Deeds() {
  static constexpr Deed kDeeds[] = {
      {120, &SoakUser::UseControl}, {24, &SoakUser::UseMenu},   {10, &SoakUser::UseRoom},
      {36, &SoakUser::UsePeople},   {12, &SoakUser::UseIm},     {8, &SoakUser::UseMail},
      {6, &SoakUser::UseClient},    {4, &SoakUser::UseTray},    {8, &SoakUser::ChangeFiles},
      {6, &SoakUser::BreakFiles},   {9, &SoakUser::MendFiles},  {2, &SoakUser::HangClient},
      {1, &SoakUser::EndClient},    {1, &SoakUser::EndProgram},
  };
  return kDeeds;
}

Words SoakUser::Think() {
  int all = 0;
  for (const Deed& deed : Deeds()) all += deed.weight;
  int drawn = dice_.Below(all);
  Thought thought;
  if (play_.user.OpenPopup()) {
    thought = UsePopup();
  } else {
    for (const Deed& deed : Deeds()) {
      drawn -= deed.weight;
      if (drawn >= 0) continue;
      thought = (this->*deed.think)();
      break;
    }
  }
  Words words;
  for (std::string& word : thought) words.Add(std::move(word), false);
  return words;
}

// --- The program ---------------------------------------------------------------------------------

std::optional<FormView> SoakUser::SomeForm() {
  auto forms = play_.stage.Forms();
  // Questions are answered, not played with: what the user has agreed to must be known.
  std::erase_if(forms, [](const auto& form) {
    const std::string& name = form.state->name;
    return !form.state->visible || name == "frmMsg" || name == "frmInpBox";
  });
  if (forms.empty()) return std::nullopt;
  return forms[static_cast<std::size_t>(dice_.Below(static_cast<int>(forms.size())))];
}

SoakUser::Thought SoakUser::UseControl() {
  const auto form = SomeForm();
  if (!form) return {};
  if (dice_.Chance(4)) return {"close", form->state->name};
  auto controls = play_.stage.ControlsOf(form->window);
  std::erase_if(controls, [](const ControlView& control) { return !IsUsable(control); });
  if (controls.empty()) return {};
  const ControlView& control = dice_.OneOf(controls);
  const std::string name = NameOf(*form, *control.state);
  const auto& items = control.state->items;
  if (!items.empty() && dice_.Chance(70)) {
    const std::string& item = dice_.OneOf(items);
    return {dice_.Chance(40) ? "dblclick" : "select", name, item};
  }
  if (control.state->kind == ControlKind::kTextBox && dice_.Chance(70))
    return {dice_.Chance(70) ? "set" : "type-into", name, SomeText()};
  if (dice_.Chance(10)) return {"key-in", name, dice_.OneOf(kPressedKeys)};
  if (dice_.Chance(10)) return {"right-click-on", name};
  return {"click", name};
}

Words SoakUser::CloseSomething() {
  Words words;
  if (const auto form = SomeForm()) {
    words.Add("close", false);
    words.Add(form->state->name, false);
  }
  return words;
}

SoakUser::Thought SoakUser::UseMenu() {
  const Row& row = dice_.OneOf(kRows);
  return {"menu", row.menu, row.row};
}

SoakUser::Thought SoakUser::UsePopup() {
  const auto rows = play_.user.PopupRows();
  if (rows.empty() || dice_.Chance(30)) {
    play_.user.DismissPopup();
    return {};
  }
  return {"popup", dice_.OneOf(rows)};
}

SoakUser::Thought SoakUser::UseTray() {
  if (dice_.Chance(50)) return {"tray-dblclick"};
  return {"menu", "mnuMenu", "Hide Toolbar", dice_.Chance(50) ? "As Tray Icon" : "As Menu Item"};
}

SoakUser::Thought SoakUser::EndProgram() {
  if (dice_.Chance(50)) return {"menu", "mnuMenu", "Exit Corvel"};
  return {"client-menu", "E&xit Corvel"};
}

void SoakUser::ThinkOfAnswer() {
  Answers& answers = play_.answers;
  const bool cancel = dice_.Chance(30);
  if (answers.buttons.empty()) answers.buttons.push_back(dice_.OneOf(kButtons));
  if (answers.inputs.empty())
    answers.inputs.push_back({cancel ? std::nullopt : std::optional(SomeText())});
  if (answers.files.empty())
    answers.files.push_back(cancel ? std::nullopt : std::optional(SomeWave()));
  if (answers.folders.empty())
    answers.folders.push_back(
        cancel ? std::nullopt
               : std::optional<std::string>(dice_.Chance(70) ? "C:\\AOL" : "C:\\Wavs"));
  if (answers.colors.empty()) answers.colors.push_back(dice_.Below(0x1000000));
}

// --- The client ----------------------------------------------------------------------------------

void SoakUser::ChooseClient() {
  practice::Setup& setup = play_.stage.setup;
  setup.version = dice_.OneOf(kVersions);
  setup.locale = dice_.Chance(2) ? practice::Locale::kGermany : dice_.OneOf(kClientLocales);
  setup.screenNames = {"PracticeOne", "Practice Two"};
  setup.signedOnAs = dice_.Chance(80) ? "PracticeOne" : "";
  setup.delayMs = static_cast<std::uint32_t>(dice_.Chance(20) ? dice_.Between(1000, 9000)
                                                              : dice_.Between(0, 400));
}

SoakUser::Thought SoakUser::UseRoom() {
  if (dice_.Chance(25)) return {"leave-room"};
  Thought thought{"room", dice_.OneOf(kRooms)};
  for (int i = dice_.Below(4); i > 0; --i) thought.push_back(SomePerson());
  return thought;
}

SoakUser::Thought SoakUser::UsePeople() {
  switch (dice_.Below(9)) {
    case 0:
      return {"enter", SomePerson()};
    case 1:
      return {"leave", SomePerson()};
    case 2:
      return {"right-click", SomePerson()};
    case 3:
    case 4:
      return {"key", dice_.Chance(70) ? "enter" : dice_.OneOf(kPressedKeys)};
    case 5:
      return {"send-icon"};
    case 6:
      return {"say", SomePerson(), SomeText()};
    default:
      return {"type", SomeText()};
  }
}

SoakUser::Thought SoakUser::UseIm() {
  switch (dice_.Below(5)) {
    case 0:
      return {"im", SomePerson(), SomeText()};
    case 1:
      return {"im-to", SomePerson(), SomeText()};
    case 2:
      return {"im-close", SomePerson()};
    case 3:
      return {"im-internet", SomePerson(), SomeText()};
    default:
      return {"im-type", SomePerson(), SomeText()};
  }
}

SoakUser::Thought SoakUser::UseMail() {
  switch (dice_.Below(3)) {
    case 0:
      return {"write-mail"};
    case 1:
      return {"read-mail", SomeText(), SomeText()};
    default:
      return {"mail-close"};
  }
}

SoakUser::Thought SoakUser::UseClient() {
  switch (dice_.Below(6)) {
    case 0:
      return {"sign-off"};
    case 1:
    case 2:
      return {"sign-on", "PracticeOne"};
    case 3:
      return {"refuse-next-line"};
    case 4:
      return {"invite", SomePerson()};
    default:
      return {"client-delay", dice_.Chance(20) ? "6" : "0.05"};
  }
}

SoakUser::Thought SoakUser::HangClient() {
  return {"client-hung", dice_.Chance(30) ? std::to_string(dice_.Between(1, 60)) : "off"};
}

SoakUser::Thought SoakUser::EndClient() {
  if (dice_.Chance(70)) return {"client-close"};
  if (dice_.Chance(70)) return {"client-crash"};
  return {"client-crash", std::to_string(dice_.Between(1, 20))};
}

// --- The drive -----------------------------------------------------------------------------------

SoakUser::Thought SoakUser::ChangeFiles() { return {"wav", SomeWave(), "0.01"}; }

SoakUser::Thought SoakUser::BreakFiles() {
  switch (dice_.Below(3)) {
    case 0:
      return {"free-space", std::to_string(dice_.Below(200))};
    case 1:
      return {"lock", dice_.OneOf(kLockedFiles), "on"};
    default:
      return {"fail-file", std::to_string(dice_.Between(1, 5)), dice_.OneOf(kFileErrors)};
  }
}

SoakUser::Thought SoakUser::MendFiles() {
  if (dice_.Chance(50)) return {"free-space", "1000000000"};
  return {"lock", dice_.OneOf(kLockedFiles), "off"};
}

// --- Words ---------------------------------------------------------------------------------------

std::string SoakUser::SomeText() { return dice_.OneOf(kTexts); }
std::string SoakUser::SomePerson() { return dice_.OneOf(kPeople); }
std::string SoakUser::SomeWave() { return dice_.OneOf(kWaves); }

}  // namespace corvel::tools
