#include "wavlib/wav_sending.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "voice/clipboard_paste.h"
#include "wavlib/garland_styles.h"
#include "wavlib/sound_code.h"
#include "wavlib/wav_descriptions.h"

#include <utility>

namespace corvel {
namespace {

constexpr double kBeforeDescription = 0.3;  // seconds

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
  if (PasteThroughClipboard(program_, control, owner, PasteAs::kText, ClosedWavCode(name))) {
    program_.platform.windows.SetFocus(control);
    return;
  }
  MsgBoxEx(program_,
           "~B~CRThe clipboard is in use by another program.~B~CN~N ~NPlease try this operation "
           "again.",
           style::kOk + style::kExclamation);
}

void WavSender::SendWavToText(const std::string& name) {
  const bool upper = program_.settings.WavList.UseUpperWavTrigger;
  client_.TextToChat(std::string(WavTrigger(upper)) + name + "}", 0);
}

void WavSender::SendToRoom(const std::string& name, const GarlandChoice& garland) {
  const std::string line = RoomLine(name, garland);
  if (!program_.settings.Fader.On) {
    GoOn([&] { voice_.Say(line); });
    SendDescription(name);
    return;
  }
  voice_.Unheard([&] {
    const std::string faded = voice_.Faded(line);
    GoOn([&] { voice_.SayUnseen(faded); });
    SendDescription(name);
  });
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

void WavSender::SendDescription(const std::string& name) {
  if (!program_.settings.Descriptions.SendToRoom) return;
  std::string text = GetWavDescrip(program_, name);
  if (Trim(text) == kNoDescription) return;
  if (!program_.settings.Descriptions.TrimDescrip) text.insert(0, "Descrip: ");
  const bool faded = program_.settings.Fader.On;
  if (faded) text = voice_.Faded(std::move(text));
  Pause(program_, kBeforeDescription);
  if (program_.g.Unloading) return;
  GoOn([&] { faded ? voice_.SayUnseen(text) : voice_.Say(text); });
}

}  // namespace corvel
