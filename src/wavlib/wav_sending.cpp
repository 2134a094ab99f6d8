#include "wavlib/wav_sending.h"

#include "base/text.h"
#include "core/dialogs.h"
#include "core/helpers.h"
#include "core/report_error.h"
#include "core/settings_fader.h"
#include "core/settings_im.h"
#include "core/settings_wavs.h"
#include "voice/clipboard_paste.h"
#include "wavlib/garland_styles.h"
#include "wavlib/sound_code.h"
#include "wavlib/wav_descriptions.h"

#include <utility>

namespace corvel {
namespace {

constexpr double kBeforeDescription = 0.3;  // seconds

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
