#include "core/section_file.h"

#include "base/text.h"
#include "core/helpers.h"

#include <algorithm>

namespace corvel {

namespace {

// The registry's own limit, and what the tree's reader takes.
constexpr std::size_t kLongestName = 255, kLongestValue = 1023;

bool IsControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

bool HasControl(std::string_view text, bool mayHaveTabs) {
  return std::any_of(text.begin(), text.end(),
                     [mayHaveTabs](char c) { return IsControl(c) && !(mayHaveTabs && c == '\t'); });
}

SectionLine ParseLine(std::size_t number, std::string_view text) {
  const auto equals = text.find('=');
  if (equals == std::string_view::npos)
    return {number, std::string(text), {}, LineFault::kNoEquals};
  SectionLine line{number, std::string(text.substr(0, equals)),
                   std::string(text.substr(equals + 1))};
  line.fault = FaultOf(line.name, line.value);
  return line;
}

// Writes the good lines; what is left are the others.
std::vector<SectionLine> TakeLines(Program& program, std::vector<SectionLine> lines,
                                   std::string_view section) {
  for (SectionLine& line : lines)
    if (line.fault == LineFault::kNone && !program.store.WriteKey(section, line.name, line.value))
      line.fault = LineFault::kNotWritten;
  std::erase_if(lines, [](const SectionLine& line) { return line.fault == LineFault::kNone; });
  return lines;
}

}  // namespace

LineFault FaultOf(std::string_view name, std::string_view value) {
  if (name.empty()) return LineFault::kNoName;
  if (name.find('=') != std::string_view::npos) return LineFault::kNoEquals;
  if (name.size() > kLongestName || value.size() > kLongestValue) return LineFault::kTooLong;
  if (HasControl(name, false) || HasControl(value, true)) return LineFault::kControlCharacter;
  return LineFault::kNone;
}

std::string FormatSectionLine(std::string_view name, std::string_view value) {
  return std::string(name) + "=" + std::string(value) + "\r\n";
}

std::vector<SectionLine> ParseSectionFile(std::string_view bytes) {
  std::vector<SectionLine> lines;
  std::size_t number = 0;
  for (const std::string_view line : Lines(bytes)) {
    ++number;
    if (!line.empty()) lines.push_back(ParseLine(number, line));
  }
  return lines;
}

std::vector<std::string> SectionToFile(Program& program, std::string_view section,
                                       std::string_view path) {
  std::vector<std::string> leftOut;
  std::string bytes;
  for (const std::string& name :
       program.store.Names(section).value_or(std::vector<std::string>{})) {
    const std::string value = program.store.ReadKey(section, name);
    // What can't be read is "", which the tree never holds.
    if (value.empty() || FaultOf(name, value) != LineFault::kNone)
      leftOut.push_back(name);
    else
      bytes += FormatSectionLine(name, value);
  }
  WriteWholeFile(program, path, bytes);
  return leftOut;
}

std::vector<SectionLine> FileToSection(Program& program, std::string_view path,
                                       std::string_view section) {
  return TakeLines(program, ParseSectionFile(ReadWholeFile(program, path)), section);
}

std::vector<SectionLine> AliasToReg(Program& program, std::string_view path,
                                    std::string_view section) {
  if (!FileExists(program, path)) return {};
  std::vector<SectionLine> lines = ParseSectionFile(ReadWholeFile(program, path));
  for (SectionLine& line : lines)
    if (line.value.find('\t') != std::string::npos) line.value.pop_back();
  return TakeLines(program, std::move(lines), section);
}

}  // namespace corvel
