#include "wavlib/wav_printing.h"

#include "core/dialogs.h"
#include "core/report_error.h"
#include "core/settings_wavs.h"
#include "wavlib/list_output.h"
#include "wavlib/wav_descriptions.h"

namespace corvel {
namespace {

constexpr std::size_t kNamesALine = 5;
constexpr std::size_t kZone = 14;

std::string MailLine(const DescriptionIndex& descriptions, const std::string& name) {
  const std::string text = descriptions.Find(name);
  return name + " <I>" + (text.empty() ? "No description available." : text) + "</I>\r\n";
}

}  // namespace

std::vector<std::string> PrintedLines(const std::vector<std::string>& names, bool oneEach) {
  if (oneEach) return names;
  std::vector<std::string> lines;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i % kNamesALine == 0) {
      lines.push_back(names[i]);
      continue;
    }
    std::string& line = lines.back();
    line.append(kZone - line.size() % kZone, ' ').append(names[i]);
  }
  return lines;
}

void PrintToPrinter(Program& program, const WavListing& listing) {
  const auto font = AskRowFont(program);
  if (!font) return;
  const bool oneEach = program.settings.WavList.PrintsOneALine;
  const auto lines = PrintedLines(listing.names, oneEach);
  Print(program, "Wav List for Catgory: " + listing.category, [&](PrintJob& job) {
    for (const std::string& line : lines) job.Line(line, *font);
  });
}

void PrintToEMail(Program& program, AolClient& client, const WavListing& listing) {
  const std::string& user = program.g.CurrentSN;
  const DescriptionIndex descriptions = ReadDescriptions(program);
  std::string body = MailHead(user, "<B>Wavs in Category:</B>  <I>" + listing.category + "</I>");
  for (const std::string& name : listing.names) body += MailLine(descriptions, name);
  ComposeMail(program, client, user + "'s Wav List", body.append(kMailEnd));
}

void PrintToFile(Program& program, const WavListing& listing) {
  const std::string path = AskTextFile(program, "Wav List", "Wavs");
  if (path.empty()) return;
  const bool describe = AskYesNo(program, "Add any available descriptions with wavs to this file?");
  const DescriptionIndex descriptions = ReadDescriptions(program);
  std::string text;
  for (const std::string& name : listing.names) {
    const std::string description = describe ? descriptions.Find(name) : std::string();
    text += name + (description.empty() ? "" : " - " + description) + "\r\n";
  }
  Reported(program, {"frmTabs", "PrintToFile"}, [&] { program.platform.files.Write(path, text); });
}

}  // namespace corvel
