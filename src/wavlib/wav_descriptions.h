// Wav descriptions: one line of text a wav, in the numbered profile files data\desc1.dat,
// desc2.dat... (docs/formats/descriptions.md). Together they are one store; a full file overflows
// into the next number.
#pragma once

#include "core/program.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvel {

inline constexpr std::string_view kNoDescription = "No description available for the selected wav.";

struct Description {
  std::string name;  // of the wav, no ".wav"
  std::string text;
  friend bool operator==(const Description&, const Description&) = default;
};

std::string DescriptionFile(Program& program, int number);

// The description that the first file which holds the name has for it; "" if none has.
std::string FindDescription(Program& program, std::string_view name);
// The same, or kNoDescription.
std::string GetWavDescrip(Program& program, std::string_view name);

// A profile file can't hold every name: one that begins like a section or a remark, or with nothing
// but blanks, is none.
bool CanBeDescribed(std::string_view name);

// Writes to the first file that takes the record; an older one in a later file is hidden by it.
// Throws RunTimeError (75) if even a new file can't be written.
void WriteDescription(Program& program, const Description& description);

// Deletes the name in each file that holds it. The answer can be given to RestoreDescriptions if
// what was to take its place can't be written.
struct DeletedDescription {
  int file;
  Description record;
};
std::vector<DeletedDescription> DeleteDescription(Program& program, const std::string& name);
void RestoreDescriptions(Program& program, const std::vector<DeletedDescription>& deleted);

// The records of one file's text, in order: each line with a "=".
std::vector<Description> ParseDescriptions(std::string_view bytes);

// All descriptions in memory, for lists of many names: a look-up reads no file.
class DescriptionIndex {
 public:
  explicit DescriptionIndex(Program& program);
  std::string Find(std::string_view name) const;  // "" if there is none

 private:
  void Add(std::string_view bytes);

  std::unordered_map<std::string, std::string> texts_;  // by lower-cased name
};

}  // namespace corvel
