// The random user of the soak; see soak_user.h.
#include "tools/desk/soak_user.h"

#include "base/text.h"
#include "core/settings.h"
#include "platform/desk/desk_windows.h"
#include "platform/form_keyboard.h"

#include <algorithm>

namespace corvel::tools {
namespace {

constexpr practice::Locale kLocales[] = {practice::Locale::kUs, practice::Locale::kUs,
                                         practice::Locale::kUk, practice::Locale::kCanada,
                                         practice::Locale::kAustralia};
constexpr const char* kVersions[] = {"3.0", "4.0", "4.0", "5.0", "5.1"};
constexpr const char* kPlainButtons[] = {"Yes", "OK", "No", "Cancel", "Retry", "Ignore"};
constexpr std::size_t kManyDocuments = 5;
constexpr int kFullWindow = 100, kPoorWindow = 10;
constexpr int kChangedSettings = 5;  // percent
// As deep as a line of the language can say.
constexpr std::size_t kMostRows = 2;

// What a user does with a control of a kind, and how often. Without a word behind it the command
// takes the control alone.
struct Way {
  const char* command;
  int weight;
  const char* what = "";  // a row of its own ("ITEM"), or as in a command's form
};
struct Kind {
  ControlKind kind;
  int weight;  // beside other controls
  std::vector<Way> ways;
};

const std::vector<Way>& LabelWays() {
  static const std::vector<Way> kWays = {
      {"click", 4}, {"dblclick", 1}, {"right-click-on", 1}, {"drag", 3, "DX DY"}};
  return kWays;
}
const std::vector<Way>& ButtonWays() {
  static const std::vector<Way> kWays = {
      {"click", 16}, {"right-click-on", 3}, {"key-in", 1, "KEY"}};
  return kWays;
}
const std::vector<Way>& RowWays() {
  static const std::vector<Way> kWays = {
      {"select", 8, "ITEM"}, {"dblclick", 6, "ITEM"}, {"right-click-on", 10}, {"key-in", 2, "KEY"}};
  return kWays;
}

const Kind* FindKind(ControlKind kind) {
  static const std::vector<Way> kSwitch = {{"click", 10}, {"key-in", 1, "KEY"}};
  static const std::vector<Way> kChoice = {{"select", 10, "ITEM"}, {"key-in", 1, "KEY"}};
  static const std::vector<Way> kText = {{"set", 10, "TEXT"},
                                         {"type-into", 4, "TEXT"},
                                         {"key-in", 4, "KEY"},
                                         {"click", 1},
                                         {"right-click-on", 1}};
  static const Kind kKinds[] = {
      {ControlKind::kLabel, 1, LabelWays()},    {ControlKind::kPicture, 1, LabelWays()},
      {ControlKind::kButton, 10, ButtonWays()}, {ControlKind::kFlatButton, 10, ButtonWays()},
      {ControlKind::kTextBox, 12, kText},       {ControlKind::kCheckBox, 8, kSwitch},
      {ControlKind::kOptionButton, 8, kSwitch}, {ControlKind::kListBox, 40, RowWays()},
      {ControlKind::kListView, 40, RowWays()},  {ControlKind::kComboBox, 14, kChoice},
      {ControlKind::kTabStrip, 14, kChoice}};
  const auto found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                  [&](const Kind& one) { return one.kind == kind; });
  return found == std::end(kKinds) ? nullptr : found;
}

std::string NameIn(const FormView& form, const ControlView& control) {
  return form.state->name + "." + corvel::NameOf(*control.state);
}

}  // namespace

std::span<const SoakUser::Area> SoakUser::Areas() {
  static constexpr Area kAreas[] = {{150, &SoakUser::UseWindow},
                                    {110, &SoakUser::UseWord},
                                    {5, &SoakUser::UseTray},
                                    {8, &SoakUser::UseClientMenu},
                                    {3, &SoakUser::CloseDocument}};
  return kAreas;
}

SoakUser::Thought SoakUser::Think() {
  Look();
  if (play_.user.OpenPopup()) return UsePopup();
  int all = 0;
  for (const Area& area : Areas()) all += area.weight;
  int drawn = dice_.Below(all);
  for (const Area& area : Areas())
    if ((drawn -= area.weight) < 0) return (this->*area.think)();
  return {};
}

void SoakUser::Did(const Thought& thought) {
  uses_.Used(thought.thing);
  if (thought.words[0] != "popup") opener_ = thought.thing;
}

SoakUser::Thought SoakUser::OneOf(const std::vector<Offer>& offers) {
  int all = 0;
  for (const Offer& offer : offers) all += uses_.Drawn(offer.weight, offer.thing);
  if (all == 0) return {};
  int drawn = dice_.Below(all);
  for (const Offer& offer : offers) {
    if ((drawn -= uses_.Drawn(offer.weight, offer.thing)) >= 0) continue;
    Thought thought{{}, offer.thing};
    for (const std::string& word : offer.words) thought.words.Add(word, false);
    return thought;
  }
  return {};
}

// --- The program's windows -----------------------------------------------------------------------

// Questions are answered, not played with: what the user has agreed to must be known.
std::vector<FormView> SoakUser::PlayableForms() {
  auto forms = stage_.Forms();
  std::erase_if(forms, [](const FormView& form) {
    return !form.state->visible || !form.state->enabled || Answers::IsQuestion(*form.state);
  });
  return forms;
}

std::vector<ControlView> SoakUser::UsableControls(Window form) {
  auto controls = stage_.ControlsOf(form);
  std::erase_if(controls, [](const ControlView& control) {
    return !IsUsable(*control.state) || !FindKind(control.state->kind);
  });
  return controls;
}

void SoakUser::Look() {
  for (const FormView& form : PlayableForms())
    for (const ControlView& control : UsableControls(form.window)) uses_.Saw(NameIn(form, control));
}

// The more there is in a window, the more it draws; with hardly anything to do in any, the user
// looks at the client instead.
SoakUser::Thought SoakUser::UseWindow() {
  std::vector<Offer> forms;
  int all = 0;
  for (const FormView& form : PlayableForms()) {
    int weight = 0;
    for (const ControlView& control : UsableControls(form.window))
      weight += FindKind(control.state->kind)->weight;
    forms.push_back({form.state->name, std::min(weight, kFullWindow), {form.state->name}});
    all += weight;
  }
  if (all < kPoorWindow && dice_.Chance(80)) return UseWord();
  const Thought chosen = OneOf(forms);
  if (chosen.words.empty()) return {};
  uses_.Used(chosen.thing);
  return UseForm(*play_.user.FindForm(chosen.thing));
}

SoakUser::Thought SoakUser::UseForm(const FormView& form) {
  const std::string& name = form.state->name;
  std::vector<Offer> offers;
  if (form.state->closable) offers.push_back({name + " closed", 1, {"close", name}});
  const auto controls = UsableControls(form.window);
  for (const ControlView& control : controls)
    offers.push_back({NameIn(form, control), FindKind(control.state->kind)->weight, {}});
  Thought thought = OneOf(offers);
  for (const ControlView& control : controls)
    if (thought.words.empty() && NameIn(form, control) == thought.thing)
      for (const std::string& word : WordsFor(thought.thing, *control.state))
        thought.words.Add(word, false);
  return thought;
}

std::vector<std::string> SoakUser::WordsFor(const std::string& name, const ControlState& state) {
  auto ways = FindKind(state.kind)->ways;
  std::erase_if(ways, [&state](const Way& way) {
    const std::string_view what = way.what;
    return (what == "ITEM" && state.items.empty()) || (what == "DX DY" && !state.dragsForm);
  });
  int all = 0;
  for (const Way& way : ways) all += way.weight;
  int drawn = dice_.Below(all);
  const Way& way = *std::find_if(ways.begin(), ways.end(),
                                 [&](const Way& one) { return (drawn -= one.weight) < 0; });
  std::vector<std::string> words{way.command, name};
  const std::string_view what = way.what;
  if (what == "ITEM") {
    words.push_back(dice_.OneOf(state.items));
    if (state.multiSelect && dice_.Chance(20) && words[0] == "select")
      words.push_back(dice_.OneOf(state.items));
  } else if (what == "DX DY") {
    words.insert(words.end(), {Some("DX"), Some("DY")});
  } else if (!what.empty()) {
    words.push_back(Some(what));
  }
  return words;
}

SoakUser::Thought SoakUser::CloseSomething() {
  auto forms = PlayableForms();
  if (forms.empty()) return {};
  const std::string name = dice_.OneOf(forms).state->name;
  Thought thought{{}, name + " closed"};
  thought.words.Add("close", false);
  thought.words.Add(name, false);
  return thought;
}

// --- Menus ---------------------------------------------------------------------------------------

// The rows that can be chosen, those of sub-menus included.
void SoakUser::AddRows(std::vector<Offer>& offers, MenuHandle menu, std::vector<std::string> path,
                       const std::string& origin) {
  Menus& menus = stage_.menus();
  for (int row = 0; row < menus.Count(menu); ++row) {
    const std::string caption = menus.TextAt(menu, row);
    const bool greyed = (menus.StateAt(menu, row) & menu_flag::kGrayed) != 0;
    if (caption.empty() || greyed) continue;
    const std::string thing = origin + " > " + PlainCaption(caption);
    path.push_back(caption);
    if (const MenuHandle sub = menus.SubMenu(menu, row)) {
      AddRows(offers, sub, path, thing);
    } else {
      uses_.Saw(thing);
      offers.push_back({thing, 1, path});
    }
    path.pop_back();
  }
}

SoakUser::Thought SoakUser::UsePopup() {
  std::vector<Offer> offers;
  AddRows(offers, play_.user.OpenPopup()->menu, {"popup"}, opener_);
  std::erase_if(offers, [](const Offer& one) { return one.words.size() > kMostRows + 1; });
  if (!offers.empty() && !dice_.Chance(15)) return OneOf(offers);
  play_.user.DismissPopup();
  return {};
}

SoakUser::Thought SoakUser::UseTray() {
  if (!stage_.HasTrayIcon()) return {};
  return OneOf({{"tray", 2, {"tray"}}, {"tray, twice", 1, {"tray-dblclick"}}});
}

SoakUser::Thought SoakUser::UseClientMenu() {
  const practice::PracticeClient* const client = stage_.Client();
  if (!client) return {};
  std::vector<Offer> offers;
  AddRows(offers, stage_.menus().MenuOf(client->Frame()), {}, "client");
  for (Offer& offer : offers) offer.words = {"client-menu", offer.words.back()};
  return OneOf(offers);
}

// --- The client, the people in it, the drive -----------------------------------------------------

std::vector<std::string> SoakUser::Documents() {
  std::vector<std::string> captions;
  const practice::PracticeClient* const client = stage_.Client();
  if (!client) return captions;
  desk::DeskWindows& windows = stage_.desk().windows();
  for (Window child = windows.TopChild(client->Mdi()); child; child = windows.Next(child))
    if (windows.IsVisible(child)) captions.push_back(windows.CaptionOf(child));
  return captions;
}

SoakUser::Thought SoakUser::CloseDocument() {
  std::vector<Offer> offers;
  for (const std::string& caption : Documents())
    if (!caption.empty()) offers.push_back({"close-window", 1, {"close-window", caption}});
  return OneOf(offers);
}

// A user who loses sight of his windows closes some.
SoakUser::Thought SoakUser::UseWord() {
  if (Documents().size() > kManyDocuments && dice_.Chance(60)) return CloseDocument();
  std::vector<Offer> offers;
  const auto add = [&](const Command& command) {
    if (WeightOf(command) == 0) return;  // said elsewhere, or not at all
    uses_.Saw(command.word);
    offers.push_back({command.word, WeightOf(command), {command.word}});
  };
  for (const Command& command : ClientCommands()) add(command);
  for (const Command& command : SceneCommands())
    if (command.when == When::kAnyTime) add(command);
  std::erase_if(offers, [](const Offer& offer) { return offer.weight == 0; });
  Thought thought = OneOf(offers);
  auto line = made_.LineOf(*FindCommand(thought.thing));
  thought.words = line && CheckCommand(*line).empty() ? *std::move(line) : Words{};
  return thought;
}

void SoakUser::ChooseClient() {
  practice::Setup& setup = stage_.setup;
  setup.version = dice_.Chance(2) ? "6.0" : dice_.OneOf(kVersions);
  setup.locale = dice_.Chance(1) ? practice::Locale::kGermany : dice_.OneOf(kLocales);
  setup.screenNames = {"PracticeOne", "Practice Two"};
  setup.signedOnAs = dice_.Chance(90) ? "PracticeOne" : "";
  setup.delayMs = static_cast<std::uint32_t>(dice_.Chance(20) ? dice_.Between(1000, 9000)
                                                              : dice_.Between(0, 400));
}

// --- Answers and settings ------------------------------------------------------------------------

// Of the question in front; without one, of a plain box that may come.
std::string SoakUser::SomeButton() {
  auto forms = stage_.Forms();
  for (auto form = forms.rbegin(); form != forms.rend(); ++form) {
    if (!form->state->visible || !Answers::IsQuestion(*form->state)) continue;
    auto buttons = stage_.ControlsOf(form->window);
    std::erase_if(buttons, [](const ControlView& control) {
      return !control.state->visible || (control.state->kind != ControlKind::kButton &&
                                         control.state->kind != ControlKind::kFlatButton);
    });
    if (!buttons.empty()) return PlainCaption(dice_.OneOf(buttons).state->text);
  }
  return dice_.OneOf(kPlainButtons);
}

void SoakUser::ThinkOfAnswer() {
  Answers& answers = play_.answers;
  const bool cancel = dice_.Chance(30);
  const auto unless = [&](const char* placeholder) {
    return cancel ? std::nullopt : std::optional(Some(placeholder));
  };
  answers.buttons = {SomeButton()};
  if (answers.inputs.empty()) answers.inputs.push_back({unless("TEXT")});
  if (answers.files.empty()) answers.files.push_back(unless("WAVE"));
  if (answers.folders.empty()) answers.folders.push_back(unless("FOLDER"));
  if (answers.colors.empty()) answers.colors.push_back(dice_.Below(0x1000000));
}

void SoakUser::ChangeSettings() {
  SettingsStore store(stage_.registry());
  int uiMode = 0, accessMode = 0;
  const Settings settings(store, uiMode, accessMode);
  for (const Setting* const setting : settings.tree.settings) {
    if (!dice_.Chance(kChangedSettings)) continue;
    const char* const section = setting->Section().name;
    std::string value = store.ReadKey(section, setting->Key());
    if (Trim(value).empty()) value = setting->DefaultText();
    store.WriteKey(section, setting->Key(), Another(value));
  }
}

// Another value of the same kind, or what somebody else may have written there.
std::string SoakUser::Another(const std::string& value) {
  if (value == "True" || value == "False") return dice_.Chance(50) ? "True" : "False";
  if (value == "On" || value == "Off") return dice_.Chance(50) ? "On" : "Off";
  if (IsNumeric(value) && dice_.Chance(80)) return std::to_string(dice_.Below(1000));
  return Some("TEXT");
}

}  // namespace corvel::tools
