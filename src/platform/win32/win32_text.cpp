// Texts in messages; see win32_text.h.
#include "platform/win32/win32_text.h"

#include <algorithm>
#include <iterator>

namespace corvel::win32 {
namespace {

constexpr UINT kCarriers[] = {WM_SETTEXT,      EM_REPLACESEL, LB_ADDSTRING,
                              LB_INSERTSTRING, CB_ADDSTRING,  CB_INSERTSTRING};

}  // namespace

bool CarriesText(UINT id) {
  return std::find(std::begin(kCarriers), std::end(kCarriers), id) != std::end(kCarriers);
}

TextUnderWay::TextUnderWay(HWND window, UINT id, const std::string& text)
    : window_(window), id_(id), text_(text), outer_(innermost_) {
  innermost_ = this;
}

std::optional<std::string_view> TextUnderWay::Find(HWND window, UINT id, LPARAM lParam) {
  for (const TextUnderWay* at = innermost_; at; at = at->outer_)
    if (at->window_ == window && at->id_ == id && at->Pointer() == lParam) return at->text_;
  return std::nullopt;
}

}  // namespace corvel::win32
