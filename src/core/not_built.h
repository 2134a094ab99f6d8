// What answers for a feature that isn't there yet: nothing happens. A feature that is built in part
// may stand on its answer for the rest. With the last feature these go.
#pragma once

#include "core/features/access.h"
#include "core/features/chat_tools.h"
#include "core/features/facts_and_clock.h"
#include "core/features/fader_windows.h"
#include "core/features/instant_messages.h"
#include "core/features/read_mail_watch.h"
#include "core/features/siblings.h"

namespace corvel {

inline constexpr const char* kNotBuiltTip = "This feature is not built yet.";

class NoHookEvents : public HookEvents {
 public:
  void OnMessage(HookedMessage&, forms::SubClass&) override {}
  void OnRaised(LParam) override {}
};

class NoAccess : public Access {
 public:
  bool SetUp() override { return false; }
  void TakeDown() override {}
  HookEvents& ClientFrame() override { return none_; }
  void OnTray(LParam) override {}
  void ResetCaptions() override {}
  void RowsChanged() override {}

 private:
  NoHookEvents none_;
};

class NoChatTools : public ChatTools {
 public:
  HookEvents& Input() override { return none_; }
  HookEvents& SendIcon() override { return none_; }
  HookEvents& PeopleList() override { return none_; }
  HookEvents& View() override { return none_; }
  void ChatLine(std::string_view, std::string_view) override {}
  void RoomHasGone() override {}

 private:
  NoHookEvents none_;
};

class NoFactsAndClock : public FactsAndClock {
 public:
  std::string ChooseFact() override { return {}; }
  void ShowFact() override {}
  void ShowClock() override {}
};

class NoFaderWindows : public FaderWindows {
 public:
  void ScanIncoming() override {}
  bool ShowPanelWithRoom() override { return false; }
  void HidePanel() override {}
  void SwitchOff() override {}
  bool ShowMailBar() override { return false; }
  void HideMailBar() override {}
};

class NoInstantMessages : public InstantMessages {
 public:
  void Initialize_IM_Manager() override {}
  void LogCountCheck() override {}
  HookEvents& View() override { return none_; }
  HookEvents& MdiClient() override { return none_; }
  void RenewHooks() override {}
  void AnswererTick() override {}
  void WavTick() override {}
  void TidyAfterSignOff() override {}
  bool IsIgnored(const std::string&) override { return false; }
  void UnhookManaged() override {}
  void GiveBack() override {}

 private:
  NoHookEvents none_;
};

class NoReadMailWatch : public ReadMailWatch {
 public:
  void PlayMailWav(Window) override {}
  void CheckForWavDL(Window) override {}
  void ForgetLastMail() override {}
};

class NoSiblings : public Siblings {
 public:
  void StartPalroster() override {}
  void StartBackdrape() override {}
};

}  // namespace corvel
