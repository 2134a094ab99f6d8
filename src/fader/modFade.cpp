#include "fader/modFade.h"

#include "fader/channel_ramp.h"
#include "fader/markup.h"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace corvel {
namespace {

constexpr std::size_t kMostColors = 6;
constexpr std::int16_t kGradientWaveStart = 2;

struct Channels {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
};

// Takes a colour apart by the digits of its text: the last two are red, the third and fourth green,
// the first two blue. A value wider than 24 bits has more than six of them, and so loses those in
// the middle.
Channels ChannelsOf(ColorValue color) {
  const auto value = static_cast<std::uint32_t>(color);
  const int digits = std::max(6, (static_cast<int>(std::bit_width(value)) + 3) / 4);
  return {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 4 * (digits - 4)),
          static_cast<std::uint8_t>(value >> 4 * (digits - 2))};
}

TagEnd TagEndOfColor(ColorValue color) {
  const Channels channels = ChannelsOf(color);
  return TagEndOf(channels.red, channels.green, channels.blue);
}

// Makes room for a faded text and for the style tags around it.
void ReserveFor(std::string& out, std::size_t length, bool wavy) {
  constexpr std::size_t kStyles = sizeof "<U><I><B></B></I></U>";
  out.reserve(length * (1 + kColorTagSize + (wavy ? kWaveTagSize : 0)) + kColorTagSize + kStyles);
}

// How many characters each segment of a gradient takes.
using SegmentLengths = std::array<std::size_t, kMostColors - 1>;

SegmentLengths Split(std::size_t length, std::size_t segments) {
  SegmentLengths lengths{};
  if (segments == 2) {
    const std::size_t half = length / 2;
    const bool upToEven = length % 2 == 1 && half % 2 == 1;
    lengths[0] = upToEven ? half + 1 : half;
    lengths[1] = length - lengths[0];
    return lengths;
  }
  // Dealt out one by one in rounds, so that the first segments get what is left over.
  for (std::size_t s = 0; s < segments; ++s)
    lengths[s] = length / segments + (s < length % segments ? 1 : 0);
  return lengths;
}

// The colours along one gradient segment, block by block.
class SegmentColors {
 public:
  SegmentColors(Channels from, Channels to, std::size_t length)
      : red_(from.red, to.red, static_cast<std::uint32_t>(length)),
        green_(from.green, to.green, static_cast<std::uint32_t>(length)),
        blue_(from.blue, to.blue, static_cast<std::uint32_t>(length)) {}

  void operator()(std::string_view block, TagEnd* ends) {
    const std::size_t count = block.size();
    auto red = red_.BeginBlock(), green = green_.BeginBlock(), blue = blue_.BeginBlock();
    for (std::size_t i = 0; i < count; ++i)
      ends[i] = TagEndOf(red.Next(), green.Next(), blue.Next());
    red_.EndBlock(red, count, [&](std::size_t i, auto value) { kRed.Replace(ends[i], value); });
    green_.EndBlock(green, count,
                    [&](std::size_t i, auto value) { kGreen.Replace(ends[i], value); });
    blue_.EndBlock(blue, count, [&](std::size_t i, auto value) { kBlue.Replace(ends[i], value); });
  }

 private:
  ChannelRamp red_, green_, blue_;
};

// The colours of a solid cycle. Blanks don't use one up.
class CycleColors {
 public:
  explicit CycleColors(std::span<const ColorValue> colors) : count_(colors.size()) {
    for (std::size_t i = 0; i < count_; ++i) ends_[i] = TagEndOfColor(colors[i]);
  }

  void operator()(std::string_view block, TagEnd* ends) {
    for (std::size_t i = 0; i < block.size(); ++i) {
      ends[i] = ends_[next_];
      const std::size_t after = next_ + 1 == count_ ? 0 : next_ + 1;
      next_ = block[i] == ' ' ? next_ : after;
    }
  }

 private:
  std::array<TagEnd, kMostColors> ends_{};
  std::size_t count_;
  std::size_t next_ = 0;
};

// Appends a text whose colour tags `fill(block, ends)` makes, block by block.
template <typename Fill>
void AppendBlocks(std::string& out, std::string_view text, bool wavy, std::int16_t& step,
                  Fill&& fill) {
  const auto append = wavy ? AppendColoredWave : AppendColored;
  for (std::size_t at = 0; at < text.size(); at += kMarkupBlock) {
    const std::string_view block = text.substr(at, kMarkupBlock);
    std::array<TagEnd, kMarkupBlock> ends;
    fill(block, ends.data());
    append(out, block, ends.data(), step);
  }
}

void AppendSegment(std::string& out, std::string_view text, Channels from, Channels to, bool wavy,
                   std::int16_t& step) {
  if (!text.empty()) AppendBlocks(out, text, wavy, step, SegmentColors(from, to, text.size()));
}

void AppendOneColor(std::string& out, std::string_view text, bool wavy, std::int16_t& step) {
  if (!wavy) {
    const auto blanks = static_cast<std::size_t>(std::count(text.begin(), text.end(), ' '));
    step = AdvancedWave(step, text.size() - blanks);
    out += text;
    return;
  }
  for (std::size_t at = 0; at < text.size(); at += kMarkupBlock)
    AppendWave(out, text.substr(at, kMarkupBlock), step);
}

void Wrap(std::string& text, const FadeSettings& settings) {
  std::string before, after;
  const auto add = [&](bool on, const char* opening, const char* closing) {
    if (!on) return;
    before.insert(0, opening);
    after += closing;
  };
  add(settings.Bold, "<B>", "</B>");
  add(settings.Italic, "<I>", "</I>");
  add(settings.ULine, "<U>", "</U>");
  text.insert(0, before);
  text += after;
}

}  // namespace

std::string RGBToHEX(std::int32_t value) {
  std::string digits;
  for (auto rest = static_cast<std::uint32_t>(value); rest != 0 || digits.size() < 6; rest >>= 4)
    digits += "0123456789ABCDEF"[rest & 15];
  return {digits.rbegin(), digits.rend()};
}

Fader::Fader(const FadeSettings& settings, Yield yield)
    : settings_(settings), yield_(std::move(yield)) {}

const std::string& Fader::FadeEngine(std::string& text) {
  const std::array colors = {settings_.One,  settings_.Two,  settings_.Three,
                             settings_.Four, settings_.Five, settings_.Six};
  const bool solid = settings_.SolidFade == true;
  const bool known = solid || settings_.SolidFade == false;
  const int number = settings_.FadeNumber;
  if (known && number >= 1 && number <= static_cast<int>(kMostColors)) {
    const auto used = std::span(colors).first(static_cast<std::size_t>(number));
    const std::string plain = text;  // the room that the caller's text has is used again
    if (solid || number == 1)
      Solid(text, used, plain, settings_.Wavy);
    else
      Gradient(text, used, plain, settings_.Wavy);
  }
  if (!text.empty()) Wrap(text, settings_);
  return text;
}

// The text is dealt out to the segments in rounds of a character each. How many each one gets is
// known without them; what the rounds are needed for is that the program stays awake.
void Fader::YieldForEachRound(std::size_t length, std::size_t segments) const {
  if (!yield_) return;
  const std::size_t rounds = std::max<std::size_t>(1, (length + segments - 1) / segments);
  for (std::size_t round = 0; round < rounds; ++round) yield_();
}

void Fader::Gradient(std::string& out, std::span<const ColorValue> colors, std::string_view text,
                     const bool& wavy) {
  std::array<Channels, kMostColors> stops;
  std::transform(colors.begin(), colors.end(), stops.begin(), ChannelsOf);
  wavyStep_ = kGradientWaveStart;
  const std::size_t segments = colors.size() - 1;
  if (segments > 2) YieldForEachRound(text.size(), segments);

  out.clear();
  ReserveFor(out, text.size(), wavy);
  const SegmentLengths lengths = Split(text.size(), segments);
  for (std::size_t s = 0; s < segments; ++s) {
    AppendSegment(out, text.substr(0, lengths[s]), stops[s], stops[s + 1], wavy, wavyStep_);
    text.remove_prefix(lengths[s]);
  }
}

void Fader::Solid(std::string& out, std::span<const ColorValue> colors, std::string_view text,
                  bool wavy) {
  out.clear();
  ReserveFor(out, text.size(), wavy);
  if (colors.size() == 1) {
    AppendColorTag(out, TagEndOfColor(colors[0]));
    AppendOneColor(out, text, wavy, wavyStep_);
  } else {
    AppendBlocks(out, text, wavy, wavyStep_, CycleColors(colors));
  }
}

std::string Fader::MakeFade(std::string_view text, std::uint8_t blueFrom, std::uint8_t blueTo,
                            std::uint8_t greenFrom, std::uint8_t greenTo, std::uint8_t redFrom,
                            std::uint8_t redTo, bool wavy) {
  std::string out;
  ReserveFor(out, text.size(), wavy);
  AppendSegment(out, text, {redFrom, greenFrom, blueFrom}, {redTo, greenTo, blueTo}, wavy,
                wavyStep_);
  return out;
}

std::string Fader::FadeByColor2(ColorValue one, ColorValue two, std::string_view text,
                                const bool& wavy) {
  std::string out;
  Gradient(out, std::array{one, two}, text, wavy);
  return out;
}

std::string Fader::FadeByColor3(ColorValue one, ColorValue two, ColorValue three,
                                std::string_view text, const bool& wavy) {
  std::string out;
  Gradient(out, std::array{one, two, three}, text, wavy);
  return out;
}

std::string Fader::FadeByColor4(ColorValue one, ColorValue two, ColorValue three, ColorValue four,
                                std::string_view text, const bool& wavy) {
  std::string out;
  Gradient(out, std::array{one, two, three, four}, text, wavy);
  return out;
}

std::string Fader::FadeByColor5(ColorValue one, ColorValue two, ColorValue three, ColorValue four,
                                ColorValue five, std::string_view text, const bool& wavy) {
  std::string out;
  Gradient(out, std::array{one, two, three, four, five}, text, wavy);
  return out;
}

std::string Fader::FadeByColor6(ColorValue one, ColorValue two, ColorValue three, ColorValue four,
                                ColorValue five, ColorValue six, std::string_view text,
                                const bool& wavy) {
  std::string out;
  Gradient(out, std::array{one, two, three, four, five, six}, text, wavy);
  return out;
}

std::string Fader::MakeOneSolidFade(std::string_view text, ColorValue one, bool wavy) {
  std::string out;
  Solid(out, std::array{one}, text, wavy);
  return out;
}

std::string Fader::MakeTwoSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                    bool wavy) {
  std::string out;
  Solid(out, std::array{one, two}, text, wavy);
  return out;
}

std::string Fader::MakeThreeSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                      ColorValue three, bool wavy) {
  std::string out;
  Solid(out, std::array{one, two, three}, text, wavy);
  return out;
}

std::string Fader::MakeFourSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                     ColorValue three, ColorValue four, bool wavy) {
  std::string out;
  Solid(out, std::array{one, two, three, four}, text, wavy);
  return out;
}

std::string Fader::MakeFiveSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                     ColorValue three, ColorValue four, ColorValue five,
                                     bool wavy) {
  std::string out;
  Solid(out, std::array{one, two, three, four, five}, text, wavy);
  return out;
}

std::string Fader::MakeSixSolidFade(std::string_view text, ColorValue one, ColorValue two,
                                    ColorValue three, ColorValue four, ColorValue five,
                                    ColorValue six, bool wavy) {
  std::string out;
  Solid(out, std::array{one, two, three, four, five, six}, text, wavy);
  return out;
}

}  // namespace corvel
