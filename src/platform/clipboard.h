// The clipboard. One process holds it open at a time.
#pragma once

#include "platform/window_types.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvel {

inline constexpr std::uint32_t kClipboardText = 1;

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // False while another process has it open.
  virtual bool Open(Window owner) = 0;
  virtual void Close() = 0;
  // Between Open and Close only.
  virtual void Empty() = 0;
  // A NUL-terminated text is added to and cut from the bytes here.
  virtual bool Set(std::uint32_t format, std::string_view text) = 0;
  virtual std::optional<std::string> Get(std::uint32_t format) = 0;
  // The number of a named format: the same for the same name, case ignored, for the whole session.
  virtual std::uint32_t RegisterFormat(std::string_view name) = 0;
};

}  // namespace corvel
