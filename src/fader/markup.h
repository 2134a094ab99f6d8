// The mark-up of faded characters: colour tags and the wave. Made for speed, since a mail text of
// 30,000 characters becomes more than half a million: the parts of a tag are stored as whole words.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace corvel {

// The end of a colour tag as it lies in memory: "RRGGBB>" and a zero byte.
using TagEnd = std::uint64_t;

// The digits of one channel at their place of a TagEnd, and perhaps the character behind them.
class ChannelDigits {
 public:
  explicit constexpr ChannelDigits(std::size_t place, char behind = 0) {
    for (std::size_t value = 0; value < digits_.size(); ++value) {
      std::array<char, sizeof(TagEnd)> word{};
      word[place] = "0123456789ABCDEF"[value >> 4];
      word[place + 1] = "0123456789ABCDEF"[value & 15];
      word[place + 2] = behind;
      digits_[value] = std::bit_cast<TagEnd>(word);
    }
    std::array<char, sizeof(TagEnd)> word{};
    word[place] = word[place + 1] = '\xFF';
    mask_ = std::bit_cast<TagEnd>(word);
  }

  constexpr TagEnd operator[](std::uint8_t value) const { return digits_[value]; }
  void Replace(TagEnd& end, std::uint8_t value) const { end = (end & ~mask_) | digits_[value]; }

 private:
  std::array<TagEnd, 256> digits_{};
  TagEnd mask_ = 0;
};

inline constexpr ChannelDigits kRed(0), kGreen(2), kBlue(4, '>');

constexpr TagEnd TagEndOf(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return kRed[red] | kGreen[green] | kBlue[blue];
}

// The most bytes that a colour tag or a wave tag has.
inline constexpr std::size_t kColorTagSize = 20;
inline constexpr std::size_t kWaveTagSize = 6;

// The wave's step after `characters` more that are not blanks.
std::int16_t AdvancedWave(std::int16_t step, std::size_t characters);

// The appending functions write near-white for white, which the client takes for no colour.
void AppendColorTag(std::string& out, TagEnd end);

// A text in hand at once; what is longer goes block by block.
inline constexpr std::size_t kMarkupBlock = 128;

// Each appends a text of at most kMarkupBlock characters, where a blank stays bare: with a colour
// tag for each character from the same place of `ends`, with a colour tag and a wave tag, or with a
// wave tag alone. `step` is the wave's, 0 to 5, and moves on in all three.
void AppendColored(std::string& out, std::string_view text, const TagEnd* ends, std::int16_t& step);
void AppendColoredWave(std::string& out, std::string_view text, const TagEnd* ends,
                       std::int16_t& step);
void AppendWave(std::string& out, std::string_view text, std::int16_t& step);

}  // namespace corvel
