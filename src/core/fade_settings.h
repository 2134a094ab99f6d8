// What the fade engine takes: plain values, which the settings of section "Fader" keep here under
// the same names (settings_fader.h), or whoever else wants a text faded.
#pragma once

#include <cstdint>

namespace corvel {

// A colour as the registry and scheme files hold it: red in the low byte, then green and blue. A
// system colour is a negative number.
using ColorValue = std::int32_t;

// A boolean of 16 bits, -1 for true and 0 for false. Other bits are neither, and equal neither
// `true` nor `false`.
struct WideBoolean {
  constexpr WideBoolean(bool value = false) : bits(value ? -1 : 0) {}  // NOLINT: assigned from bool

  static constexpr WideBoolean FromBits(std::int16_t bits) {
    WideBoolean result;
    result.bits = bits;
    return result;
  }

  friend constexpr bool operator==(WideBoolean, WideBoolean) = default;

  std::int16_t bits;
};

struct FadeSettings {
  bool Wavy = false;
  bool Bold = false;
  bool Italic = false;
  bool ULine = false;
  std::int16_t FadeNumber = 2;  // colours in use, 1 to 6; with any other a text stays plain
  ColorValue One = 0;
  ColorValue Two = 0;
  ColorValue Three = 0;
  ColorValue Four = 0;
  ColorValue Five = 0;
  ColorValue Six = 0;
  WideBoolean SolidFade;  // neither true nor false: a text stays plain
};

}  // namespace corvel
