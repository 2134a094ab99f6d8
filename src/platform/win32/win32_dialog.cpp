// The standard dialog; see win32_dialog.h.
#include "platform/win32/win32_dialog.h"

#include "platform/win32/callback.h"
#include "platform/win32/handles.h"

#include <algorithm>
#include <iterator>

namespace corvel::win32 {
namespace {

// Class numbers in a dialog's template.
constexpr WORD kButtonClass = 0x0080, kStaticClass = 0x0082;
constexpr WORD kIconId = 20, kTextId = 0xFFFF;

// A dialog's template as it lies in memory: words, each item on a double word. The texts are set
// later, so that they need no conversion.
class Template {
 public:
  Template(DWORD style, short width, short height, WORD items) {
    Add(style, 0);
    words_.insert(words_.end(), {items, 0, 0, static_cast<WORD>(width), static_cast<WORD>(height),
                                 0 /* menu */, 0 /* class */, 0 /* caption */});
    words_.push_back(8);  // points of the font
    for (const char* name = "MS Sans Serif"; *name; ++name)
      words_.push_back(static_cast<unsigned char>(*name));
    words_.push_back(0);
  }
  void Item(DWORD style, RECT place, WORD id, WORD systemClass) {
    if (words_.size() % 2) words_.push_back(0);
    Add(style | WS_CHILD | WS_VISIBLE, 0);
    for (const LONG number :
         {place.left, place.top, place.right - place.left, place.bottom - place.top})
      words_.push_back(static_cast<WORD>(number));
    words_.insert(words_.end(), {id, 0xFFFF, systemClass, 0 /* text */, 0 /* data */});
  }
  const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  void Add(DWORD style, DWORD extendedStyle) {
    for (const DWORD number : {style, extendedStyle}) {
      words_.push_back(LOWORD(number));
      words_.push_back(HIWORD(number));
    }
  }
  std::vector<WORD> words_;
};

Template MessageBoxTemplate() {
  Template made(WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_SETFONT | DS_CENTER, 220,
                74, 3);
  made.Item(SS_ICON, {8, 8, 28, 28}, kIconId, kStaticClass);
  made.Item(SS_LEFT | SS_NOPREFIX, {38, 10, 212, 50}, kTextId, kStaticClass);
  made.Item(WS_TABSTOP | BS_DEFPUSHBUTTON, {85, 54, 135, 68}, IDOK, kButtonClass);
  return made;
}

// A dialog that is ended is hidden by the system, and destroyed by the loop that waits for its
// answer; nobody waits for this one.
bool HasEnded(UINT id, LPARAM lParam) {
  return id == WM_CLOSE || (id == WM_WINDOWPOSCHANGED &&
                            (reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_HIDEWINDOW));
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT id, WPARAM wParam, LPARAM lParam) {
  return Callback::Run([&]() -> LRESULT {
    const bool answered =
        id == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL);
    if (!answered && !HasEnded(id, lParam)) return id == WM_INITDIALOG;
    DestroyWindow(dialog);
    return TRUE;
  });
}

}  // namespace

StandardDialogs::StandardDialogs(Win32EventLoop& events) : events_(events) {
  events_.AddFilter(*this);
}

StandardDialogs::~StandardDialogs() {
  events_.RemoveFilter(*this);
  for (const HWND dialog : shown_)
    if (IsWindow(dialog)) DestroyWindow(dialog);
}

HWND StandardDialogs::Show(HWND owner, const std::string& caption, const std::string& text) {
  const Template made = MessageBoxTemplate();
  const HWND dialog =
      CreateDialogIndirectParamA(GetModuleHandleA(nullptr), made.get(), owner, DialogProcedure, 0);
  Callback::Rethrow();
  if (!dialog) return nullptr;
  shown_.push_back(dialog);
  SetWindowTextA(dialog, caption.c_str());
  SendDlgItemMessageA(dialog, kIconId, STM_SETICON,
                      reinterpret_cast<WPARAM>(LoadIconA(nullptr, IDI_EXCLAMATION)), 0);
  SetDlgItemTextA(dialog, kTextId, text.c_str());
  SetDlgItemTextA(dialog, IDOK, "OK");
  ShowWindow(dialog, SW_SHOWNORMAL);
  Callback::Rethrow();
  return IsWindow(dialog) ? dialog : nullptr;
}

bool StandardDialogs::Filter(MSG& message) {
  std::erase_if(shown_, [](HWND dialog) { return !IsWindow(dialog); });
  const std::vector<HWND> dialogs = shown_;  // a key may end one
  return std::any_of(dialogs.begin(), dialogs.end(),
                     [&](HWND dialog) { return IsDialogMessageA(dialog, &message) != FALSE; });
}

}  // namespace corvel::win32
