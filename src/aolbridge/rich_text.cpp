#include "aolbridge/rich_text.h"

#include "aolbridge/aolclient.h"

namespace corvel {

std::string AolClient::GetRichText(Window owner) {
  Clipboard& clipboard = program_.platform.clipboard;
  const OpenClipboard open(clipboard, owner);
  if (!open) return {};
  return clipboard.Get(clipboard.RegisterFormat(kMailFormat)).value_or("");
}

void AolClient::PutRichText(Window owner, std::string_view text) {
  Clipboard& clipboard = program_.platform.clipboard;
  const OpenClipboard open(clipboard, owner);
  if (!open) return;
  clipboard.Empty();
  clipboard.Set(clipboard.RegisterFormat(kMailFormat), text);
}

}  // namespace corvel
