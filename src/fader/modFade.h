// The fade engine: plain text in, text in the client's mark-up out, as a colour gradient or a cycle
// of solid colours, with the wave and the text styles.
//
// Pure text procedures: no window is touched. All text is Windows-1252, a character a byte. The
// engine knows no tags on the way in: a '<' is one more character that gets its own colour. Only
// the blank (code 32) stays bare. Texts are shorter than 2^31 characters.
#pragma once

#include "core/fade_settings.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace corvel {

// The hexadecimal digits of a value, upper-case, padded with zeros to six. A longer one is left as
// it is; a negative one has eight.
std::string RGBToHEX(std::int32_t value);

// One object for the program, since its one piece of state, the step of the wave, runs on from text
// to text: a gradient starts the wave anew, a solid fade goes on from wherever the last fade left
// it. The step moves on also while the wave is off.
//
// The fades of four to six colours yield while they cut the text up, before they write anything.
// What runs in a yield may fade texts with the same object, which moves the outer fade's wave too,
// and may change the settings: Wavy and the styles are looked at after the last yield, hence the
// references. It must leave the text in work alone.
class Fader {
 public:
  using Yield = std::function<void()>;

  // `settings` are the program's current ones and outlive the object. `yield` lets the message loop
  // run; without one the fades don't yield.
  explicit Fader(const FadeSettings& settings, Yield yield = {});

  // Fades `text` in place by the current settings and returns it.
  const std::string& FadeEngine(std::string& text);

  // The gradients. The last character of a segment has its end colour in full; the start colour is
  // never reached. A blank uses up a step of the gradient.
  std::string FadeByColor2(ColorValue one, ColorValue two, std::string_view text, const bool& wavy);
  std::string FadeByColor3(ColorValue one, ColorValue two, ColorValue three, std::string_view text,
                           const bool& wavy);
  std::string FadeByColor4(ColorValue one, ColorValue two, ColorValue three, ColorValue four,
                           std::string_view text, const bool& wavy);
  std::string FadeByColor5(ColorValue one, ColorValue two, ColorValue three, ColorValue four,
                           ColorValue five, std::string_view text, const bool& wavy);
  std::string FadeByColor6(ColorValue one, ColorValue two, ColorValue three, ColorValue four,
                           ColorValue five, ColorValue six, std::string_view text,
                           const bool& wavy);

  // The solid cycles: each character in the next colour, blanks uncounted. One colour has a single
  // tag at the very start, even for an empty text.
  std::string MakeOneSolidFade(std::string_view text, ColorValue one, bool wavy);
  std::string MakeTwoSolidFade(std::string_view text, ColorValue one, ColorValue two, bool wavy);
  std::string MakeThreeSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                 ColorValue three, bool wavy);
  std::string MakeFourSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                ColorValue three, ColorValue four, bool wavy);
  std::string MakeFiveSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                ColorValue three, ColorValue four, ColorValue five, bool wavy);
  std::string MakeSixSolidFade(std::string_view text, ColorValue one, ColorValue two,
                               ColorValue three, ColorValue four, ColorValue five, ColorValue six,
                               bool wavy);

  // One gradient segment; the wave goes on from its present step.
  std::string MakeFade(std::string_view text, std::uint8_t blueFrom, std::uint8_t blueTo,
                       std::uint8_t greenFrom, std::uint8_t greenTo, std::uint8_t redFrom,
                       std::uint8_t redTo, bool wavy);

 private:
  // Both put the faded text in place of `out`, which is left alone until the last yield is over.
  void Gradient(std::string& out, std::span<const ColorValue> colors, std::string_view text,
                const bool& wavy);
  void Solid(std::string& out, std::span<const ColorValue> colors, std::string_view text,
             bool wavy);
  void YieldForEachRound(std::size_t length, std::size_t segments) const;

  const FadeSettings& settings_;
  Yield yield_;
  std::int16_t wavyStep_ = 0;  // 0 to 5; only a run's first fade finds a 0
};

}  // namespace corvel
