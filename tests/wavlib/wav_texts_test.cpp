// The wav library's texts, without a window: sound codes, styles, list files, the PATH line.
#include "base/cp1252.h"
#include "platform/desk/profile_text.h"
#include "wavlib/fav_wavs.h"
#include "wavlib/garland_styles.h"
#include "wavlib/path_check.h"
#include "wavlib/sound_code.h"
#include "wavlib/wav_descriptions.h"
#include "wavlib/wav_printing.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace corvel {
namespace {

using Texts = std::vector<std::string>;

// A golden file that stands beside the page that tells its format.
std::string GoldenFile(const std::string& name) {
  std::ifstream in(CORVEL_SOURCE_DIR "/docs/formats/" + name, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

TEST(SoundCode, IsReadFromALine) {
  const struct {
    const char *line, *name;
  } kCases[] = {
      {"{S boing}", "boing"},
      {"hello {s boing} there", "boing"},
      {"{S two words}", "two words"},
      {"{S boing", ""},  // the plain form has no brace: it isn't for reading
      {"{S one {S two}", "one {S two"},
      {"{S one} {S two}", "one"},
      {"{Sboing}", ""},
      {"{ S a} {{S b}", "b"},
      {"} {S }", ""},
      {"{S a\tb}", "a\tb"},
      {"", ""},
      {"{S", ""},
  };
  for (const auto& c : kCases) EXPECT_EQ(ParseWavName(c.line), c.name) << c.line;
}

TEST(GarlandStyles, OnlyTheFirstPlaceholderCounts) {
  const struct {
    const char *style, *left, *right;
  } kCases[] = {
      {"<{%}>", "<", ">"}, {"{%}", "", ""}, {"a{%}b{%}c", "a", "b{%}c"}, {"a{%}", "a", ""}};
  for (const auto& c : kCases) {
    ASSERT_TRUE(IsValidStyle(c.style));
    const StyleParts parts = SplitStyle(c.style);
    EXPECT_EQ(parts.left, c.left) << c.style;
    EXPECT_EQ(parts.right, c.right) << c.style;
  }
  EXPECT_FALSE(IsValidStyle("{ %}"));
  EXPECT_FALSE(IsValidStyle(""));
}

TEST(GarlandStyles, TheLineOfAnInvalidStyleIsCutFromTheFallback) {
  const StyleParts parts = PartsAfterInvalidStyle(kBuiltInGarlands[0]);
  EXPECT_EQ(parts.left, "");
  EXPECT_EQ(parts.right, "– —•¤•{%}•¤•— – -"_cp);
}

TEST(GarlandStyles, LibraryFileSkipsWhatIsNoStyle) {
  EXPECT_EQ(ParseStyleFile("<{%}>\t\r\nno tab\r\n\t({%})\r\nwith number\t7\r\nlast\t"),
            (Texts{"<{%}>", "({%})", "with number", "last"}));
}

TEST(FavWavs, ReaderForgivesOlderForms) {
  const std::string deja("d\xE9j\xE0 vu");
  EXPECT_EQ(ParseFavWavs(GoldenFile("favwavs.dat")),
            (std::vector<FavWav>{{"boing", "c:\\wavs\\boing.wav"},
                                 {deja, "c:\\my wavs\\" + deja + ".wav"},
                                 {"c:\\old\\gone", "c:\\old\\gone.wav"},
                                 {"ding", "c:\\windows\\ding.wav"},
                                 {"last", "c:\\last.wav"}}));
  EXPECT_EQ(ParseFavWavs("two\ttabs\there\n\t\n\ta\tb"),
            (std::vector<FavWav>{{"two", "tabs\there"}, {"", ""}, {"a b", "a\tb"}}));
}

TEST(FavWavs, SearchIsStricterThanTheReader) {
  const std::string file = "boing\tc:\\one\r\nding\tc:\\ding\r\nboing\tc:\\two\r\n";
  const struct {
    std::string bytes, wav, path;
  } kCases[] = {
      {file, "boing.wav", "c:\\two"},  // the last of several
      {file, "ding.wav", "c:\\ding"},
      {file, "Boing.wav", ""},  // case counts
      {file, "boing", ""},      // its last four letters are taken for the extension
      {file, "wav", ""},
      {file, "   ", ""},
      {file, "boing .wav", "c:\\two"},
      {file + "a line without a tab\r\n", "boing.wav", ""},  // whatever was found before
      {"\tc:\\old.wav\r\n", "c:\\old.wav", ""},
      {"", "boing.wav", ""},
  };
  for (const auto& c : kCases) EXPECT_EQ(FindFavWav(c.bytes, c.wav), c.path) << c.wav;
}

TEST(FavWavs, EachThatIsLookedForTakesOneRow) {
  const FavWav a{"a", "1"}, otherA{"a", "2"}, b{"b", "1"};
  const std::vector<FavWav> all = {a, otherA, b, a, a};
  EXPECT_EQ(RowsOf({a, a, {"c", "1"}}, all), (std::vector<int>{0, 3}));
  EXPECT_EQ(RowsOf({b, otherA}, all), (std::vector<int>{1, 2}));
  EXPECT_EQ(RowsOf({}, all), std::vector<int>{});
}

TEST(PathCheck, LooksBehindTheFirstSetPath) {
  const struct {
    const char* autoexec;
    bool found;
  } kCases[] = {
      {"@ECHO OFF\r\nSET PATH=C:\\DOS;C:\\WAVS\r\n", true},
      {"set path=c:\\dos\r\nSET PATH=%PATH%;c:\\wavs\r\n", true},  // a later line is behind it too
      {"PATH C:\\WAVS\r\n", false},
      {"REM C:\\WAVS\r\nSET PATH=C:\\DOS\r\n", false},
      {"", false},
  };
  for (const auto& c : kCases) EXPECT_EQ(IsOnPath(c.autoexec, "C:\\WAVS"), c.found) << c.autoexec;
}

TEST(Printing, FiveNamesALineInZones) {
  const Texts names = {"a", "b", "c", "d", "e", "a name of more than a zone", "x"};
  EXPECT_EQ(PrintedLines(names, false),
            (Texts{"a             b             c             d             e",
                   "a name of more than a zone  x"}));
  EXPECT_EQ(PrintedLines(names, true), names);
  EXPECT_EQ(PrintedLines({}, false), Texts{});
}

std::vector<Description> RecordsOf(const std::vector<std::string>& files) {
  DescriptionIndex index;
  for (const std::string& bytes : files) index.Add(bytes);
  return index.Records();
}

TEST(Descriptions, AFileHoldsRecords) {
  EXPECT_EQ(RecordsOf({GoldenFile("desc1.dat")}),
            (std::vector<Description>{{"boing", "A spring lets go"},
                                      {"Bell Tower", "two strokes, far away"},
                                      {"d\xE9j\xE0 vu", "said = seen"},
                                      {"empty", ""}}));
}

// What lists tell is what the profile routines answer for the same names. Two of them are asked
// here: the desk's reader, and the index.
TEST(Descriptions, IndexAgreesWithTheProfileRoutines) {
  const std::string file =
      "stray=outside\r\n[Other]\r\nother=outside\r\n[ data ]\r\n; a=remark\r\n"
      "a=first\r\nA=second\r\nnone=\r\nnone=second\r\nx=y=z\r\n x = y = w\r\n"
      "quoted = \"in quotes\" \r\nno sign\r\nlast='x\r\n[Data]\r\nagain=outside\r\n";
  DescriptionIndex index;
  index.Add(file);
  for (const char* name : {"stray", "other", "a", "; a", "none", "x", "x=y", "x = y", "quoted",
                           "no sign", "last", "again", "missing"})
    EXPECT_EQ(index.Find(name), desk::ProfileValue(file, "Data", name).value_or("")) << name;
  EXPECT_EQ(
      RecordsOf({file}),
      (std::vector<Description>{
          {"a", "first"}, {"none", ""}, {"x", "y=z"}, {"quoted", "in quotes"}, {"last", "'x"}}));
}

TEST(Descriptions, OfSeveralFilesTheFirstThatSaysSomethingCounts) {
  EXPECT_EQ(RecordsOf({"[Data]\na=\nb=one\n", "[Data]\nc=three\nB=hidden\na=two\n"}),
            (std::vector<Description>{{"a", "two"}, {"b", "one"}, {"c", "three"}}));
}

TEST(Descriptions, SomeNamesCanNotStandInAProfileFile) {
  for (const char* name : {"boing", "a [b]", "\xE9t\xE9", "a;b", "{x}"})
    EXPECT_TRUE(CanBeDescribed(name)) << name;
  for (const char* name : {"[a]", " [a", ";a", "", "  "})
    EXPECT_FALSE(CanBeDescribed(name)) << name;
}

}  // namespace
}  // namespace corvel
