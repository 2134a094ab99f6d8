// What the loader reads of a program: for which machine and system it is, and what it imports.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::audit {

// The bytes are no program, or a broken one.
class BadProgram : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Import {
  std::string library;  // in lower case
  std::string name;     // "" if it is asked for by its number
  std::uint16_t ordinal = 0;
};

struct Version {
  std::uint16_t major = 0, minor = 0;
  friend auto operator<=>(const Version&, const Version&) = default;
};

struct PeFile {
  std::uint16_t machine = 0;
  Version system, subsystem;
  std::uint16_t loaderBits = 0;
  bool hasDelayedImports = false;
  std::vector<Import> imports;
};

inline constexpr std::uint16_t kMachine386 = 0x014C;
inline constexpr std::uint16_t kMovable = 0x0040;    // address space layout randomisation
inline constexpr std::uint16_t kNoExecute = 0x0100;  // data execution prevention

// Any bytes are taken. Throws BadProgram.
PeFile ReadPeFile(std::string_view bytes);

}  // namespace corvel::audit
