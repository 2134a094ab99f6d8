// The drive as the program relies on it.
#include "base/error.h"
#include "base/text.h"
#include "tests/platform/home.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

namespace corvel::test {
namespace {

class FilesTest : public testing::Test {
 protected:
  std::string At(std::string_view name) { return kFolder + "\\" + std::string(name); }
  // In order of names, for each drive has an order of its own.
  std::vector<std::string> Names(std::string_view pattern) {
    std::vector<std::string> names;
    for (const FoundFile& found : files.Search(At(pattern))) names.push_back(found.name);
    std::sort(names.begin(), names.end());
    return names;
  }
  // The number of the run-time error, or 0.
  static int ErrorOf(const std::function<void()>& call) {
    try {
      call();
      return 0;
    } catch (const RunTimeError& error) {
      return error.Number();
    }
  }

  std::unique_ptr<Home> home = MakeHome();
  const std::string kFolder = home->Folder();
  Files& files = home->platform().files;
};

using NameList = std::vector<std::string>;

TEST_F(FilesTest, BytesComeBackAsTheyWereWritten) {
  const std::string bytes("\0\r\n\x1A\xFF text", 10);
  files.Write(At("Desc1.dat"), bytes);
  EXPECT_EQ(files.Read(At("dESC1.DAT")), bytes);
  files.Append(At("desc1.dat"), "more");
  EXPECT_EQ(files.Read(At("Desc1.dat")), bytes + "more");
  files.Append(At("new.txt"), "");
  EXPECT_EQ(files.Read(At("new.txt")), "");
  EXPECT_EQ(Names("*"), (NameList{"Desc1.dat", "new.txt"}));
}

TEST_F(FilesTest, PatternsMatchAsDosReadsThem) {
  for (const char* name : {"zoo.wav", "Alpha.WAV", "noext", "a.b.txt", "wave"})
    files.Write(At(name), "");
  files.MakeFolder(At("sub.wav"));
  const std::pair<const char*, NameList> kTable[] = {
      {"*.wav", {"Alpha.WAV", "sub.wav", "zoo.wav"}},
      {"*.*", {"Alpha.WAV", "a.b.txt", "noext", "sub.wav", "wave", "zoo.wav"}},
      {"*", {"Alpha.WAV", "a.b.txt", "noext", "sub.wav", "wave", "zoo.wav"}},
      {"?oo.wav", {"zoo.wav"}},
      {"*.txt", {"a.b.txt"}},
      {"A*.*", {"Alpha.WAV", "a.b.txt"}},
      {"ZOO.wav", {"zoo.wav"}},
      {"none*", {}},
      {"", {}},
      {"missing\\*.*", {}},
  };
  for (const auto& [pattern, names] : kTable) {
    EXPECT_EQ(Names(pattern), names) << pattern;
    EXPECT_EQ(files.Exists(At(pattern)), !names.empty()) << pattern;
  }
}

TEST_F(FilesTest, APatternWithADotAtItsEndMatchesNamesWithout) {
  for (const char* name : {"noext", "a.txt", "wave"}) files.Write(At(name), "");
  EXPECT_EQ(Names("*."), (NameList{"noext", "wave"}));
}

TEST_F(FilesTest, FoldersAreKnownWithAndWithoutASlash) {
  EXPECT_TRUE(files.IsFolder(kFolder));
  EXPECT_TRUE(files.IsFolder(kFolder + "\\"));
  EXPECT_TRUE(files.IsFolder("c:\\"));
  EXPECT_TRUE(files.IsFolder(home->platform().system.SystemFolder()));
  EXPECT_FALSE(files.IsFolder(""));
  EXPECT_FALSE(files.IsFolder(At("missing")));
  EXPECT_TRUE(files.Exists(kFolder));
}

TEST_F(FilesTest, EachFailureHasItsNumberAndChangesNothing) {
  files.Write(At("file.txt"), "old");
  files.Write(At("other.txt"), "other");
  files.Write(At("fixed.txt"), "fixed");
  files.SetAttributes(At("fixed.txt"), file_attribute::kReadOnly);
  files.MakeFolder(At("sub"));
  const std::string file = At("file.txt"), missing = At("missing.txt"), fixed = At("fixed.txt"),
                    sub = At("sub"), lost = At("no such\\file.txt");
  struct {
    const char* what;
    std::function<void()> call;
    int number;
  } const kTable[] = {
      {"read missing", [&] { files.Read(missing); }, 53},
      {"read in a missing folder", [&] { files.Read(lost); }, 76},
      {"read a folder", [&] { files.Read(sub); }, 75},
      {"read below a file", [&] { files.Read(file + "\\x"); }, 76},
      {"write in a missing folder", [&] { files.Write(lost, "x"); }, 76},
      {"write a read-only file", [&] { files.Write(fixed, "x"); }, 75},
      {"write over a folder", [&] { files.Write(sub, "x"); }, 75},
      {"write a bad name", [&] { files.Write(At("a<b"), "x"); }, 64},
      {"write a bad folder", [&] { files.Write(At("a|b\\c"), "x"); }, 76},
      {"write a pattern", [&] { files.Write(At("*.txt"), "x"); }, 64},
      {"write dots", [&] { files.Write(At("..."), "x"); }, 64},
      {"write a long name", [&] { files.Write(At(std::string(256, 'n')), "x"); }, 76},
      {"append to a read-only file", [&] { files.Append(fixed, "x"); }, 75},
      {"make a folder twice", [&] { files.MakeFolder(sub); }, 75},
      {"make two levels", [&] { files.MakeFolder(At("p\\q")); }, 76},
      {"delete missing", [&] { files.Delete(missing); }, 53},
      {"delete read-only", [&] { files.Delete(fixed); }, 75},
      {"delete a folder", [&] { files.Delete(sub); }, 75},
      {"copy missing", [&] { files.Copy(missing, At("to.txt")); }, 53},
      {"copy to a missing folder", [&] { files.Copy(file, lost); }, 76},
      {"copy onto itself", [&] { files.Copy(file, At("FILE.txt")); }, 75},
      {"copy onto read-only", [&] { files.Copy(file, fixed); }, 75},
      {"rename missing", [&] { files.Rename(missing, At("to.txt")); }, 53},
      {"rename over a file", [&] { files.Rename(file, At("OTHER.txt")); }, 58},
      {"rename to a missing folder", [&] { files.Rename(file, lost); }, 76},
      {"rename a folder into itself", [&] { files.Rename(sub, At("sub\\deep")); }, 75},
      {"attributes of missing", [&] { files.SetAttributes(missing, 0); }, 53},
      {"a drive that is not there", [&] { files.Read("Q:\\x"); }, 68},
  };
  for (const auto& row : kTable) EXPECT_EQ(ErrorOf(row.call), row.number) << row.what;
  EXPECT_EQ(Names("*"), (NameList{"file.txt", "fixed.txt", "other.txt", "sub"}));
  EXPECT_EQ(files.Read(file) + files.Read(At("other.txt")) + files.Read(fixed), "oldotherfixed");
}

TEST_F(FilesTest, AFileHeldOpenElsewhereIsLeftAlone) {
  const std::string open = At("open.wav"), other = At("free.wav");
  files.Write(open, "x");
  files.Write(other, "y");
  home->HoldOpen(open);
  const std::function<void()> kRefused[] = {
      [&] { files.Read(open); },           [&] { files.Write(open, ""); },
      [&] { files.Append(open, "z"); },    [&] { files.Delete(open); },
      [&] { files.Copy(open, other); },    [&] { files.Copy(other, open); },
      [&] { files.Rename(open, At("z")); }};
  for (const auto& call : kRefused) EXPECT_EQ(ErrorOf(call), 70) << &call - kRefused;
  EXPECT_EQ(ErrorOf([&] { files.SetAttributes(open, file_attribute::kHidden); }), 0);
  EXPECT_EQ(files.ReadProfile(open, "Data", "key"), "");
  EXPECT_FALSE(files.WriteProfile(open, "Data", "key", "value"));
  home->HoldOpen("");
  EXPECT_EQ(Names("*"), (NameList{"free.wav", "open.wav"}));
  EXPECT_EQ(files.Read(open) + files.Read(other), "xy");
  EXPECT_TRUE(files.Search(open).at(0).attributes & file_attribute::kHidden);
}

TEST_F(FilesTest, CopyAndRenameCarryBytesAndAttributes) {
  files.Write(At("a.txt"), "text");
  files.SetAttributes(At("a.txt"), file_attribute::kHidden);
  files.Copy(At("a.txt"), At("b.txt"));
  // The mark of a file to be archived comes by itself.
  EXPECT_EQ(files.Search(At("b.txt")).at(0).attributes & ~file_attribute::kArchive,
            file_attribute::kHidden);
  files.Rename(At("b.txt"), At("B.TXT"));
  EXPECT_EQ(Names("b*"), NameList{"B.TXT"});
  files.MakeFolder(At("sub"));
  files.Rename(At("B.TXT"), At("sub\\c.txt"));
  files.Rename(At("sub"), At("moved"));
  EXPECT_EQ(files.Read(At("moved\\c.txt")), "text");
  EXPECT_FALSE(files.Exists(At("sub")));
}

TEST_F(FilesTest, ShortPathsAreOfEightAndThree) {
  for (const char* name : {"short.txt", "longer name one.text", "longer name two.text", "a+b.txt"})
    files.Write(At(name), "");
  const std::pair<const char*, const char*> kTable[] = {
      {"short.txt", "SHORT.TXT"},
      {"Longer Name One.text", "LONGER~1.TEX"},
      {"longer name two.text", "LONGER~2.TEX"},
      {"a+b.txt", "AB~1.TXT"},
  };
  for (const auto& [name, shortName] : kTable)
    EXPECT_EQ(Upper(files.ShortPath(At(name))), At(shortName));
  EXPECT_EQ(files.ShortPath(At("missing")), "");
  EXPECT_EQ(files.ShortPath(""), "");
}

TEST_F(FilesTest, DrivesAreTold) {
  const auto drives = files.Drives();
  EXPECT_NE(std::find(drives.begin(), drives.end(), "c:"), drives.end());
  EXPECT_EQ(files.DriveState("C:"), 0);
  EXPECT_EQ(files.DriveState("Q:\\x"), 68);
}

TEST_F(FilesTest, DrivesHaveKinds) {
  const std::pair<char, DriveKind> kTable[] = {{'B', DriveKind::kFloppy},
                                               {'R', DriveKind::kRemovable},
                                               {'F', DriveKind::kFixed},
                                               {'N', DriveKind::kNetwork},
                                               {'M', DriveKind::kCd}};
  EXPECT_EQ(files.DriveKindOf("C:\\x"), DriveKind::kFixed);
  EXPECT_EQ(files.DriveKindOf("Q:"), DriveKind::kNone);
  for (const auto& [letter, kind] : kTable) {
    home->SetDrive(letter, kind, true);
    const std::string drive{letter, ':'}, file = drive + "\\a.txt";
    EXPECT_EQ(files.DriveKindOf(drive + "\\"), kind) << letter;
    EXPECT_EQ(files.DriveKindOf(Lower(drive)), kind) << letter;
    EXPECT_EQ(files.DriveState(drive), 0) << letter;
    files.Write(file, drive);
    EXPECT_EQ(files.Read(file), drive) << letter;
    const auto drives = files.Drives();
    EXPECT_NE(std::find(drives.begin(), drives.end(), Lower(drive)), drives.end()) << letter;
  }
  files.Rename("B:\\a.txt", At("b.txt"));
  EXPECT_EQ(files.Read(At("b.txt")), "B:");
}

TEST_F(FilesTest, ADriveWithoutADiskHasItsKindAndIsNotReady) {
  files.Write(At("a.txt"), "a");
  home->SetDrive('G', DriveKind::kRemovable, false);
  EXPECT_EQ(files.DriveKindOf("g:"), DriveKind::kRemovable);
  EXPECT_EQ(files.DriveState("g:"), 68);
  EXPECT_FALSE(files.IsFolder("G:\\"));
  EXPECT_FALSE(files.Exists("G:\\*.*"));
  const std::function<void()> kRefused[] = {[&] { files.Read("G:\\x"); },
                                            [&] { files.Write("G:\\x", "x"); },
                                            [&] { files.Append("G:\\x", "x"); },
                                            [&] { files.MakeFolder("G:\\styles"); },
                                            [&] { files.Copy(At("a.txt"), "G:\\x"); },
                                            [&] { files.Copy("G:\\x", At("b.txt")); },
                                            [&] { files.Delete("G:\\x"); }};
  for (const auto& call : kRefused) EXPECT_EQ(ErrorOf(call), 71) << &call - kRefused;
}

TEST_F(FilesTest, ProfileFilesKeepWhatTheyDoNotChange) {
  const std::string file = At("desc1.dat");
  EXPECT_EQ(files.ReadProfile(file, "Data", "boing"), "");
  EXPECT_TRUE(files.WriteProfile(file, "Data", "boing", "A spring"));
  EXPECT_TRUE(files.WriteProfile(file, "Data", "moo", "A cow"));
  EXPECT_TRUE(files.WriteProfile(file, "data", "BOING", "Two springs"));
  EXPECT_EQ(files.ReadProfile(file, "DATA", "Boing"), "Two springs");
  EXPECT_EQ(files.Read(file), "[Data]\r\nboing=Two springs\r\nmoo=A cow\r\n");
  EXPECT_TRUE(files.WriteProfile(file, "Data", "boing", std::nullopt));
  EXPECT_EQ(files.Read(file), "[Data]\r\nmoo=A cow\r\n");
  EXPECT_FALSE(files.WriteProfile(At("no such\\x.dat"), "Data", "a", "b"));
  files.SetAttributes(file, file_attribute::kReadOnly);
  EXPECT_FALSE(files.WriteProfile(file, "Data", "moo", "x"));
}

TEST_F(FilesTest, AProfilesKeyMayHoldAnEqualsSign) {
  const std::string file = At("desc1.dat");
  EXPECT_TRUE(files.WriteProfile(file, "Data", "a=b", "c"));
  EXPECT_TRUE(files.WriteProfile(file, "Data", "A=B", "d"));
  EXPECT_EQ(files.ReadProfile(file, "Data", "a=b"), "d");
  EXPECT_EQ(files.Read(file), "[Data]\r\na=b=d\r\n");
  // in a file that somebody else has written, too
  const std::string other = At("desc2.dat");
  files.Write(other, "[Data]\r\na=b=\"c d\"\r\n");
  EXPECT_EQ(files.ReadProfile(other, "Data", "a=b"), "c d");
  EXPECT_EQ(files.ReadProfile(other, "Data", "a=x"), "");
  EXPECT_TRUE(files.WriteProfile(other, "Data", "A=B", "e"));
  EXPECT_EQ(files.Read(other), "[Data]\r\na=b=e\r\n");
  EXPECT_TRUE(files.WriteProfile(other, "Data", "a=b", std::nullopt));
  EXPECT_EQ(files.Read(other), "[Data]\r\n");
}

TEST_F(FilesTest, AProfileFileDoesNotOutgrowItsLimit) {
  const std::string file = At("desc1.dat"), big = "[Data]\r\nbig=" + std::string(65000, 'x');
  files.Write(file, big);
  EXPECT_FALSE(files.WriteProfile(file, "Data", "new", std::string(1000, 'y')));
  EXPECT_EQ(files.Read(file), big);
  EXPECT_TRUE(files.WriteProfile(file, "Data", "new", std::string(100, 'y')));
}

}  // namespace
}  // namespace corvel::test
