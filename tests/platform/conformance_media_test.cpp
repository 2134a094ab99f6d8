// The media control: command strings for wave files.
#include "tests/platform/home.h"

#include <gtest/gtest.h>

namespace corvel::test {
namespace {

std::string Number(std::size_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i) & 0xFF);
  return text;
}

std::string Chunk(const std::string& kind, const std::string& bytes) {
  return kind + Number(bytes.size(), 4) + bytes + (bytes.size() % 2 ? std::string(1, '\0') : "");
}

std::string Riff(const std::string& chunks) { return Chunk("RIFF", "WAVE" + chunks); }

struct Format {
  int tag = 1, channels = 1;
  std::size_t rate = 8000, bytesPerSecond = 8000;
  int alignment = 1, bits = 8;
  std::string more{};  // what a format other than PCM has behind it
};

std::string FormatChunk(const Format& f) {
  return Chunk("fmt ", Number(f.tag, 2) + Number(f.channels, 2) + Number(f.rate, 4) +
                           Number(f.bytesPerSecond, 4) + Number(f.alignment, 2) +
                           Number(f.bits, 2) + f.more);
}

std::string Wave(const Format& format, std::size_t bytes) {
  return Riff(FormatChunk(format) + Chunk("data", std::string(bytes, '\0')));
}

std::string More(const std::string& bytes) { return Number(bytes.size(), 2) + bytes; }

class MediaTest : public testing::Test {
 protected:
  ~MediaTest() override { Send("close all wait"); }
  std::string At(const std::string& name) { return folder + "\\" + name; }
  MediaReply Send(const std::string& command) {
    MediaReply reply;
    home->Run([&] { reply = media.Send(command); });
    return reply;
  }
  std::uint32_t ErrorOf(const std::string& command) { return Send(command).error; }
  std::string OpenCommand(const std::string& name, const std::string& alias) {
    return "open \"" + At(name) + "\" type WaveAudio alias " + alias + " wait";
  }
  // What is told of a file with these bytes: format, bits, channels, length, rate; or the error.
  std::string Told(const std::string& bytes) {
    home->platform().files.Write(At("told.wav"), bytes);
    const MediaReply opened = Send(OpenCommand("told.wav", "told"));
    if (opened.error) return std::to_string(opened.error);
    std::string told;
    for (const char* item : {"format tag", "bitspersample", "channels", "length", "samplespersec"})
      told += Send(std::string("status told ") + item + " wait").text + " ";
    EXPECT_EQ(Send("close told wait"), MediaReply{});
    return told;
  }

  std::unique_ptr<Home> home = MakeHome();
  const std::string folder = home->Folder();
  MediaControl& media = home->platform().media;
};

TEST_F(MediaTest, AWaveFilesPropertiesAreThoseOfItsHeader) {
  const std::string ms(28 + 4, '\x01'), pcm = FormatChunk({}), data = Chunk("data", "12345678");
  const struct {
    const char* what;
    std::string bytes, told;
  } kTable[] = {
      {"PCM", Wave({.rate = 8000}, 12'000), "pcm 8 1 1500 8000 "},
      {"stereo", Wave({1, 2, 22'050, 88'200, 4, 16}, 88'200), "pcm 16 2 1000 22050 "},
      {"rounded", Wave({}, 12'345), "pcm 8 1 1543 8000 "},
      {"no data", Wave({}, 0), "pcm 8 1 0 8000 "},
      {"MS ADPCM", Wave({2, 1, 22'050, 11'155, 512, 4, More(ms)}, 15'360), "2 4 1 1377 22050 "},
      {"IMA ADPCM", Wave({17, 1, 22'050, 11'100, 512, 4, More(Number(1017, 2))}, 15'360),
       "17 4 1 1384 22050 "},
      {"another", Wave({49, 1, 8000, 1625, 65, 0, More(Number(320, 2))}, 1950),
       "49 0 1 1200 8000 "},
      {"PCM with more", Wave({.more = More("")}, 8000), "pcm 8 1 1000 8000 "},
      {"no rate", Wave({.rate = 0, .bytesPerSecond = 0}, 8000), "pcm 8 1 -1 0 "},
      {"chunks between", Riff(Chunk("LIST", "odd") + pcm + Chunk("fact", "1234") + data),
       "pcm 8 1 1 8000 "},
      {"two formats", Riff(pcm + FormatChunk({.tag = 2}) + data), "pcm 8 1 1 8000 "},
      {"cut short", Wave({}, 12'000).substr(0, 4000), "pcm 8 1 1500 8000 "},
      {"a head alone", Wave({}, 12'000).substr(0, 44), "pcm 8 1 1500 8000 "},
  };
  for (const auto& row : kTable) EXPECT_EQ(Told(row.bytes), row.told) << row.what;
}

TEST_F(MediaTest, WhatIsNoWaveFileIsNotOpened) {
  const std::string pcm = FormatChunk({}), data = Chunk("data", "12345678"), good = Wave({}, 100);
  const std::pair<const char*, std::string> kTable[] = {
      {"nothing", ""},
      {"text", "no wave at all, but a text that is long enough"},
      {"no chunk", good.substr(0, 12)},
      {"half a format", good.substr(0, 30)},
      {"no data", good.substr(0, 36)},
      {"no format", Riff(data)},
      {"the format behind", Riff(data + pcm)},
      {"a short format", Riff(Chunk("fmt ", std::string(14, '\x01')) + data)},
      {"a format without its own", Wave({.tag = 2}, 100)},
      {"a format that lacks of its own", Wave({.tag = 17, .more = Number(50, 2)}, 100)},
      {"another kind", std::string(good).replace(8, 4, "AVI ")},
      {"high byte first", std::string(good).replace(0, 4, "RIFX")},
      {"of no length", std::string(good).replace(4, 4, Number(0, 4))},
      {"that ends in front of its data", std::string(good).replace(4, 4, Number(20, 4))},
      {"an endless chunk", Riff(pcm + "abcd" + Number(0x7FFFFFFF, 4) + data)},
  };
  for (const auto& [what, bytes] : kTable) EXPECT_EQ(Told(bytes), "296") << what;
}

TEST_F(MediaTest, AliasesAreOpenUntilTheyAreClosed) {
  Files& files = home->platform().files;
  files.Write(At("one wave.wav"), Wave({}, 8000));
  files.Write(At("two.wav"), Wave({.channels = 2}, 16'000));
  EXPECT_EQ(Send(OpenCommand("one wave.wav", "waveform")), (MediaReply{0, "1"}));
  EXPECT_EQ(ErrorOf(OpenCommand("two.wav", "WaveForm")), media_error::kAliasInUse);
  EXPECT_EQ(Send(OpenCommand("two.wav", "\"the other\"")), (MediaReply{0, "2"}));
  EXPECT_EQ(Send("STATUS Waveform LENGTH").text, "1000");
  EXPECT_EQ(Send("status \"the other\" channels wait").text, "2");
  EXPECT_EQ(Send("close waveform wait"), MediaReply{});
  EXPECT_EQ(ErrorOf("close waveform wait"), media_error::kNotOpen);
  EXPECT_EQ(Send(OpenCommand("two.wav", "waveform")), (MediaReply{0, "1"})) << "a free number";
  EXPECT_EQ(Send("close all wait"), MediaReply{});
  EXPECT_EQ(Send("Close All"), MediaReply{}) << "also if there is none";
  EXPECT_EQ(ErrorOf("close waveform wait"), media_error::kNotOpen);
}

TEST_F(MediaTest, RefusalsHaveTheSystemsNumbersAndWords) {
  home->platform().files.Write(At("a.wav"), Wave({}, 8000));
  home->platform().files.Write(At("open.wav"), Wave({}, 8000));
  home->HoldOpen(At("open.wav"));
  EXPECT_EQ(ErrorOf(OpenCommand("a.wav", "a")), 0u);
  const std::pair<std::string, std::uint32_t> kTable[] = {
      {"", media_error::kNoCommand},
      {"bogus a wait", media_error::kUnknownCommand},
      {"status", media_error::kMissingDevice},
      {"close", media_error::kMissingDevice},
      {"status a", media_error::kMissingParameter},
      {"status a wait", media_error::kMissingParameter},
      {"status all length wait", media_error::kNotForAll},
      {OpenCommand("missing.wav", "b"), media_error::kFileNotFound},
      {OpenCommand("open.wav", "b"), media_error::kFileNotFound},
      {"open \"" + folder + "\" type WaveAudio alias b wait", media_error::kFileNotFound},
      {OpenCommand("a.wav", "all"), media_error::kAliasInUse},
      {"open \"" + At("a.wav") + "\" type bogus alias b wait", media_error::kNotOpen},
      {"open \"" + At("a.wav") + " type WaveAudio alias b", media_error::kNoClosingQuote},
      {"open \"" + At("a.wav") + "\"type WaveAudio", media_error::kTextBehindQuote},
      {"open a.xyz alias b wait", media_error::kUnknownExtension},
  };
  for (const auto& [command, error] : kTable)
    EXPECT_EQ(Send(command), (MediaReply{error, ""})) << command;
  home->HoldOpen("");
  EXPECT_EQ(media.ErrorText(media_error::kNotOpen),
            "The specified device is not open or is not recognized by MCI.");
  EXPECT_EQ(media.ErrorText(media_error::kFileNotFound),
            "Cannot find the specified file. Make sure the path and filename are correct.");
  EXPECT_EQ(media.ErrorText(9999), "");
}

TEST_F(MediaTest, WordsAreToldFromAliasesAndBlanksMeanNothing) {
  home->platform().files.Write(At("a.wav"), Wave({}, 8000));
  EXPECT_EQ(ErrorOf("status a channels wait"), media_error::kNotOpen);
  EXPECT_EQ(ErrorOf(OpenCommand("a.wav", "a")), 0u);
  EXPECT_EQ(ErrorOf("status a bogus wait"), media_error::kUnknownParameter);
  EXPECT_EQ(Send("status  a  channels  wait").text, "1");
}

TEST_F(MediaTest, AFileInAMissingFolderIsNone) {
  EXPECT_EQ(ErrorOf(OpenCommand("no such\\a.wav", "a")), media_error::kNoSuchMedium);
}

}  // namespace
}  // namespace corvel::test
