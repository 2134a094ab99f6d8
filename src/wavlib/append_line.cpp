#include "wavlib/append_line.h"

namespace corvel {

void AppendLine(Program& program, std::string_view path, std::string_view line) {
  Files& files = program.platform.files;
  std::string bytes = std::string(line) + "\r\n";
  if (files.Exists(path)) {
    const std::string old = files.Read(path);
    if (!old.empty() && old.back() != '\n' && old.back() != '\r') bytes.insert(0, "\r\n");
  }
  files.Append(path, bytes);
}

}  // namespace corvel
