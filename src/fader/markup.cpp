#include "fader/markup.h"

#include <array>
#include <bit>
#include <cstring>

namespace corvel {
namespace {

using Word = std::array<char, 8>;

constexpr std::size_t kTagStartSize = 13;
constexpr char kTagStart[] = "<FONT COLOR=#\0\0";  // a whole 16 bytes, to be copied in one go
static_assert(sizeof kTagStart == 16);

// A character as the last byte of a TagEnd.
constexpr auto kCharacter = [] {
  std::array<TagEnd, 256> table{};
  for (std::size_t value = 0; value < table.size(); ++value)
    table[value] = std::bit_cast<TagEnd>(Word{0, 0, 0, 0, 0, 0, 0, static_cast<char>(value)});
  return table;
}();

constexpr TagEnd kWhite = TagEndOf(0xFF, 0xFF, 0xFF);
constexpr TagEnd kNearWhite = TagEndOf(0xFB, 0xFB, 0xFB);

TagEnd Visible(TagEnd end) { return end == kWhite ? kNearWhite : end; }

// What the wave does at a step: for a character, and for a blank, which it passes by.
struct WaveStage {
  Word tag;
  std::uint8_t size;
  std::int8_t next;
};

constexpr WaveStage kWave[][2] = {
    {{{}, 0, 1}, {{}, 0, 0}},  // only before the first wave of a run
    {{{'<', 's', 'u', 'p', '>'}, 5, 2}, {{}, 0, 1}},
    {{{'<', '/', 's', 'u', 'p', '>'}, 6, 3}, {{}, 0, 2}},
    {{{'<', 's', 'u', 'b', '>'}, 5, 4}, {{}, 0, 3}},
    {{{'<', '/', 's', 'u', 'b', '>'}, 6, 5}, {{}, 0, 4}},
    {{{'<', 's', 'u', 'p', '>'}, 5, 2}, {{}, 0, 5}},  // the same as step 1
};

// Room for a block, and for the words that are stored beyond its end.
constexpr std::size_t kBufferSize =
    kMarkupBlock * (kColorTagSize + kWaveTagSize + 1) + 2 * sizeof(TagEnd);

// The loops below take no branch for a blank, which no processor could foresee: its mark-up is
// stored like any other's, begins with the blank, and is overwritten by what follows, since the
// place moves on by one byte only. The tables are indexed by "is a blank".
constexpr char kFirst[] = {'<', ' '};
constexpr std::size_t kColoredSize[] = {kColorTagSize + 1, 1};
static_assert(kTagStart[0] == kFirst[false]);

void PutColorTag(char* to, std::size_t blank, TagEnd end) {
  std::memcpy(to, kTagStart, sizeof kTagStart);
  std::memcpy(to + kTagStartSize, &end, sizeof end);
  to[0] = kFirst[blank];
}

}  // namespace

std::int16_t AdvancedWave(std::int16_t step, std::size_t characters) {
  constexpr std::size_t kCycle = 4;  // the steps 2 to 5; at 5 the wave goes on as from 1
  if (characters == 0) return step;
  const std::size_t sum = (step == 5 ? 1 : static_cast<std::size_t>(step)) + characters;
  return static_cast<std::int16_t>(sum <= 5 ? sum : (sum - 2) % kCycle + 2);
}

void AppendColorTag(std::string& out, TagEnd end) {
  char buffer[kTagStartSize + sizeof end];
  PutColorTag(buffer, false, Visible(end));
  out.append(buffer, kColorTagSize);
}

void AppendColored(std::string& out, std::string_view text, const TagEnd* ends,
                   std::int16_t& step) {
  char buffer[kBufferSize];
  char* to = buffer;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const std::size_t blank = c == ' ';
    PutColorTag(to, blank, Visible(ends[i]) | kCharacter[static_cast<unsigned char>(c)]);
    to += kColoredSize[blank];
  }
  const auto size = static_cast<std::size_t>(to - buffer);
  out.append(buffer, size);
  step = AdvancedWave(step, (size - text.size()) / kColorTagSize);
}

void AppendColoredWave(std::string& out, std::string_view text, const TagEnd* ends,
                       std::int16_t& step) {
  char buffer[kBufferSize];
  char* to = buffer;
  int stepNow = step;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const std::size_t blank = c == ' ';
    const WaveStage& stage = kWave[stepNow][blank];
    PutColorTag(to, blank, Visible(ends[i]));
    std::memcpy(to + kColorTagSize, stage.tag.data(), stage.tag.size());
    to[kColorTagSize + stage.size] = c;
    to += kColoredSize[blank] + stage.size;
    stepNow = stage.next;
  }
  out.append(buffer, to);
  step = static_cast<std::int16_t>(stepNow);
}

void AppendWave(std::string& out, std::string_view text, std::int16_t& step) {
  char buffer[kBufferSize];
  char* to = buffer;
  for (const char c : text) {
    const WaveStage& stage = kWave[step][c == ' '];
    std::memcpy(to, stage.tag.data(), stage.tag.size());
    to[stage.size] = c;
    to += stage.size + 1;
    step = stage.next;
  }
  out.append(buffer, to);
}

}  // namespace corvel
