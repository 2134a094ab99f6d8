// The client's own mail text format on the clipboard: a NUL-terminated text under the name
// "AOLMAIL".
#include "aolbridge/aolclient.h"

namespace corvel {
namespace {

constexpr std::string_view kFormat = "AOLMAIL";

// Holds the clipboard open; another process may have it, then nothing is read or lost.
class OpenClipboard {
 public:
  OpenClipboard(Clipboard& clipboard, Window owner)
      : clipboard_(clipboard), open_(clipboard.Open(owner)) {}
  ~OpenClipboard() {
    if (open_) clipboard_.Close();
  }
  OpenClipboard(const OpenClipboard&) = delete;
  explicit operator bool() const { return open_; }

 private:
  Clipboard& clipboard_;
  bool open_;
};

}  // namespace

std::string AolClient::GetRichText(Window owner) {
  Clipboard& clipboard = program_.platform.clipboard;
  const OpenClipboard open(clipboard, owner);
  if (!open) return {};
  return clipboard.Get(clipboard.RegisterFormat(kFormat)).value_or("");
}

void AolClient::PutRichText(Window owner, std::string_view text) {
  Clipboard& clipboard = program_.platform.clipboard;
  const OpenClipboard open(clipboard, owner);
  if (!open) return;
  clipboard.Empty();
  clipboard.Set(clipboard.RegisterFormat(kFormat), text);
}

}  // namespace corvel
