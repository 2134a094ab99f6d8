#include "core/frmMsg.h"

#include "core/dialogs.h"

#include <iterator>

namespace corvel {

namespace {

constexpr int kTextColumns = 62;

struct ButtonSet {
  const char* captions[3];
  int escape;    // index of the button that Escape and the close box press, or -1
  int harmless;  // index of the button that changes nothing
};

constexpr ButtonSet kSets[] = {
    {{"OK", nullptr, nullptr}, 0, 0},      {{"OK", "Cancel", nullptr}, 1, 1},
    {{"Abort", "Retry", "Ignore"}, -1, 0}, {{"Yes", "No", "Cancel"}, 2, 2},
    {{"Yes", "No", nullptr}, -1, 1},       {{"Retry", "Cancel", nullptr}, 1, 1},
};

struct Result {
  const char* caption;
  int answer;
};

constexpr Result kResults[] = {
    {"OK", answer::kOk},       {"Cancel", answer::kCancel}, {"Abort", answer::kAbort},
    {"Retry", answer::kRetry}, {"Ignore", answer::kIgnore}, {"Yes", answer::kYes},
    {"No", answer::kNo},
};

int AnswerOf(std::string_view caption) {
  for (const Result& result : kResults)
    if (caption == result.caption) return result.answer;
  return 0;
}

struct Style {
  int set, defaultButton;
  Picture icon;
  const char* iconName;
};

struct Icon {
  int value;
  Picture picture;
  const char* name;
};

constexpr Icon kIcons[] = {{style::kInformation, Picture::kInformation, "Information"},
                           {style::kExclamation, Picture::kExclamation, "Warning"},
                           {style::kQuestion, Picture::kQuestion, "Question"},
                           {style::kStop, Picture::kStop, "Error"}};

// The style number is taken apart by subtraction from the top; what remains is the button set.
Style SplitStyle(int number) {
  Style result{0, 0, Picture::kNone, ""};
  if (number >= style::kThirdDefault) {
    result.defaultButton = 2;
    number -= style::kThirdDefault;
  } else if (number >= style::kSecondDefault) {
    result.defaultButton = 1;
    number -= style::kSecondDefault;
  }
  for (const Icon& icon : kIcons) {
    if (number < icon.value) continue;
    result.icon = icon.picture;
    result.iconName = icon.name;
    number -= icon.value;
    break;
  }
  if (number >= 0 && number < static_cast<int>(std::size(kSets))) result.set = number;
  return result;
}

const ButtonSet& SetOf(int set) { return kSets[static_cast<std::size_t>(set)]; }

}  // namespace

frmMsg::frmMsg(Program& p, std::string_view text, int number, const bool* noShow)
    : ProgramForm(p, "frmMsg", std::string(kTitle) + " - " + p.g.ProgramVersion),
      Picture2(*this, "Picture2"),
      Picture1(*this, "Picture1"),
      Command1{
          {{*this, "Command1", "", 0}, {*this, "Command1", "", 1}, {*this, "Command1", "", 2}}},
      chkNoShow(*this, "chkNoShow", "&Do not show this message again"),
      text_(text) {
  const Style style = SplitStyle(number);
  set_ = style.set;
  Picture1.SetPicture(style.icon);
  Picture1.SetAccessibleName(style.iconName);
  Picture1.SetVisible(style.icon != Picture::kNone);
  chkNoShow.SetVisible(noShow != nullptr);
  chkNoShow.SetValue(noShow && *noShow ? 1 : 0);
  const ButtonSet& set = SetOf(set_);
  for (int i = 0; i < 3; ++i) {
    forms::Button& button = Command1[static_cast<std::size_t>(i)];
    const char* const caption = set.captions[i];
    button.SetVisible(caption != nullptr);
    if (!caption) continue;
    button.SetCaption(caption);
    button.onClick = [this, i] { Command1_Click(i); };
  }
  const bool exists = set.captions[style.defaultButton] != nullptr;
  Command1[exists ? static_cast<std::size_t>(style.defaultButton) : 0].SetDefault(true);
  if (set.escape >= 0) Command1[static_cast<std::size_t>(set.escape)].SetCancel(true);
}

void frmMsg::Form_Load() {
  using forms::Cell, forms::Column, forms::Row, forms::Space;
  Picture2.SetMarkedText(platform().display, text_, kTextColumns);
  Arrange(
      Column({Row({Cell(Picture1), Cell(Picture2)}), Cell(chkNoShow),
              Row({Space(), Cell(Command1[0]), Cell(Command1[1]), Cell(Command1[2]), Space()})}));
  Center();
  SetTopMost();
}

// Whoever waits for the answer unloads the window; the close box only stands for Escape.
bool frmMsg::Form_QueryUnload(bool byUser) {
  if (!byUser) return true;
  if (const int escape = SetOf(set_).escape; escape >= 0) Command1_Click(escape);
  return false;
}

int frmMsg::HarmlessAnswer() const {
  const ButtonSet& set = SetOf(set_);
  return AnswerOf(set.captions[set.harmless]);
}

void frmMsg::Command1_Click(int index) {
  answer_ = AnswerOf(Command1[static_cast<std::size_t>(index)].Caption());
}

}  // namespace corvel
