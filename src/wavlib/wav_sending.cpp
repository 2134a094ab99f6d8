#include "wavlib/wav_sending.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/frmCV7.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "core/settings_fader.h"
#include "core/settings_im.h"
#include "core/settings_wavs.h"
#include "wavlib/garland_styles.h"
#include "wavlib/sound_code.h"
#include "wavlib/wav_descriptions.h"

#include <exception>

namespace corvel {
namespace {

constexpr WParam kPaste = 20003;            // a command of the client's rich text control
constexpr double kBeforeDescription = 0.3;  // seconds

// Keeps the program from catching its own keystrokes while a faded line goes out. Afterwards the
// input box is hooked again, unless it has died, the room was left or changed, or the program ends.
class QuietInput {
 public:
  explicit QuietInput(Program& program) : program_(program) {
    if (frmCV7* central = program.forms.Loaded<frmCV7>()) {
      input_ = central->sbcCmdLine.HWnd();
      central->sbcCmdLine.SetHWnd({});
    }
  }
  ~QuietInput() {
    frmCV7* central = program_.forms.Loaded<frmCV7>();
    const bool ending = program_.g.Closing || std::uncaught_exceptions() > exceptions_;
    if (ending || !central || !central->ChatHooked || central->sbcCmdLine.HWnd()) return;
    if (program_.platform.windows.Exists(input_)) central->sbcCmdLine.SetHWnd(input_);
  }
  QuietInput(const QuietInput&) = delete;
  QuietInput& operator=(const QuietInput&) = delete;

  Window Input() const { return input_; }

 private:
  Program& program_;
  Window input_{};
  int exceptions_ = std::uncaught_exceptions();
};

// Hides the input box, so that the mark-up isn't seen on its way.
class HiddenInput {
 public:
  HiddenInput(WindowSystem& windows, Window input) : windows_(windows), input_(input) {
    windows_.Show(input_, show::kHide);
  }
  ~HiddenInput() { windows_.Show(input_, show::kShow); }
  HiddenInput(const HiddenInput&) = delete;
  HiddenInput& operator=(const HiddenInput&) = delete;

 private:
  WindowSystem& windows_;
  Window input_;
};

bool PutTextOnClipboard(Clipboard& clipboard, Window owner, const std::string& text) {
  if (!clipboard.Open(owner)) return false;
  clipboard.Empty();
  const bool set = clipboard.Set(kClipboardText, text);
  clipboard.Close();
  return set;
}

bool IsIMTitle(const std::string& title) {
  const auto colon = title.find(':');
  const std::string begin = Lower(Trim(std::string_view(title).substr(0, colon + 1)));
  return begin == ">instant message from:" || begin == "instant message from:" ||
         begin == "instant message to:";
}

}  // namespace

void WavSender::Send(const std::string& name, const GarlandChoice& garland, Window owner) {
  if (!SendToWindowOnTop(name, owner)) SendToRoom(name, garland);
}

Window WavSender::ComposeWindowByTitle() {
  const Window mdi = program_.g.hMDI;
  const std::string& title = program_.g.strings.AOLWriteTitle;
  Window window{};
  if (!title.empty()) window = program_.platform.windows.FindChild(mdi, {}, "AOL Child", title);
  if (!window) window = client_.FindChildByTitle(mdi, "Re:");
  if (!window) window = client_.FindChildByTitle(mdi, "Fwd:");
  return window;
}

Window WavSender::NewIMWindow() {
  return program_.platform.windows.FindChild(program_.g.hMDI, {}, "AOL Child",
                                             "Send Instant Message");
}

// The IM that the manager shows, out of its client windows the one in front.
Window WavSender::ManagedIM(Window manager) {
  WindowSystem& windows = program_.platform.windows;
  Window im{};
  windows.EnumDescendants(manager, [&](Window window) {
    if (EqualNoCase(windows.ClassOf(window), "AOL Child")) im = window;
    return !im;
  });
  return im;
}

bool WavSender::SendToWindowOnTop(const std::string& name, Window owner) {
  const Window top = program_.platform.windows.TopChild(program_.g.hMDI);
  Window compose = ComposeWindowByTitle();
  if (!compose) compose = client_.IsWriteMailWindow(top);
  if (!compose) compose = NewIMWindow();
  if (top && top == compose) {
    InsertWavCode(client_.FindChildByClass(top, "RICHCNTL"), name, owner);
    return true;
  }
  const std::string title = client_.GetCaptionText(top);
  Window im{};
  if (program_.settings.IM.TabsOn) {
    if (title.find("Corvel IM Manager") != std::string::npos) im = ManagedIM(top);
  } else if (IsIMTitle(title)) {
    im = top;
  }
  if (!im) return false;
  InsertWavCode(client_.FindChildByClass(im, "RICHCNTL", 2), name, owner);
  return true;
}

void WavSender::InsertWavCode(Window control, const std::string& name, Window owner) {
  if (!control) return;
  const std::string saved = client_.GetRichText(owner);
  if (!PutTextOnClipboard(program_.platform.clipboard, owner, ClosedWavCode(name))) {
    MsgBoxEx(program_,
             "~B~CRThe clipboard is in use by another program.~B~CN~N ~NPlease try this operation "
             "again.",
             style::kOk + style::kExclamation);
    return;
  }
  program_.platform.windows.Send(control, wm::kCommand, kPaste, 0);
  client_.PutRichText(owner, saved);
  program_.platform.windows.SetFocus(control);
}

void WavSender::SendWavToText(const std::string& name) {
  const bool upper = program_.settings.WavList.UseUpperWavTrigger;
  client_.TextToChat(std::string(WavTrigger(upper)) + name + "}", 0);
}

void WavSender::SendToRoom(const std::string& name, const GarlandChoice& garland) {
  std::string line = RoomLine(name, garland);
  if (!program_.settings.Fader.On) {
    Say(std::move(line), false, {});
    SendDescription(name, {});
    return;
  }
  const QuietInput quiet(program_);
  GoOn([&] { fader_.FadeEngine(line); });
  Say(std::move(line), true, quiet.Input());
  SendDescription(name, quiet.Input());
}

std::string WavSender::RoomLine(const std::string& name, const GarlandChoice& garland) {
  const std::string code =
      std::string(WavTrigger(program_.settings.WavList.UseUpperWavTrigger)) + name;
  if (!garland.on) return code;
  const std::string style = ChooseStyle(garland);
  if (IsValidStyle(style)) {
    const StyleParts parts = SplitStyle(style);
    return parts.left + code + "}" + parts.right;
  }
  MsgBoxEx(program_,
           "~B~CRInvalid Garland Style loaded!~B~CN~N ~NThe current ~BGarland Style~B you have "
           "selected ~I(shown below)~I is not a valid Garland Style. Corvel will now default to "
           "the original Garland style.~N ~N~BInvalid Style:~B " +
               style);
  program_.settings.Garland.Current.Set(std::string(kDefaultGarland));
  // The left part of the invalid style never comes to be, and the right part is cut where the
  // missing placeholder would have stood: this line shows that something was wrong.
  const StyleParts parts = PartsAfterInvalidStyle(kDefaultGarland);
  return parts.left + code + "}" + parts.right;
}

std::string WavSender::ChooseStyle(const GarlandChoice& garland) {
  if (!garland.random) return program_.settings.Garland.Current;
  Random& random = program_.platform.random;
  random.Reseed();
  const auto row =
      static_cast<std::size_t>(static_cast<double>(garland.styles.size()) * random.Draw());
  return row < garland.styles.size() ? garland.styles[row] : std::string();
}

void WavSender::SendDescription(const std::string& name, Window input) {
  if (!program_.settings.Descriptions.SendToRoom) return;
  std::string text = GetWavDescrip(program_, name);
  if (Trim(text) == kNoDescription) return;
  if (!program_.settings.Descriptions.TrimDescrip) text.insert(0, "Descrip: ");
  const bool faded = program_.settings.Fader.On;
  if (faded) GoOn([&] { fader_.FadeEngine(text); });
  Pause(program_, kBeforeDescription);
  if (!program_.g.Unloading) Say(std::move(text), faded, input);
}

void WavSender::Say(std::string text, bool faded, Window input) {
  if (!faded) {
    GoOn([&] { client_.TextToChat(text, 1); });
    return;
  }
  const HiddenInput hidden(program_.platform.windows, input);
  GoOn([&] { client_.TextToChat(text, 1); });
}

}  // namespace corvel
