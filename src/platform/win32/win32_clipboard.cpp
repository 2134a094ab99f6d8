#include "platform/win32/win32_clipboard.h"

#include "base/text.h"
#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <cstring>

namespace corvel::win32 {
namespace {

using OwnedMemory = Owned<HGLOBAL, GlobalFree>;

OwnedMemory MemoryWith(const std::string& text) {
  OwnedMemory memory(GlobalAlloc(GMEM_MOVEABLE | GMEM_DDESHARE, text.size() + 1));
  void* bytes = memory ? GlobalLock(memory.Get()) : nullptr;
  if (!bytes) return {};
  std::memcpy(bytes, text.c_str(), text.size() + 1);
  GlobalUnlock(memory.Get());
  return memory;
}

}  // namespace

Win32Clipboard::~Win32Clipboard() { Close(); }

HWND Win32Clipboard::StandIn() {
  if (!standIn_)
    standIn_ = Owned<HWND, DestroyWindow>(CreateWindowExA(
        0, "STATIC", "", 0, 0, 0, 0, 0, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr));
  return standIn_.Get();
}

bool Win32Clipboard::Open(Window owner) {
  if (open_) return false;
  open_ = OpenClipboard(owner ? ToHwnd(owner) : StandIn());
  return open_;
}

void Win32Clipboard::Close() {
  if (std::exchange(open_, false)) CloseClipboard();
}

// The last owner is told, and our own callbacks may run meanwhile.
void Win32Clipboard::Empty() {
  if (open_) EmptyClipboard();
  Callback::Rethrow();
}

bool Win32Clipboard::Set(std::uint32_t format, std::string_view text) {
  if (!open_) return false;
  OwnedMemory memory = MemoryWith(CutAtNul(text));
  if (!memory || !SetClipboardData(format, memory.Get())) return false;
  memory.Release();  // it is the system's now
  return true;
}

// The owner may have to be asked for it.
std::optional<std::string> Win32Clipboard::Get(std::uint32_t format) {
  const HANDLE memory = open_ ? GetClipboardData(format) : nullptr;
  Callback::Rethrow();
  const void* bytes = memory ? GlobalLock(memory) : nullptr;
  if (!bytes) return std::nullopt;
  std::string text = CutAtNul({static_cast<const char*>(bytes), GlobalSize(memory)});
  GlobalUnlock(memory);
  return text;
}

std::uint32_t Win32Clipboard::RegisterFormat(std::string_view name) {
  return RegisterClipboardFormatA(CutAtNul(name).c_str());
}

}  // namespace corvel::win32
