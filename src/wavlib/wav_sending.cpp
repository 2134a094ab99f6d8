#include "wavlib/wav_sending.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/frmCV7.h"
#include "core/helpers.h"
#include "core/report_error.h"
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

}  // namespace

void WavSender::Send(const std::string& name, const GarlandChoice& garland, Window owner) {
  if (!SendToWindowOnTop(name, owner)) SendToRoom(name, garland);
}

// Known by its title alone, or by what stands in it.
Window WavSender::WindowToWriteIn() {
  if (const Window mail = client_.WriteMailByTitle()) return mail;
  if (const Window mail = client_.WriteMailOnTop()) return mail;
  return client_.NewIMWindow();
}

bool WavSender::SendToWindowOnTop(const std::string& name, Window owner) {
  const Window top = client_.TopDocument();
  if (top && top == WindowToWriteIn()) {
    InsertWavCode(client_.BodyOf(top), name, owner);
    return true;
  }
  const Window im = program_.settings.IM.TabsOn ? client_.ManagedIMOnTop() : client_.IMOnTop();
  if (!im) return false;
  InsertWavCode(client_.PartsOfIM(im).entry, name, owner);
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
  std::string& current = program_.settings.Garland.Current;
  current = kDefaultGarland;
  program_.store.WriteKey("Garland", "Current", current);
  // The left part of the invalid style never comes to be, and the right part is cut where the
  // missing placeholder would have stood: this line shows that something was wrong.
  const StyleParts parts = PartsAfterInvalidStyle(current);
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
