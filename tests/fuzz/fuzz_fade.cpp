// Holds the fade engine against the plain one, over texts and settings made of the input.
#include "fader/modFade.h"
#include "tests/fader/reference_fade.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) {}

  bool Empty() const { return at_ == end_; }
  std::uint8_t Byte() { return Empty() ? 0 : *at_++; }
  std::int32_t Color() {
    std::uint32_t color = 0;
    for (int i = 0; i < 4; ++i) color = color << 8 | Byte();
    return static_cast<std::int32_t>(color);
  }
  // Up to 255 characters, or many times that of a short piece, for segments longer than a block.
  std::string Text() {
    const std::size_t length = Byte(), times = 1 + Byte() % 8;
    std::string piece, text;
    while (piece.size() < length && !Empty()) piece += static_cast<char>(Byte());
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
  }

 private:
  const std::uint8_t *at_, *end_;
};

corvel::FadeSettings Settings(Input& input) {
  corvel::FadeSettings settings;
  const std::uint8_t flags = input.Byte();
  settings.Wavy = flags & 1;
  settings.Bold = flags & 2;
  settings.Italic = flags & 4;
  settings.ULine = flags & 8;
  settings.SolidFade =
      (flags & 0x70) == 0x70 ? corvel::WideBoolean::FromBits(1) : (flags & 0x10) != 0;
  settings.FadeNumber = static_cast<std::int16_t>(input.Byte() % 9 - 1);
  for (auto* color : {&settings.One, &settings.Two, &settings.Three, &settings.Four, &settings.Five,
                      &settings.Six})
    *color = input.Color();
  return settings;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  corvel::FadeSettings settings;
  corvel::Fader fader(settings);
  corvel::ReferenceFader reference;
  while (!input.Empty()) {  // text after text, since the wave runs on
    settings = Settings(input);
    std::string text = input.Text();
    const std::string expected = reference.Engine(text, settings);
    if (fader.FadeEngine(text) != expected) std::abort();
  }
  return 0;
}
