// The audit of finished programs, on programs made up byte by byte.
#include "tools/audit/audit.h"

#include <gtest/gtest.h>

namespace corvel::audit {
namespace {

using Words = std::vector<std::string>;

// A program of one section that imports from one library: the header, then a descriptor, the slots,
// and the texts that they point at. What a test wants wrong it writes over.
class Program {
 public:
  explicit Program(const std::string& function) : bytes_(0x300, '\0') {
    Put(0, "MZ");
    Set(0x3C, kHeader, 4);
    Put(kHeader, std::string("PE\0\0", 4));
    Set(kHeader + 4, 0x014C, 2);
    Set(kHeader + 6, 1, 2);      // sections
    Set(kHeader + 20, 0xE0, 2);  // the size of what follows
    Set(kOptional, 0x10B, 2);
    Set(kOptional + 40, 4, 2);
    Set(kOptional + 48, 4, 2);
    Set(kOptional + 92, 16, 4);               // tables
    Set(kOptional + 96 + 8, kAddress, 4);     // imports
    Set(kOptional + 0xE0 + 12, kAddress, 4);  // the section
    Set(kOptional + 0xE0 + 16, 0x100, 4);
    Set(kOptional + 0xE0 + 20, kPlace, 4);
    Set(kPlace, kAddress + 0x40, 4);
    Set(kPlace + 12, kAddress + 0x60, 4);
    Set(kPlace + 16, kAddress + 0x40, 4);
    SetSlot(kAddress + 0x80);
    Put(kPlace + 0x60, "KERNEL32.dll");
    Put(kPlace + 0x82, function);
  }

  static constexpr std::size_t kHeader = 0x40, kOptional = kHeader + 24, kPlace = 0x200;
  static constexpr std::uint32_t kAddress = 0x1000;

  void Set(std::size_t at, std::uint64_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) bytes_[at + i] = static_cast<char>(value >> (8 * i));
  }
  void SetSlot(std::uint32_t value) { Set(kPlace + 0x40, value, 4); }
  const std::string& Bytes() const { return bytes_; }

 private:
  void Put(std::size_t at, const std::string& text) { bytes_.replace(at, text.size(), text); }

  std::string bytes_;
};

Allowed SomeAllowed() {
  return {ReadList("# names\nKernel32.dll!CloseHandle   95\n\nuser32.dll!GetDC 95k # seen\n"),
          {"corvelhk.dll"}};
}

TEST(Audit, AnImportStandsInTheListOrIsTold) {
  EXPECT_EQ(Complaints(Program("CloseHandle").Bytes(), SomeAllowed()), Words{});
  EXPECT_EQ(Complaints(Program("CreateSemaphoreW").Bytes(), SomeAllowed()),
            Words{"imports kernel32.dll!CreateSemaphoreW, which is not in the list"});
  EXPECT_EQ(Complaints(Program("closehandle").Bytes(), SomeAllowed()).size(), 1u);
  Allowed own = SomeAllowed();
  own.ownLibraries.insert("kernel32.dll");
  EXPECT_EQ(Complaints(Program("Anything").Bytes(), own), Words{});
  Program byNumber("CloseHandle");
  byNumber.SetSlot(0x80000011);
  EXPECT_EQ(Complaints(byNumber.Bytes(), own),
            Words{"imports number 17 of kernel32.dll, which may be another function elsewhere"});
}

TEST(Audit, WhatOldLoadersRefuseIsTold) {
  const struct {
    std::size_t at;
    std::uint64_t value;
    std::size_t size;
    const char* complaint;
  } kTable[] = {
      {Program::kHeader + 4, 0x8664, 2, "is not built for the i386"},
      {Program::kOptional + 42, 10, 2, "wants system version 4.10, above 4.0"},
      {Program::kOptional + 48, 0x00020005, 4, "wants subsystem version 5.2, above 4.0"},
      {Program::kOptional + 70, 0x0040, 2, "has the bit for random addresses (ASLR)"},
      {Program::kOptional + 70, 0x0100, 2, "has the bit for data execution (NX)"},
      {Program::kOptional + 96 + 13 * 8, 0x1000, 4, "has delayed imports, which nobody checks"},
      {0, 0, 2, "is no program"},
      {Program::kOptional, 0x107, 2, "is of an unknown format"},
      {Program::kOptional + 96 + 8, 0x9000, 4, "points outside of itself"},
  };
  for (const auto& row : kTable) {
    Program program("CloseHandle");
    program.Set(row.at, row.value, row.size);
    EXPECT_EQ(Complaints(program.Bytes(), SomeAllowed()), Words{row.complaint});
  }
}

// However a program is cut off, it is refused and not read past its end.
TEST(Audit, APartOfAProgramIsRefused) {
  const std::string whole = Program("CloseHandle").Bytes();
  constexpr std::size_t kBehindLastText = Program::kPlace + 0x82;
  for (std::size_t size = 0; size < kBehindLastText; ++size)
    EXPECT_EQ(Complaints(whole.substr(0, size), SomeAllowed()).size(), 1u) << size;
}

}  // namespace
}  // namespace corvel::audit
