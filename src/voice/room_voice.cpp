#include "voice/room_voice.h"

#include "base/error.h"
#include "core/frmCV7.h"
#include "core/report_error.h"
#include "voice/give_back.h"

namespace corvel {

void RoomVoice::Say(const std::string& line) { client_.TextToChat(line, 1); }

std::string RoomVoice::Faded(std::string line) {
  GoOn([&] { fader_.FadeEngine(line); });
  return line;
}

void RoomVoice::SayUnseen(const std::string& markedUp) {
  if (!program_.g.hChatRoom) {
    client_.TextToChat(markedUp, 1);
    return;
  }
  WindowSystem& windows = program_.platform.windows;
  const Window input = client_.ChatInput(program_.g.hChatRoom);
  const std::string typed = client_.GetAPIText(input);
  const auto giveBack = [&] {
    windows.Show(input, show::kShow);
    if (typed.empty()) return;
    windows.SendText(input, wm::kSetText, 0, typed);
    // Or the next letter would stand in front.
    windows.Send(input, wm::kEditSetSelection, typed.size(), static_cast<LParam>(typed.size()));
  };
  Unheard([&] {
    windows.Show(input, show::kHide);
    AndGiveBack([&] { client_.TextToChat(markedUp, 1); }, giveBack);
  });
}

void RoomVoice::Unheard(const std::function<void()>& speak) {
  frmCV7* const central = program_.forms.Loaded<frmCV7>();
  const Window input = central ? central->sbcCmdLine.HWnd() : Window{};
  if (!input) return speak();
  central->sbcCmdLine.SetHWnd({});
  try {
    speak();
  } catch (const ProcessExit&) {
    throw;
  } catch (...) {
    HearAgain(input);
    throw;
  }
  HearAgain(input);
}

void RoomVoice::HearAgain(Window input) {
  frmCV7* const central = program_.forms.Loaded<frmCV7>();
  if (program_.g.Closing || !central || !central->ChatHooked || central->sbcCmdLine.HWnd()) return;
  if (program_.platform.windows.Exists(input)) central->sbcCmdLine.SetHWnd(input);
}

}  // namespace corvel
