// The desk's media control; see desk_media.h.
#include "platform/desk/desk_media.h"

#include "base/text.h"
#include "platform/desk/desk_services.h"

#include <algorithm>
#include <iterator>

namespace corvel::desk {
namespace {

constexpr char kWaveAudio[] = "waveaudio", kAll[] = "all", kWait[] = "wait";

struct ErrorWords {
  std::uint32_t error;
  const char* text;
};
constexpr ErrorWords kErrors[] = {
    {media_error::kUnknownParameter,
     "The driver cannot recognize the specified command parameter."},
    {media_error::kUnknownCommand, "The driver cannot recognize the specified command."},
    {media_error::kNotOpen, "The specified device is not open or is not recognized by MCI."},
    {media_error::kNoCommand, "No command was specified."},
    {media_error::kMissingParameter,
     "The specified command requires a parameter. Please supply one."},
    {media_error::kUnsupported,
     "The MCI device you are using does not support the specified command."},
    {media_error::kFileNotFound,
     "Cannot find the specified file. Make sure the path and filename are correct."},
    {media_error::kNotForAll, "Cannot use 'all' as the device name with the specified command."},
    {media_error::kUnknownExtension,
     "Cannot determine the device type from the given filename extension."},
    {media_error::kAliasInUse,
     "The specified alias is already being used in this application. Use a unique alias."},
    {media_error::kMissingDevice,
     "The specified command requires an alias, file, driver, or device name. Please supply one."},
    {media_error::kNoClosingQuote,
     "A closing double-quotation mark is missing from the parameter value. Please supply one."},
    {media_error::kNoSuchMedium,
     "The specified file cannot be played on the specified MCI device. The file may be corrupt, or "
     "not in the correct format."},
    {media_error::kTextBehindQuote,
     "Cannot specify extra characters after a string enclosed in quotation marks."},
};

// What a device tells of its file.
struct Item {
  const char* words;
  std::string (*answer)(const WaveHeader&);
};
constexpr Item kItems[] = {
    {"format tag",
     [](const WaveHeader& h) { return h.format == 1 ? "pcm" : std::to_string(h.format); }},
    {"bitspersample", [](const WaveHeader& h) { return std::to_string(h.bitsPerSample); }},
    {"channels", [](const WaveHeader& h) { return std::to_string(h.channels); }},
    {"length", [](const WaveHeader& h) { return std::to_string(h.ToldMilliseconds()); }},
    {"samplespersec", [](const WaveHeader& h) { return std::to_string(h.samplesPerSecond); }},
};

// Commands of the system that these devices don't follow here.
constexpr const char* kOthers[] = {"capability", "cue",  "info", "pause", "play", "record",
                                   "resume",     "save", "seek", "set",   "stop", "sysinfo"};

// A command taken apart: words by blanks, and what stands in quotes as one word.
struct Command {
  std::uint32_t error = 0;
  std::vector<std::string> words{};
};

Command Split(std::string_view command) {
  Command split;
  while (!command.empty()) {
    if (command.front() == ' ') {
      command.remove_prefix(1);
      continue;
    }
    const bool quoted = command.front() == '"';
    if (quoted) command.remove_prefix(1);
    const std::size_t end = command.find(quoted ? '"' : ' ');
    if (quoted && end == std::string_view::npos) return {.error = media_error::kNoClosingQuote};
    split.words.emplace_back(command.substr(0, end));
    command.remove_prefix(std::min(end, command.size()));
    if (quoted) command.remove_prefix(1);
    if (quoted && !command.empty() && command.front() != ' ')
      return {.error = media_error::kTextBehindQuote};
  }
  return split;
}

}  // namespace

const DeskMedia::Row DeskMedia::kRows[] = {
    {"open", &DeskMedia::Open}, {"status", &DeskMedia::Status}, {"close", &DeskMedia::Close}};

MediaReply DeskMedia::Send(std::string_view command) {
  if (command.empty()) return {.error = media_error::kNoCommand};
  Command split = Split(command);
  if (split.error) return {.error = split.error};
  Words& words = split.words;
  if (words.size() > 1 && EqualNoCase(words.back(), kWait)) words.pop_back();
  const std::string verb = words.empty() ? "" : words[0];
  const auto named = [&](const char* word) { return EqualNoCase(verb, word); };
  for (const Row& row : kRows) {
    if (!named(row.word)) continue;
    return words.size() > 1 ? (this->*row.work)(words)
                            : MediaReply{.error = media_error::kMissingDevice};
  }
  const bool other = std::any_of(std::begin(kOthers), std::end(kOthers), named);
  return {.error = other ? media_error::kUnsupported : media_error::kUnknownCommand};
}

std::string DeskMedia::ErrorText(std::uint32_t error) {
  for (const ErrorWords& row : kErrors)
    if (row.error == error) return row.text;
  return "";
}

DeskMedia::Device* DeskMedia::Find(std::string_view alias) {
  for (Device& device : Own())
    if (EqualNoCase(device.alias, alias)) return &device;
  return nullptr;
}

std::vector<std::string> DeskMedia::OpenBy(ProcessId process) const {
  std::vector<std::string> aliases;
  if (const auto own = devices_.find(process); own != devices_.end())
    for (const Device& device : own->second) aliases.push_back(device.alias);
  return aliases;
}

std::uint32_t DeskMedia::Load(std::string_view path, WaveHeader& header) const {
  DeskFiles& files = desk_.files();
  if (!files.IsFolder(std::string(FolderOf(path)) + '\\')) return media_error::kNoSuchMedium;
  const auto bytes = files.ReadByOther(path);
  if (!bytes) return media_error::kFileNotFound;
  const auto read = ReadWaveHeader(*bytes);
  if (!read) return media_error::kNoSuchMedium;
  header = *read;
  return 0;
}

// open FILE [type TYPE] [alias ALIAS]
MediaReply DeskMedia::Open(const Words& words) {
  std::string type, alias = words[1];
  for (std::size_t i = 2; i < words.size(); i += 2) {
    std::string* const value = EqualNoCase(words[i], "type")    ? &type
                               : EqualNoCase(words[i], "alias") ? &alias
                                                                : nullptr;
    if (!value) return {.error = media_error::kUnknownParameter};
    if (i + 1 == words.size()) return {.error = media_error::kMissingParameter};
    *value = words[i + 1];
  }
  if (type.empty() && !EqualNoCase(words[1].substr(words[1].find_last_of('.') + 1), "wav"))
    return {.error = media_error::kUnknownExtension};
  if (!type.empty() && !EqualNoCase(type, kWaveAudio)) return {.error = media_error::kNotOpen};
  if (Find(alias) || EqualNoCase(alias, kAll)) return {.error = media_error::kAliasInUse};
  WaveHeader header;
  if (const auto error = Load(words[1], header)) return {.error = error};
  int number = 1;
  const auto taken = [&](const Device& device) { return device.number == number; };
  while (std::any_of(Own().begin(), Own().end(), taken)) ++number;
  Own().push_back({number, alias, header});
  return {.text = std::to_string(number)};
}

// status ALIAS ITEM
MediaReply DeskMedia::Status(const Words& words) {
  if (EqualNoCase(words[1], kAll)) return {.error = media_error::kNotForAll};
  const Device* const device = Find(words[1]);
  if (!device) return {.error = media_error::kNotOpen};
  if (words.size() == 2) return {.error = media_error::kMissingParameter};
  std::string asked = words[2];
  for (std::size_t i = 3; i < words.size(); ++i) asked += ' ' + words[i];
  for (const Item& item : kItems)
    if (EqualNoCase(item.words, asked)) return {.text = item.answer(device->header)};
  return {.error = media_error::kUnknownParameter};
}

// close ALIAS
MediaReply DeskMedia::Close(const Words& words) {
  if (words.size() > 2) return {.error = media_error::kUnknownParameter};
  if (EqualNoCase(words[1], kAll)) {
    Own().clear();
    return {};
  }
  const auto gone = std::erase_if(
      Own(), [&](const Device& device) { return EqualNoCase(device.alias, words[1]); });
  return {.error = gone ? 0 : media_error::kNotOpen};
}

}  // namespace corvel::desk
