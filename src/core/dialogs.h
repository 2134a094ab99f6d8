// The program's own dialogs and its calls to the common ones. Every one of them waits with events
// going on: timers and hooks run meanwhile, and may show a further dialog over it.
//
// With an `owner` that window takes no input meanwhile.
#pragma once

#include "core/program.h"

#include <string>
#include <string_view>

namespace corvel {

// Style numbers: button set + icon + default button.
namespace style {
inline constexpr int kOk = 0, kOkCancel = 1, kAbortRetryIgnore = 2, kYesNoCancel = 3, kYesNo = 4,
                     kRetryCancel = 5;
inline constexpr int kStop = 16, kQuestion = 32, kExclamation = 48, kInformation = 64;
inline constexpr int kSecondDefault = 256, kThirdDefault = 512;
}  // namespace style

namespace answer {
inline constexpr int kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7;
}  // namespace answer

// What the title bar of the two boxes says: "Corvel 32 - 9.1.0".
std::string DialogTitle(const Program& program);

struct MessageOptions {
  bool* doNotShow = nullptr;  // the box chkNoShow is there with this state, which comes back
  // The path of a wav that has been found: the buttons are Delete, Preview and OK, whatever the
  // style says. The first two do what they say to the wav and keep the message.
  std::string wav{};
  forms::Form* owner = nullptr;
};

// The marked-up text in frmMsg; the answer is the button.
int MsgBoxEx(Program& program, std::string_view text, int style = style::kOk + style::kInformation,
             const MessageOptions& options = {});
inline bool AskYesNo(Program& program, std::string_view text, forms::Form* owner = nullptr) {
  return MsgBoxEx(program, text, style::kYesNo + style::kQuestion, {.owner = owner}) ==
         answer::kYes;
}

struct InputOptions {
  std::string title{};  // of the window; "": the program's own
  int maxLength = 0;    // characters that can be typed; 0: no limit
  forms::Form* owner = nullptr;
};

// "" on Cancel.
std::string InputBoxEx(Program& program, std::string_view text, std::string_view preset = {},
                       const InputOptions& options = {});

// The system's plain box with the program's title.
int PlainBox(Program& program, std::string_view text, int style);

// Mode 1: the whole path; mode 2: its folder with the last backslash. "" on Cancel.
std::string OpenDialog(Program& program, Window owner, std::string_view description,
                       std::string_view pattern, int mode);
// The folder part of the answer with its last backslash: the dialog serves to choose a folder.
std::string SaveDialog(Program& program, Window owner, std::string_view description,
                       std::string_view pattern);
Color PickColor(Program& program, Window owner, Color start);

// The folder chooser frmCMDialog.
struct FolderQuestion {
  std::string title;     // of the window
  std::string pattern;   // what File1 shows
  std::string mustHold;  // a file that the folder has to hold; "" for none
  std::string hint;      // Dir1's tool tip
  std::string start = "c:\\";
};
// "" on Cancel.
std::string ChooseFolder(Program& program, const FolderQuestion& question,
                         forms::Form* owner = nullptr);
FolderQuestion ClientFolderQuestion();
FolderQuestion WavFolderQuestion();

}  // namespace corvel
