// The wave header that tells the desk how long a sound plays.
#include "platform/desk/wave_header.h"

#include "tests/platform/services_home.h"

namespace corvel::desk {
namespace {

TEST(WaveHeader, AWholeFileTellsItsLength) {
  const auto header = ReadWaveHeader(WaveFile(2500));
  ASSERT_TRUE(header);
  EXPECT_EQ(header->format, 1);
  EXPECT_EQ(header->channels, 1);
  EXPECT_EQ(header->samplesPerSecond, 8000u);
  EXPECT_EQ(header->bitsPerSample, 8);
  EXPECT_EQ(header->Milliseconds(), 2500);
}

TEST(WaveHeader, OtherChunksAreSteppedOver) {
  std::string file = WaveFile(1000);
  file.insert(12, std::string("LIST\x03\0\0\0odd\0", 12));
  ASSERT_TRUE(ReadWaveHeader(file));
  EXPECT_EQ(ReadWaveHeader(file)->Milliseconds(), 1000);
}

TEST(WaveHeader, WhatIsCutShortIsTakenAsFarAsItGoes) {
  const std::string file = WaveFile(1000);
  EXPECT_EQ(ReadWaveHeader(std::string_view(file).substr(0, file.size() - 4000))->Milliseconds(),
            500);
  for (std::size_t length = 0; length < 44; ++length)
    EXPECT_FALSE(ReadWaveHeader(std::string_view(file).substr(0, length))) << length;
}

TEST(WaveHeader, ImpossibleNumbersAreNoTrap) {
  std::string noRate = WaveFile(1000), hugeChunk = WaveFile(1000);
  noRate.replace(28, 4, 4, '\0');
  EXPECT_EQ(ReadWaveHeader(noRate)->Milliseconds(), 0);
  hugeChunk.replace(16, 4, 4, '\xFF');  // the format chunk swallows the file
  EXPECT_FALSE(ReadWaveHeader(hugeChunk));
}

TEST(WaveHeader, WhatIsToldHas32BitsAndASign) {
  const struct {
    std::uint32_t bytes, rate;
    std::int32_t milliseconds;
  } kTable[] = {{8003, 8000, 1000},     {8004, 8000, 1001},
                {8000, 0, -1},          {0x7FFFFFFF, 8000, 268'435'456},
                {0x7FFFFFFF, 100, -1},  {0xFFFFFFFF, 8000, 0},
                {0xFFFFFFFF, 1, -1000}, {8000, 0xFFFFFFFF, -8'000'000}};
  for (const auto& row : kTable)
    EXPECT_EQ((WaveHeader{.bytesPerSecond = row.rate, .toldBytes = row.bytes}.ToldMilliseconds()),
              row.milliseconds)
        << row.bytes << " at " << row.rate;
}

}  // namespace
}  // namespace corvel::desk
