// import_audit LIST FILE...: says why one of the files wouldn't load on Windows 95 and 98. A file
// may import anything of another that is named with it.
#include "base/text.h"
#include "tools/audit/audit.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

namespace {

std::optional<std::string> Contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

// False if it has something to complain of.
bool Check(const std::string& path, const corvel::audit::Allowed& allowed) {
  const auto bytes = Contents(path);
  const auto complaints = bytes ? corvel::audit::Complaints(*bytes, allowed)
                                : std::vector<std::string>{"can't be read"};
  for (const auto& complaint : complaints) std::cout << path << ": " << complaint << '\n';
  return complaints.empty();
}

}  // namespace

int main(int count, char** words) {
  const std::vector<std::string> arguments(words + 1, words + count);
  const auto list = arguments.size() < 2 ? std::nullopt : Contents(arguments[0]);
  if (!list) {
    std::cerr << "import_audit LIST FILE...\n";
    return 2;
  }
  corvel::audit::Allowed allowed{.functions = corvel::audit::ReadList(*list), .ownLibraries = {}};
  const std::vector<std::string> files(arguments.begin() + 1, arguments.end());
  for (const auto& file : files)
    allowed.ownLibraries.insert(corvel::Lower(file.substr(file.find_last_of("\\/") + 1)));
  bool good = true;
  for (const auto& file : files) good = Check(file, allowed) && good;
  return good ? 0 : 1;
}
