// The mark-up reader and the setting of lines: any bytes, at any width.
#include "forms/marked_text.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace corvel::forms;
  if (size == 0) return 0;
  const std::string_view marked(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::size_t printed = 0;
  const SetText set = SetMarkedText(marked, {data[0] * 4, 8, 3, 13},
                                    [](std::string_view text, const corvel::FontStyle& style) {
                                      return static_cast<int>(text.size()) * (style.bold ? 7 : 6);
                                    });
  for (const corvel::TextRun& run : set.runs) {
    printed += run.text.size();
    if (run.text.empty() || run.x < 0 || run.y + 13 > set.height) std::abort();
  }
  std::size_t plain = 0;
  for (const char c : PlainText(marked)) plain += c != '\n';
  if (printed != plain) std::abort();  // nothing is lost and nothing is made up
  return 0;
}
