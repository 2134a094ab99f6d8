// The agent: the library's own hidden window in a thread of the client. The program sends it deeds.
#pragma once

#include "platform/hook/link.h"

namespace corvel::hook {

UINT AskMessage();
UINT NoticeMessage();
UINT EnterMessage();

HWND CreateAgent(Link* link);  // nullptr if it can't be made

}  // namespace corvel::hook
