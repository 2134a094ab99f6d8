// A link: the program's hold on one thread of a client, through the library that is in there. The
// library's side of it is hook/link.h.
#pragma once

#include "platform/hook/shared_layout.h"
#include "platform/win32/in_client.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>
#include <windows.h>

namespace corvel::win32 {

// Shared memory under a name; unmapped and closed with the object.
class SharedSection {
 public:
  explicit SharedSection(const char* name);
  ~SharedSection();
  SharedSection(const SharedSection&) = delete;
  SharedSection& operator=(const SharedSection&) = delete;
  hook::Section* get() const { return section_; }  // nullptr if there is no memory

 private:
  HANDLE mapping_ = nullptr;
  hook::Section* section_ = nullptr;
};

class HookLink : public std::enable_shared_from_this<HookLink> {
 public:
  // `owner` is the window of ours that the library will ask.
  HookLink(HWND owner, DWORD number, DWORD thread);
  ~HookLink();  // has the library let go of all that we hooked
  HookLink(const HookLink&) = delete;
  HookLink& operator=(const HookLink&) = delete;

  DWORD number() const { return number_; }
  DWORD thread() const { return thread_; }
  hook::Section* section() const { return shared_.get(); }
  // The library has entered and its thread still lives.
  bool Lives() const;
  // Nothing if the client is gone or doesn't take it in time.
  std::optional<DeedReply> Do(const DeedRequest& request);
  // Leaves a deed there which is done once the client takes messages again, even if we have ended
  // by then. It has no text and no reply.
  void Later(Deed deed, std::int32_t number, std::uint32_t value);
  // The texts that the library has put into the ring since the last call, with their hooks' ids.
  std::vector<std::pair<std::uint32_t, std::string>> TakeTexts();

 private:
  bool Send(hook::DeedSlot& slot, std::size_t index);

  DWORD number_, thread_;
  SharedSection shared_;
  std::uint32_t deeds_ = 0;  // under way, one inside the other
  std::uint32_t lastSequence_ = 0;
};

}  // namespace corvel::win32
