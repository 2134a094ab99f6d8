// Asking the program about a message, while its sender waits.
#pragma once

#include "platform/hook/link.h"

namespace corvel::hook {

// A message on its way, its text found.
struct Passing {
  HWND window;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
  const char* text;  // nullptr: it carries none
};

// The text that a message carries: of WM_SETTEXT and the private text messages.
const char* TextOf(UINT message, LPARAM lParam);

// True if the program consumed the message: then `result` is for the sender. May release the link
// and free it.
bool Ask(Link* link, std::uint32_t hook, const Passing& passing, LRESULT& result);
// Puts the text into the ring, for the program to find when it pumps. May release the link.
void TellText(Link* link, std::uint32_t hook, const char* text);

}  // namespace corvel::hook
