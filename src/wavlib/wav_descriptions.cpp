#include "wavlib/wav_descriptions.h"

#include "base/error.h"
#include "base/text.h"
#include "core/report_error.h"

#include <algorithm>
#include <tuple>

namespace corvel {
namespace {

constexpr std::string_view kDataSection = "Data";

std::string FileNumber(Program& program, int number) {
  return program.InFolder("data\\desc" + std::to_string(number) + ".dat");
}

// --- The text of one file, as the profile routines read it ---------------------------------------

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

bool IsSectionHead(std::string_view line) {
  return line.starts_with('[') && line.find(']') != line.npos;
}

// The lines of the first section [Data] that can be records.
std::vector<std::string_view> RecordLines(std::string_view bytes) {
  std::vector<std::string_view> lines;
  bool inData = false;
  for (std::size_t begin = 0; begin < bytes.size();) {
    const std::size_t end = std::min(bytes.find('\n', begin), bytes.size());
    const std::string_view line = Trimmed(bytes.substr(begin, end - begin));
    begin = end + 1;
    if (IsSectionHead(line)) {
      if (inData) break;
      inData = EqualNoCase(Trimmed(line.substr(1, line.rfind(']') - 1)), kDataSection);
    } else if (inData && !line.starts_with(';') && line.find('=') != line.npos) {
      lines.push_back(line);
    }
  }
  return lines;
}

std::string ValueOf(std::string_view text) {
  text = Trimmed(text.substr(0, text.find('\0')));
  const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                      (text.front() == '"' || text.front() == '\'');
  return std::string(quoted ? text.substr(1, text.size() - 2) : text);
}

// What names are compared by.
std::string KeyOf(std::string_view name) { return Lower(Trimmed(name)); }

// The look-up compares a name with the front of a line, so that it may hold a "=": each "=" of the
// line can end it.
template <typename Visit>
void ForEachReading(std::string_view line, Visit visit) {
  for (auto equal = line.find('='); equal != line.npos; equal = line.find('=', equal + 1))
    visit(line.substr(0, equal), line.substr(equal + 1));
}

bool HoldsRecord(std::string_view bytes, const std::string& name) {
  const std::string key = KeyOf(name);
  bool holds = false;
  for (const std::string_view line : RecordLines(bytes))
    ForEachReading(line, [&](std::string_view front, std::string_view) {
      holds = holds || KeyOf(front) == key;
    });
  return holds;
}

}  // namespace

std::string FindDescription(Program& program, std::string_view name) {
  Files& files = program.platform.files;
  std::string file = FileNumber(program, 1);
  for (int number = 1;;) {
    std::string text = files.ReadProfile(file, kDataSection, name);
    if (!text.empty()) return text;
    file = FileNumber(program, ++number);
    if (!files.Exists(file)) return {};
  }
}

std::string GetWavDescrip(Program& program, std::string_view name) {
  std::string text = FindDescription(program, name);
  return text.empty() ? std::string(kNoDescription) : text;
}

bool CanBeDescribed(std::string_view name) {
  const std::string trimmed = Trim(name);
  return !trimmed.empty() && trimmed.front() != '[' && trimmed.front() != ';';
}

void WriteDescription(Program& program, const Description& description) {
  Files& files = program.platform.files;
  for (int number = 1;; ++number) {
    const std::string file = FileNumber(program, number);
    const bool isNew = !files.Exists(file);
    if (files.WriteProfile(file, kDataSection, description.name, description.text)) return;
    // Where a new file is refused, no further number would be taken either.
    if (isNew) throw RunTimeError(err::kPathFileAccess);
  }
}

std::vector<std::string> DescriptionFiles(Program& program) {
  struct Found {
    bool isOther;
    int number;
    std::string path;
    bool operator<(const Found& other) const {
      return std::tie(isOther, number, path) < std::tie(other.isOther, other.number, other.path);
    }
  };
  std::vector<Found> found;
  for (const FoundFile& file : program.platform.files.Search(program.InFolder("data\\desc*.dat"))) {
    if ((file.attributes & file_attribute::kFolder) != 0) continue;
    const std::string path = program.InFolder("data\\" + file.name);
    const int number = IntVal(std::string_view(file.name).substr(4));
    const bool isOther = number < 1 || !EqualNoCase(path, FileNumber(program, number));
    found.push_back({isOther, isOther ? 0 : number, path});
  }
  std::sort(found.begin(), found.end());
  std::vector<std::string> paths;
  for (Found& file : found) paths.push_back(std::move(file.path));
  return paths;
}

std::vector<DeletedDescription> DeleteDescription(Program& program, const std::string& name) {
  Files& files = program.platform.files;
  std::vector<DeletedDescription> deleted;
  try {
    for (const std::string& file : DescriptionFiles(program)) {
      if (!HoldsRecord(files.Read(file), name)) continue;
      const std::string text = files.ReadProfile(file, kDataSection, name);
      if (!files.WriteProfile(file, kDataSection, name, std::nullopt))
        throw RunTimeError(err::kPathFileAccess);
      deleted.push_back({file, {name, text}});
    }
    return deleted;
  } catch (const RunTimeError&) {  // all of the files or none
    RestoreDescriptions(program, deleted);
    throw;
  }
}

void RestoreDescriptions(Program& program, const std::vector<DeletedDescription>& deleted) {
  for (const DeletedDescription& old : deleted)
    if (!old.record.text.empty())
      program.platform.files.WriteProfile(old.file, kDataSection, old.record.name, old.record.text);
}

void DescriptionIndex::Add(std::string_view bytes) {
  std::unordered_map<std::string, std::string> ofFile;  // of several for one name the first counts
  for (const std::string_view line : RecordLines(bytes)) {
    ForEachReading(line, [&](std::string_view name, std::string_view text) {
      ofFile.try_emplace(KeyOf(name), ValueOf(text));
    });
    const std::string_view name = Trimmed(line.substr(0, line.find('=')));
    if (!name.empty() && known_.insert(KeyOf(name)).second) names_.emplace_back(name);
  }
  for (auto& [key, text] : ofFile)
    if (!text.empty()) texts_.try_emplace(key, std::move(text));
}

std::string DescriptionIndex::Find(std::string_view name) const {
  const auto found = texts_.find(KeyOf(name));
  return found == texts_.end() ? std::string() : found->second;
}

std::vector<Description> DescriptionIndex::Records() const {
  std::vector<Description> records;
  for (const std::string& name : names_) records.push_back({name, Find(name)});
  return records;
}

DescriptionIndex ReadDescriptions(Program& program) {
  Files& files = program.platform.files;
  DescriptionIndex index;
  for (int number = 1;; ++number) {
    const std::string file = FileNumber(program, number);
    if (files.Exists(file))
      GoOn([&] { index.Add(files.Read(file)); });
    else if (number > 1)
      return index;
  }
}

}  // namespace corvel
