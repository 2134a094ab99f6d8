// Wav descriptions: one line of text a wav, in the numbered profile files data\desc1.dat,
// desc2.dat... (docs/formats/descriptions.md). Together they are one store; a full file overflows
// into the next number.
//
// FindDescription is the one look-up: what lists and print-outs tell of a name is what it answers.
#pragma once

#include "core/program.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace corvel {

inline constexpr std::string_view kNoDescription = "No description available for the selected wav.";

struct Description {
  std::string name;  // of the wav, no ".wav"
  std::string text;
  friend bool operator==(const Description&, const Description&) = default;
};

// The description that the first file which holds the name has for it; "" if none has. The files
// are asked from 1 up, to the first number that is missing.
std::string FindDescription(Program& program, std::string_view name);
// The same, or kNoDescription.
std::string GetWavDescrip(Program& program, std::string_view name);

// A profile file can't hold every name: one that begins like a section or a remark, or with nothing
// but blanks, is none.
bool CanBeDescribed(std::string_view name);

// Writes to the first file that takes the record; an older one in a later file is hidden by it.
// Throws RunTimeError (75) if even a new file can't be written.
void WriteDescription(Program& program, const Description& description);

// Every description file that there is: by their numbers, also behind a gap, where the look-up
// never comes; then what else is called desc*.dat.
std::vector<std::string> DescriptionFiles(Program& program);

// Deletes the name's record in each of these files, or, where that fails (RunTimeError), in none.
// The answer can be given to RestoreDescriptions if what was to take its place can't be written.
struct DeletedDescription {
  std::string file;
  Description record;
};
std::vector<DeletedDescription> DeleteDescription(Program& program, const std::string& name);
void RestoreDescriptions(Program& program, const std::vector<DeletedDescription>& deleted);

// Descriptions in memory, for lists of many names: a look-up reads no file.
class DescriptionIndex {
 public:
  // The text of one file behind those added before it; any bytes are taken.
  void Add(std::string_view bytes);

  // As the look-up finds it: "" if there is none.
  std::string Find(std::string_view name) const;
  // Each name once, in the order of the files, with what Find says. A name that holds "=" can't be
  // told from a shorter one: it ends at the first "=".
  std::vector<Description> Records() const;

 private:
  std::unordered_map<std::string, std::string> texts_;  // by key, none empty
  std::vector<std::string> names_;
  std::unordered_set<std::string> known_;  // their keys
};

// With all that the look-up sees. A file that can't be read holds nothing.
DescriptionIndex ReadDescriptions(Program& program);

}  // namespace corvel
