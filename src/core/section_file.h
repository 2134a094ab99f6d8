// Section files: a section of the settings tree as text, one value a line, `name=value`, CR LF. The
// older stores of aliases have nearly the same form. docs/formats/section-files.md tells it.
#pragma once

#include "core/program.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvel {

// Why a line, or a value of the tree, is left out.
enum class LineFault {
  kNone,
  kNoEquals,
  kNoName,
  kTooLong,           // for the tree
  kControlCharacter,  // or line end; a value may hold TABs
  kNotWritten,        // the tree has refused it
};

struct SectionLine {
  std::size_t number = 0;  // in its file, from 1
  std::string name, value;
  LineFault fault = LineFault::kNone;
};

// Pure reader and writer. Any bytes are taken; empty lines are no lines.
std::vector<SectionLine> ParseSectionFile(std::string_view bytes);
// The fault that such a line would have if it stood in a file.
LineFault FaultOf(std::string_view name, std::string_view value);
std::string FormatSectionLine(std::string_view name, std::string_view value);

// Replaces the file with the section's values in the tree's order. Gives the names of those that no
// line can hold.
std::vector<std::string> SectionToFile(Program& program, std::string_view section,
                                       std::string_view path);
// Adds the file's values to the section, over those of the same name. Gives the lines that it has
// refused; the others are taken.
std::vector<SectionLine> FileToSection(Program& program, std::string_view path,
                                       std::string_view section);
// The same for a store of aliases, in which a value with a TAB has one character too many at its
// end. A missing file is no error.
std::vector<SectionLine> AliasToReg(Program& program, std::string_view path,
                                    std::string_view section);

}  // namespace corvel
