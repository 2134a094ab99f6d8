// The stage where the user's hand moves the mouse and strikes the keys; see win32_stage.h.
#include "platform/win32/callback.h"
#include "tools/win32/win32_stage.h"

namespace corvel::tools {
namespace {

constexpr UINT kTickMs = 15;

// The system calls back without saying for whom.
Win32Stage* ticked = nullptr;

}  // namespace

// By a timer, which the system's own loops (of a menu, of a scroll bar that is held) keep going.
Win32Stage::ByHand::ByHand(Win32Stage& stage)
    : hands([&stage] {
        if (stage.options_.onTouch) stage.options_.onTouch();
      }),
      controls(stage.home_, hands, [&stage] { return stage.Begun(); }),
      hand(controls),
      client(hands, [&stage](const ClientHand::Words& words) { return stage.AskClient(words); }),
      timer(SetTimer(nullptr, 0, kTickMs, Tick)) {
  ticked = &stage;
}

Win32Stage::ByHand::~ByHand() {
  KillTimer(nullptr, timer);
  ticked = nullptr;
}

void CALLBACK Win32Stage::Tick(HWND, UINT, UINT_PTR, DWORD) {
  if (ticked) win32::Callback::Run([] { return ticked->OnTick(), 0; });
}

// While a menu is up no message loop of ours runs, and whoever acts is called from here.
void Win32Stage::OnTick() {
  if (options_.rests && options_.rests()) return;
  byHand_->hands.Step();
  const bool inMenu =
      !script_.prompts.empty() && script_.prompts.back()->kind == desk::Prompt::Kind::kPopup;
  if (!inMenu || !actor_) return;
  OnIdle(*actor_);
  if (script_.ended) throw ProcessExit{};
}

// With all that comes of it: inside a handler the program waits deeper than where it began.
Deed Win32Stage::Begun() {
  return {.over = [this, depth = script_.waits.size()] {
    return !HandIsBusy() && script_.waits.size() <= depth;
  }};
}

void Win32Stage::ChooseRow(desk::Prompt& popup, const std::vector<int>& rows) {
  if (!byHand_) return Stage::ChooseRow(popup, rows);
  byHand_->controls.ChooseRow(popup.menu, rows);
}

void Win32Stage::PutAway(desk::Prompt& popup) {
  if (!byHand_) return Stage::PutAway(popup);
  byHand_->controls.PutMenuAway();
}

std::string Win32Stage::TakeHandFailure() {
  return byHand_ ? byHand_->hands.TakeFailure() : std::string();
}

}  // namespace corvel::tools
