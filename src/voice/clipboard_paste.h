// Putting text into a rich text window of the client through the clipboard, which is the user's.
#pragma once

#include "core/program.h"

#include <string_view>

namespace corvel {

// As what the text lies on the clipboard: plain, or in the client's own format with mark-up.
enum class PasteAs { kText, kMail };

// Pastes `text` over the selection of `box`. `owner` is the window of ours that opens the
// clipboard.
//
// Of what the clipboard held its mail text comes back, on every road; all else is lost. It stays
// away if someone has copied something else meanwhile, which is then the user's newer wish. Another
// program that looks at the clipboard just then is waited for, up to a second, with events going
// on.
//
// False: another program keeps the clipboard open, or it doesn't take the text. Then nothing is
// pasted and no text on it is lost.
bool PasteThroughClipboard(Program& program, Window box, Window owner, PasteAs as,
                           std::string_view text);

}  // namespace corvel
