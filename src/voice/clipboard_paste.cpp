#include "voice/clipboard_paste.h"

#include "aolbridge/rich_text.h"
#include "base/text.h"
#include "core/helpers.h"
#include "voice/give_back.h"

#include <optional>
#include <string>

namespace corvel {
namespace {

constexpr int kTries = 20;
constexpr double kBetweenTries = 0.05;  // seconds

// What lies on the clipboard, as far as it can be put back.
struct Content {
  std::optional<std::string> text, mail;
};

// Between Open and Close.
Content ContentOf(Clipboard& clipboard) {
  return {clipboard.Get(kClipboardText), clipboard.Get(clipboard.RegisterFormat(kMailFormat))};
}

void Put(Clipboard& clipboard, const Content& content) {
  clipboard.Empty();
  if (content.text) clipboard.Set(kClipboardText, *content.text);
  if (content.mail) clipboard.Set(clipboard.RegisterFormat(kMailFormat), *content.mail);
}

// Takes the clipboard's place for `format` and gives what it held. In one opening, so that nobody
// else comes in between.
std::optional<Content> Borrow(Clipboard& clipboard, Window owner, std::uint32_t format,
                              std::string_view text) {
  const OpenClipboard open(clipboard, owner);
  if (!open) return std::nullopt;
  Content held = ContentOf(clipboard);
  clipboard.Empty();
  if (clipboard.Set(format, text)) return held;
  Put(clipboard, held);
  return std::nullopt;
}

// False while another program has the clipboard open.
bool Return(Clipboard& clipboard, Window owner, std::uint32_t format, std::string_view text,
            const std::string& mail) {
  const OpenClipboard open(clipboard, owner);
  if (!open) return false;
  if (clipboard.Get(format) == CutAtNul(text)) Put(clipboard, {std::nullopt, mail});
  return true;
}

}  // namespace

bool PasteThroughClipboard(Program& program, Window box, Window owner, PasteAs as,
                           std::string_view text) {
  Clipboard& clipboard = program.platform.clipboard;
  const std::uint32_t format =
      as == PasteAs::kText ? kClipboardText : clipboard.RegisterFormat(kMailFormat);
  const auto held = Borrow(clipboard, owner, format, text);
  if (!held) return false;
  AndGiveBack([&] { program.platform.windows.Send(box, wm::kCommand, rich_text::kPaste, 0); },
              [&] {
                for (int tries = 0; tries < kTries; ++tries) {
                  if (Return(clipboard, owner, format, text, held->mail.value_or(""))) return;
                  Pause(program, kBetweenTries);
                }
              });
  return true;
}

}  // namespace corvel
