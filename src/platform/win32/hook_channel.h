// The road to our library inside clients: brings it in, finds the link of a client's thread, and
// hands on what comes from there. docs/hooks.md tells the whole.
#pragma once

#include "platform/hooks.h"
#include "platform/win32/hook_link.h"

#include <map>
#include <memory>
#include <string>

namespace corvel::win32 {

// Who takes what the library sends. The calls are made in callbacks; exceptions are kept and thrown
// on as callback.h tells.
class HookSink {
 public:
  virtual ~HookSink() = default;
  // A hook is asked about a message while its sender waits.
  virtual void OnAsked(HookId hook, HookedMessage& message) = 0;
  // A hook is told a text: keep it. DeliverTold follows when all that has come is kept.
  virtual void OnTold(HookId hook, const std::string& text) = 0;
  virtual void DeliverTold() = 0;
  // The hook's window has died.
  virtual void OnGone(HookId hook) = 0;
};

// A loaded library, freed with the object.
class HookLibrary {
 public:
  ~HookLibrary();
  // Loads corvelhk.dll from the program's own folder. False if it is missing or of another version.
  bool Load();
  // Runs in the thread of `window`, in whatever process: false if it can't.
  bool Enter(HWND window, DWORD thread, DWORD link);

 private:
  HMODULE module_ = nullptr;
  HOOKPROC onMessage_ = nullptr;
  hook::EnterFunction enter_ = nullptr;
};

class HookChannel {
 public:
  HookChannel() = default;
  ~HookChannel();
  HookChannel(const HookChannel&) = delete;
  HookChannel& operator=(const HookChannel&) = delete;

  // Lets go of all clients.
  void LetGo();

  void SetSink(HookSink* sink) { sink_ = sink; }
  // The link of the window's thread, which is entered if need be. nullptr if the window is dead,
  // its process hangs or can't be entered.
  std::shared_ptr<HookLink> Enter(HWND window);
  // The same if it has been entered, else nullptr.
  std::shared_ptr<HookLink> Entered(HWND window) const;

 private:
  static LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool MakeOwner();
  void ForgetTheDead();
  std::shared_ptr<HookLink> LinkOf(WPARAM which) const;
  LRESULT OnAsk(WPARAM which, std::uint32_t sequence);
  LRESULT OnNotice(WPARAM which, LPARAM value);

  HookLibrary library_;
  HookSink* sink_ = nullptr;
  HWND owner_ = nullptr;
  DWORD nextNumber_ = 1;
  std::map<DWORD, std::shared_ptr<HookLink>> links_;
};

}  // namespace corvel::win32
