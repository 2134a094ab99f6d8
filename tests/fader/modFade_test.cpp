// The fade engine: its worked texts, and the plain engine's bytes for any text.
#include "fader/modFade.h"

#include "tests/fader/reference_fade.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace corvel {
namespace {

constexpr ColorValue kRed255 = 255, kGreen255 = 65280, kBlue255 = 16711680, kWhite = 16777215;

std::string Tag(const std::string& digits) { return "<FONT COLOR=#" + digits + ">"; }

FadeSettings Colors(std::vector<ColorValue> colors, bool solid = false) {
  FadeSettings s;
  s.FadeNumber = static_cast<std::int16_t>(colors.size());
  colors.resize(6);
  s.One = colors[0], s.Two = colors[1], s.Three = colors[2];
  s.Four = colors[3], s.Five = colors[4], s.Six = colors[5];
  s.SolidFade = solid;
  return s;
}

std::string Faded(const FadeSettings& settings, std::string text) {
  Fader fader(settings);
  const std::string& result = fader.FadeEngine(text);
  EXPECT_EQ(result, text) << "the text is faded in place";
  return result;
}

// The wave tag of each character that isn't a blank, "-" for none, by their colour tags.
std::string WaveOf(const std::string& faded) {
  std::string wave;
  for (std::size_t at = faded.find('#'); at != std::string::npos; at = faded.find('#', at + 1)) {
    const std::string_view behind = std::string_view(faded).substr(at + 8);
    wave += behind.substr(0, 5) == "<sup>"    ? "^"
            : behind.substr(0, 6) == "</sup>" ? "v"
            : behind.substr(0, 5) == "<sub>"  ? "_"
            : behind.substr(0, 6) == "</sub>" ? "="
                                              : "-";
  }
  return wave;
}

std::string DigitsOf(const std::string& faded) {
  std::string digits;
  for (std::size_t at = faded.find('#'); at != std::string::npos; at = faded.find('#', at + 1))
    digits += faded.substr(at + 1, 6) + " ";
  return digits;
}

TEST(FadeEngine, FadesTwoColoursWithStyles) {
  FadeSettings settings = Colors({kRed255, kBlue255});
  settings.Bold = true;
  const std::string fade = Tag("D4002A") + "H" + Tag("AA0055") + "i " + Tag("5500AA") + "a" +
                           Tag("2A00D4") + "l" + Tag("0000FF") + "l";
  EXPECT_EQ(Faded(settings, "Hi all"), "<B>" + fade + "</B>");
  settings.Italic = settings.ULine = true;
  EXPECT_EQ(Faded(settings, "Hi all"), "<U><I><B>" + fade + "</B></I></U>");
}

TEST(FadeEngine, WavesTwoColours) {
  FadeSettings settings = Colors({kRed255, kBlue255});
  settings.Wavy = true;
  EXPECT_EQ(Faded(settings, "Hi all"), Tag("D4002A") + "</sup>H" + Tag("AA0055") + "<sub>i " +
                                           Tag("5500AA") + "</sub>a" + Tag("2A00D4") + "<sup>l" +
                                           Tag("0000FF") + "</sup>l");
}

TEST(FadeEngine, LeavesTheTextPlainWithoutABranch) {
  for (const int number : {-32768, -1, 0, 7, 32767})
    for (const bool solid : {false, true}) {
      FadeSettings settings = Colors({kRed255, kBlue255}, solid);
      settings.FadeNumber = static_cast<std::int16_t>(number);
      settings.Bold = true;
      EXPECT_EQ(Faded(settings, "Hi"), "<B>Hi</B>") << number;
      EXPECT_EQ(Faded(settings, ""), "") << number;
    }
  for (const int bits : {1, 2, -2, 255}) {
    FadeSettings settings = Colors({kRed255, kBlue255});
    settings.SolidFade = WideBoolean::FromBits(static_cast<std::int16_t>(bits));
    EXPECT_EQ(Faded(settings, "Hi"), "Hi") << bits;
  }
}

TEST(FadeEngine, KeepsEmptyAndBlankTexts) {
  FadeSettings settings = Colors({kRed255, kBlue255, kGreen255, 0});
  settings.Bold = true;
  EXPECT_EQ(Faded(settings, ""), "");
  EXPECT_EQ(Faded(settings, "   "), "<B>   </B>");
  FadeSettings one = Colors({0});
  one.Bold = true;
  EXPECT_EQ(Faded(one, ""), "<B>" + Tag("000000") + "</B>");
  EXPECT_EQ(Faded(one, " "), "<B>" + Tag("000000") + " </B>");
}

TEST(FadeEngine, GivesOneColourTheSameSolidOrNot) {
  EXPECT_EQ(Faded(Colors({kRed255}), "a b"), Tag("FF0000") + "a b");
  EXPECT_EQ(Faded(Colors({kRed255}, true), "a b"), Tag("FF0000") + "a b");
}

TEST(FadeEngine, NeverSaysWhite) {
  EXPECT_EQ(Faded(Colors({kWhite}), "ab"), Tag("FBFBFB") + "ab");
  EXPECT_EQ(DigitsOf(Faded(Colors({kWhite, kWhite}), "abc")), "FBFBFB FBFBFB FBFBFB ");
  EXPECT_EQ(DigitsOf(Faded(Colors({0, kWhite}), "abc")), "555555 AAAAAA FBFBFB ");
  EXPECT_EQ(DigitsOf(Faded(Colors({kWhite, 0}, true), "abc")), "FBFBFB 000000 FBFBFB ");
  EXPECT_EQ(DigitsOf(Faded(Colors({0xFEFFFF}), "a")), "FFFFFE ") << "almost white stays";
}

TEST(FadeEngine, TakesTabsAndTheLikeForText) {
  EXPECT_EQ(Faded(Colors({0, 0}, true), "\t \xA0<"),
            Tag("000000") + "\t " + Tag("000000") + "\xA0" + Tag("000000") + "<");
}

// Which character each colour falls on tells how a text was split.
TEST(Gradients, SplitTheText) {
  const std::vector<ColorValue> all = {1, 2, 3, 4, 5, 6};  // red alone, so digits show the segment
  const struct {
    std::size_t colors;
    const char* text;
    const char* digits;
  } kCases[] = {
      {2, "a", "020000 "},
      {3, "a", "030000 "},
      {4, "a", "020000 "},
      {6, "a", "020000 "},
      {6, "ab", "020000 030000 "},
      {3, "ab", "020000 030000 "},
      {4, "abc", "020000 030000 040000 "},
      {6, "abcde", "020000 030000 040000 050000 060000 "},
  };
  for (const auto& c : kCases) {
    const std::vector<ColorValue> colors(all.begin(), all.begin() + static_cast<long>(c.colors));
    EXPECT_EQ(DigitsOf(Faded(Colors(colors), c.text)), c.digits) << c.colors << " " << c.text;
  }
}

// From full to nothing in each odd segment and back in each even one: an end of a segment is where
// the digits are 00 or FF.
TEST(Gradients, DealTheTextOutToTheSegments) {
  const struct {
    std::size_t colors;
    std::size_t length;
    std::vector<std::size_t> ends;
  } kCases[] = {{3, 5, {2, 5}},    {3, 7, {4, 7}},           {3, 6, {3, 6}},
                {4, 7, {3, 5, 7}}, {5, 10, {3, 6, 8, 10}},   {6, 13, {3, 6, 9, 11, 13}},
                {4, 4, {2, 3, 4}}, {6, 10, {2, 4, 6, 8, 10}}};
  for (const auto& c : kCases) {
    std::vector<ColorValue> colors;
    for (std::size_t i = 0; i < c.colors; ++i) colors.push_back(i % 2 ? 0 : 255);
    const std::string digits = DigitsOf(Faded(Colors(colors), std::string(c.length, 'x')));
    std::vector<std::size_t> ends;
    for (std::size_t i = 0; i < c.length; ++i)
      if (const auto pair = digits.substr(i * 7, 2); pair == "00" || pair == "FF")
        ends.push_back(i + 1);
    EXPECT_EQ(ends, c.ends) << c.colors << " colours, " << c.length;
  }
}

TEST(Gradients, PassThroughThreeColours) {
  FadeSettings unused;
  EXPECT_EQ(Fader(unused).FadeByColor3(kRed255, kGreen255, kBlue255, "Hello", false),
            Tag("808000") + "H" + Tag("00FF00") + "e" + Tag("00AA55") + "l" + Tag("0055AA") + "l" +
                Tag("0000FF") + "o");
}

TEST(Colours, AreTakenApartByTheDigitsOfTheirText) {
  const struct {
    std::int32_t value;
    const char* hex;
    const char* shown;
  } kCases[] = {{0, "000000", "000000"},
                {255, "0000FF", "FF0000"},
                {0x123456, "123456", "563412"},
                {0x1234567, "1234567", "673412"},
                {0x12345678, "12345678", "783412"},
                {-1, "FFFFFFFF", "FBFBFB"},
                {-2147483633, "8000000F", "0F0080"},
                {-2147483648, "80000000", "000080"}};
  for (const auto& c : kCases) {
    EXPECT_EQ(RGBToHEX(c.value), c.hex);
    EXPECT_EQ(Faded(Colors({c.value}), "x"), Tag(c.shown) + "x") << c.hex;
    EXPECT_EQ(Faded(Colors({0, c.value}), "x"), Tag(c.shown) + "x") << c.hex;
  }
}

TEST(Solids, CycleOverCharactersAndPassBlanksBy) {
  EXPECT_EQ(DigitsOf(Faded(Colors({1, 2, 3}, true), "ab c d")), "010000 020000 030000 010000 ");
  EXPECT_EQ(Faded(Colors({1, 2}, true), " a "), std::string(" ") + Tag("010000") + "a ");
}

// A run of the program, text after text with one fader.
TEST(Wave, RunsOnFromTextToText) {
  FadeSettings settings = Colors({1, 2}, true);
  settings.Wavy = true;
  Fader fader(settings);
  const auto wave = [&](std::string text) { return WaveOf(fader.FadeEngine(text)); };
  EXPECT_EQ(wave("abc d"), "-^v_") << "a run's first wave begins with none";
  EXPECT_EQ(wave("  "), "");
  EXPECT_EQ(wave("ab"), "=^");
  settings.Wavy = false;
  EXPECT_EQ(wave("abc"), "---") << "it moves on unseen";
  settings.Wavy = true;
  EXPECT_EQ(wave("a"), "^");
  settings.SolidFade = false;
  EXPECT_EQ(wave("ab"), "v_") << "a gradient starts it anew";
  EXPECT_EQ(wave("a"), "v");
  settings.FadeNumber = 5;
  EXPECT_EQ(wave("abc defgh"), "v_=^v_=^") << "across the segments too";
  settings.FadeNumber = 1;
  std::string one = "a b";
  EXPECT_EQ(fader.FadeEngine(one), Tag("010000") + "</sup>a <sub>b");
}

TEST(Wave, IsRestartedByAFadeInsideAYield) {
  FadeSettings settings = Colors({1, 2, 3, 4});
  settings.Wavy = true;
  Fader* running = nullptr;
  int yields = 0;
  Fader fader(settings, [&] {
    if (++yields == 2) running->FadeByColor2(0, 0, "x", true);
  });
  running = &fader;
  std::string text = "abcdefg";
  EXPECT_EQ(WaveOf(fader.FadeEngine(text)), "_=^v_=^");
  EXPECT_EQ(yields, 3) << "a yield for each round of the dealing";
}

TEST(Yields, ComeOncePerRoundAndLetTheSettingsChange) {
  FadeSettings settings;
  int yields = 0;
  Fader fader(settings, [&] {
    ++yields;
    settings.Bold = settings.Wavy = true;
    settings.One = 77;
  });
  const auto yieldsOf = [&](std::int16_t number, std::string text) {
    settings = Colors(std::vector<ColorValue>(static_cast<std::size_t>(number), 0));
    yields = 0;
    fader.FadeEngine(text);
    return std::make_pair(yields, text);
  };
  EXPECT_EQ(yieldsOf(3, "abcdef").first, 0);
  EXPECT_EQ(yieldsOf(4, "").first, 1);
  EXPECT_EQ(yieldsOf(5, "abcd").first, 1);
  EXPECT_EQ(yieldsOf(5, "abcde").first, 2);
  EXPECT_EQ(yieldsOf(4, "a"), std::make_pair(1, "<B>" + Tag("000000") + "</sup>a</B>"))
      << "the colours are taken before the yield, wave and styles after it";
}

TEST(FadeEngine, AgreesWithThePlainOne) {
  const unsigned seed = std::random_device{}();
  std::mt19937 random(seed);
  FadeSettings settings;
  Fader fader(settings);
  ReferenceFader reference;
  for (int round = 0; round < 3000; ++round) {
    std::vector<ColorValue> colors(1 + random() % 6);
    for (ColorValue& color : colors)
      color = static_cast<ColorValue>(random() % 3 ? random() % 0x1000000 : random());
    settings = Colors(colors, random() % 2);
    settings.Wavy = random() % 2;
    settings.Bold = random() % 2;
    std::string text(random() % (round % 100 ? 130 : 3000), ' ');
    for (char& c : text) c = random() % 4 ? static_cast<char>(random()) : ' ';
    const std::string expected = reference.Engine(text, settings);
    ASSERT_EQ(fader.FadeEngine(text), expected) << "seed " << seed << ", round " << round;
  }
}

}  // namespace
}  // namespace corvel
