#include "core/frmMsg.h"

#include "core/helpers.h"
#include "core/report_error.h"

#include <iterator>

namespace corvel {

namespace {

constexpr int kTextColumns = 62;
constexpr const char* kDelete = "Delete";
constexpr const char* kPreview = "Preview";
constexpr const char* kHushlet = "Hushlet";

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
constexpr ButtonSet kWavSet = {{kDelete, kPreview, "OK"}, 2, 2};

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

// The style number is taken apart by subtraction from the top; what remains is the button set. Of
// two icons the first one shows.
Style SplitStyle(int number) {
  Style result{0, 0, Picture::kNone, ""};
  const auto takes = [&number](int value) {
    if (number < value) return false;
    number -= value;
    return true;
  };
  const bool third = takes(style::kThirdDefault), second = takes(style::kSecondDefault);
  result.defaultButton = third ? 2 : second ? 1 : 0;
  for (const Icon& icon : kIcons) {
    if (!takes(icon.value) || result.icon != Picture::kNone) continue;
    result.icon = icon.picture;
    result.iconName = icon.name;
  }
  if (number >= 0 && number < static_cast<int>(std::size(kSets))) result.set = number;
  return result;
}

const ButtonSet& SetOf(int style, const std::string& wav) {
  return wav.empty() ? kSets[static_cast<std::size_t>(SplitStyle(style).set)] : kWavSet;
}

// A wav is never deleted by a stray Enter.
int DefaultButton(int style, const ButtonSet& set) {
  if (&set == &kWavSet) return 2;
  const int wanted = SplitStyle(style).defaultButton;
  return set.captions[wanted] ? wanted : 0;
}

MessageAnswer HarmlessAnswer(int style, const MessageOptions& options) {
  const ButtonSet& set = SetOf(style, options.wav);
  return {AnswerOf(set.captions[set.harmless]), options.doNotShow && *options.doNotShow};
}

}  // namespace

frmMsg::frmMsg(Program& p, std::string_view text, int style, const MessageOptions& options)
    : ModalForm(p, "frmMsg", DialogTitle(p), HarmlessAnswer(style, options)),
      Picture2(*this, "Picture2"),
      Picture1(*this, "Picture1"),
      Command1{
          {{*this, "Command1", "", 0}, {*this, "Command1", "", 1}, {*this, "Command1", "", 2}}},
      chkNoShow(*this, "chkNoShow", "&Do not show this message again"),
      text_(text),
      wav_(options.wav) {
  const Style parts = SplitStyle(style);
  Picture1.SetPicture(parts.icon);
  Picture1.SetAccessibleName(parts.iconName);
  Picture1.SetVisible(parts.icon != Picture::kNone);
  chkNoShow.SetVisible(options.doNotShow != nullptr);
  chkNoShow.SetValue(options.doNotShow && *options.doNotShow ? 1 : 0);
  ShowButtons(style);
}

void frmMsg::ShowButtons(int style) {
  const ButtonSet& set = SetOf(style, wav_);
  for (int i = 0; i < 3; ++i) {
    forms::Button& button = Command1[static_cast<std::size_t>(i)];
    const char* const caption = set.captions[i];
    button.SetVisible(caption != nullptr);
    if (!caption) continue;
    button.SetCaption(caption);
    button.onClick = [this, i] { Command1_Click(i); };
  }
  Command1[static_cast<std::size_t>(DefaultButton(style, set))].SetDefault(true);
  canCancel_ = set.escape >= 0;
  if (canCancel_) Command1[static_cast<std::size_t>(set.escape)].SetCancel(true);
}

void frmMsg::Form_Load() {
  using forms::Cell, forms::Column, forms::Row, forms::Space;
  Picture2.SetMarkedText(platform().display, text_, kTextColumns);
  Arrange(
      Column({Row({Cell(Picture1), Cell(Picture2)}), Cell(chkNoShow),
              Row({Space(), Cell(Command1[0]), Cell(Command1[1]), Cell(Command1[2]), Space()})}));
  SetTopMost();
}

void frmMsg::Cancel() {
  if (canCancel_) ModalForm::Cancel();
}

void frmMsg::Command1_Click(int index) {
  const std::string caption = Command1[static_cast<std::size_t>(index)].Caption();
  if (caption == kPreview) return Preview();
  if (caption == kHushlet) return Hushlet();
  if (caption == kDelete) return DeleteWav();
  Answer({AnswerOf(caption), chkNoShow.Value() != 0});
}

// --- A wav that has been found -------------------------------------------------------------------

void frmMsg::Preview() {
  program.platform.sound.Play(wav_, sound_flag::kAsync);
  Command1[1].SetCaption(kHushlet);
}

void frmMsg::Hushlet() {
  program.platform.sound.Stop();
  Command1[1].SetCaption(kPreview);
}

// With the file gone there is nothing left to press: the frame closes the window.
void frmMsg::DeleteWav() {
  if (!AskYesNo(program,
                "~BDelete ~CR" + wav_ +
                    "~CN ?~B~N ~NWould you like to send the above wav to the Windows Recycle Bin?",
                this))
    return;
  if (Command1[1].Caption() == kHushlet) Hushlet();  // it can't be pressed any more
  EnableButtons(false);
  const bool gone = Reported(program, {"frmMsg", "Command1_Click"},
                             [this] { RecycleFile(program, Handle(), wav_); });
  if (!gone) EnableButtons(true);
}

void frmMsg::EnableButtons(bool enabled) {
  for (forms::Button& button : Command1) button.SetEnabled(enabled);
}

}  // namespace corvel
