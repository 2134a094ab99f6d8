#include "tools/audit/audit.h"

#include "base/text.h"
#include "tools/audit/pe_file.h"

namespace corvel::audit {
namespace {

constexpr Version kNewest{4, 0};  // what Windows 95 takes

std::string TextOf(const Version& version) {
  return std::to_string(version.major) + "." + std::to_string(version.minor);
}

void CheckHeader(const PeFile& file, std::vector<std::string>& complaints) {
  if (file.machine != kMachine386) complaints.push_back("is not built for the i386");
  if (file.system > kNewest)
    complaints.push_back("wants system version " + TextOf(file.system) + ", above 4.0");
  if (file.subsystem > kNewest)
    complaints.push_back("wants subsystem version " + TextOf(file.subsystem) + ", above 4.0");
  if (file.loaderBits & kMovable) complaints.push_back("has the bit for random addresses (ASLR)");
  if (file.loaderBits & kNoExecute) complaints.push_back("has the bit for data execution (NX)");
  if (file.hasDelayedImports) complaints.push_back("has delayed imports, which nobody checks");
}

void CheckImport(const Import& import, const Allowed& allowed,
                 std::vector<std::string>& complaints) {
  if (import.name.empty()) {
    complaints.push_back("imports number " + std::to_string(import.ordinal) + " of " +
                         import.library + ", which may be another function elsewhere");
    return;
  }
  const std::string function = import.library + "!" + import.name;
  if (!allowed.ownLibraries.contains(import.library) && !allowed.functions.contains(function))
    complaints.push_back("imports " + function + ", which is not in the list");
}

}  // namespace

std::set<std::string> ReadList(std::string_view text) {
  std::set<std::string> functions;
  for (std::string_view line : Lines(text)) {
    line = line.substr(0, line.find_first_of("# \t"));
    const auto mark = line.find('!');
    if (mark != std::string_view::npos)
      functions.insert(Lower(line.substr(0, mark)) + std::string(line.substr(mark)));
  }
  return functions;
}

std::vector<std::string> Complaints(std::string_view program, const Allowed& allowed) {
  std::vector<std::string> complaints;
  try {
    const PeFile file = ReadPeFile(program);
    CheckHeader(file, complaints);
    for (const Import& import : file.imports) CheckImport(import, allowed, complaints);
  } catch (const BadProgram& error) {
    complaints.push_back(error.what());
  }
  return complaints;
}

}  // namespace corvel::audit
