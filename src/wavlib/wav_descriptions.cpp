#include "wavlib/wav_descriptions.h"

#include "base/error.h"
#include "base/text.h"
#include "core/report_error.h"

namespace corvel {
namespace {

constexpr std::string_view kDataSection = "Data";

bool HoldsRecord(std::string_view bytes, const std::string& name) {
  return bytes.find(name + "=") != std::string_view::npos;
}

std::string WithoutQuotes(std::string text) {
  const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                      (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

std::string DescriptionFile(Program& program, int number) {
  return program.InFolder("data\\desc" + std::to_string(number) + ".dat");
}

std::string FindDescription(Program& program, std::string_view name) {
  Files& files = program.platform.files;
  std::string file = DescriptionFile(program, 1);
  for (int number = 1;;) {
    std::string text = files.ReadProfile(file, kDataSection, name);
    if (!text.empty()) return text;
    file = DescriptionFile(program, ++number);
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
    const std::string file = DescriptionFile(program, number);
    const bool isNew = !files.Exists(file);
    if (files.WriteProfile(file, kDataSection, description.name, description.text)) return;
    // Where a new file is refused, no further number would be taken either.
    if (isNew) throw RunTimeError(err::kPathFileAccess);
  }
}

std::vector<DeletedDescription> DeleteDescription(Program& program, const std::string& name) {
  Files& files = program.platform.files;
  std::vector<DeletedDescription> deleted;
  try {
    for (int number = 1;; ++number) {
      const std::string file = DescriptionFile(program, number);
      if (!files.Exists(file)) return deleted;
      if (files.IsFolder(file) || !HoldsRecord(files.Read(file), name)) continue;
      const std::string text = files.ReadProfile(file, kDataSection, name);
      if (!files.WriteProfile(file, kDataSection, name, std::nullopt))
        throw RunTimeError(err::kPathFileAccess);
      deleted.push_back({number, {name, text}});
    }
  } catch (const RunTimeError&) {  // all of the files or none
    RestoreDescriptions(program, deleted);
    throw;
  }
}

void RestoreDescriptions(Program& program, const std::vector<DeletedDescription>& deleted) {
  for (const DeletedDescription& old : deleted)
    if (!old.record.text.empty())
      program.platform.files.WriteProfile(DescriptionFile(program, old.file), kDataSection,
                                          old.record.name, old.record.text);
}

std::vector<Description> ParseDescriptions(std::string_view bytes) {
  std::vector<Description> records;
  for (const std::string_view line : Lines(bytes)) {
    const auto equal = line.find('=');
    if (equal == std::string_view::npos) continue;
    records.push_back({std::string(line.substr(0, equal)), std::string(line.substr(equal + 1))});
  }
  return records;
}

DescriptionIndex::DescriptionIndex(Program& program) {
  Files& files = program.platform.files;
  for (int number = 1;; ++number) {
    const std::string file = DescriptionFile(program, number);
    if (!files.Exists(file)) return;
    GoOn([&] { Add(files.Read(file)); });
  }
}

void DescriptionIndex::Add(std::string_view bytes) {
  for (const Description& record : ParseDescriptions(bytes)) {
    std::string text = WithoutQuotes(Trim(record.text));
    if (!text.empty()) texts_.try_emplace(Lower(Trim(record.name)), std::move(text));
  }
}

std::string DescriptionIndex::Find(std::string_view name) const {
  const auto found = texts_.find(Lower(Trim(name)));
  return found == texts_.end() ? std::string() : found->second;
}

}  // namespace corvel
