// The text of a profile file. A look-up touches each line once and allocates nothing, since files
// of descriptions are read anew for every name.
#include "platform/desk/profile_text.h"

#include "base/cp1252.h"
#include "base/text.h"

#include <cstring>

namespace corvel::desk {
namespace {

constexpr auto kNowhere = std::string_view::npos;

bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view OneLine(std::string_view text) {
  return text.substr(0, text.find_first_of(std::string_view("\r\n\0", 3)));
}

// Walks over the lines, without their line ends.
class LineWalker {
 public:
  explicit LineWalker(std::string_view text) : text_(text) {}
  bool Next() {
    if (next_ >= text_.size()) return false;
    begin_ = next_;
    const void* end = std::memchr(text_.data() + begin_, '\n', text_.size() - begin_);
    const std::size_t lineFeed =
        end ? static_cast<std::size_t>(static_cast<const char*>(end) - text_.data()) : kNowhere;
    next_ = end ? lineFeed + 1 : text_.size();
    line_ = text_.substr(begin_, (end ? lineFeed : next_) - begin_);
    while (!line_.empty() && line_.back() == '\r') line_.remove_suffix(1);
    return true;
  }
  std::string_view Line() const { return line_; }
  std::size_t Begin() const { return begin_; }
  std::size_t End() const { return next_; }  // behind the line end
  std::size_t EndOfContent() const { return begin_ + line_.size(); }

 private:
  std::string_view text_, line_;
  std::size_t begin_ = 0, next_ = 0;
};

std::string_view WithoutLeadingBlanks(std::string_view line) {
  while (!line.empty() && IsBlank(line.front())) line.remove_prefix(1);
  return line;
}

std::optional<std::string_view> SectionName(std::string_view line) {
  line = WithoutLeadingBlanks(line);
  if (line.empty() || line.front() != '[') return std::nullopt;
  const auto end = line.rfind(']');
  if (end == kNowhere) return std::nullopt;
  return Trimmed(line.substr(1, end - 1));
}

// From the back, since the names of one file often begin alike.
bool SameName(std::string_view a, std::string_view b) {
  for (std::size_t i = a.size(); i-- > 0;)
    if (a[i] != b[i] && LowerChar(a[i]) != LowerChar(b[i])) return false;
  return true;
}

// Where a line's value begins, if the line is this key's. The key is compared from the front of the
// line and not with all before the first '=', so that a key may hold that sign.
std::optional<std::size_t> ValueBegin(std::string_view line, std::string_view key) {
  std::size_t at = 0;
  while (at < line.size() && IsBlank(line[at])) ++at;
  if (line.size() - at <= key.size() || line[at] == ';') return std::nullopt;
  const char behind = line[at + key.size()];  // tells most other keys apart at once
  if ((behind != '=' && !IsBlank(behind)) || !SameName(line.substr(at, key.size()), key))
    return std::nullopt;
  at += key.size();
  while (at < line.size() && IsBlank(line[at])) ++at;
  if (at == line.size() || line[at] != '=') return std::nullopt;
  return at + 1;
}

struct Place {
  std::size_t lineBegin, valueBegin, contentEnd, lineEnd;
};

struct Found {
  std::optional<Place> key;
  bool hasSection = false;
  std::size_t sectionEnd = 0;  // behind the section's last line that isn't empty
};

Found Look(std::string_view text, std::string_view section, std::string_view key) {
  Found found;
  for (LineWalker walker(text); walker.Next();) {
    if (const auto name = SectionName(walker.Line())) {
      if (found.hasSection) return found;
      if (!EqualNoCase(*name, section)) continue;
      found.hasSection = true;
      found.sectionEnd = walker.End();
    } else if (found.hasSection) {
      if (const auto value = ValueBegin(walker.Line(), key)) {
        found.key =
            Place{walker.Begin(), walker.Begin() + *value, walker.EndOfContent(), walker.End()};
        return found;
      }
      if (!WithoutLeadingBlanks(walker.Line()).empty()) found.sectionEnd = walker.End();
    }
  }
  return found;
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string Joined(std::string_view a, std::string_view b, std::string_view c) {
  std::string all;
  all.reserve(a.size() + b.size() + c.size());
  return all.append(a).append(b).append(c);
}

// `lines` put in at `at`, where a line begins, or at the end of a last line without a line end.
std::string WithLines(std::string_view text, std::size_t at, std::string lines) {
  if (at > 0 && text[at - 1] != '\n') lines.insert(0, "\r\n");
  return Joined(text.substr(0, at), lines, text.substr(at));
}

}  // namespace

std::string ProfilePath(std::string_view path, std::string_view windowsFolder) {
  const bool bare = path.find_first_of("\\/:") == std::string_view::npos;
  return bare ? std::string(windowsFolder) + "\\" + std::string(path) : std::string(path);
}

std::optional<std::string_view> ProfileValue(std::string_view text, std::string_view section,
                                             std::string_view key) {
  const auto place = Look(text, Trimmed(OneLine(section)), Trimmed(OneLine(key))).key;
  if (!place) return std::nullopt;
  std::string_view value = text.substr(place->valueBegin, place->contentEnd - place->valueBegin);
  value = Trimmed(value.substr(0, value.find('\0')));
  return WithoutQuotes(value);
}

std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::optional<std::string_view> value) {
  section = Trimmed(OneLine(section));
  key = Trimmed(OneLine(key));
  const Found found = Look(text, section, key);
  if (!value) {
    if (!found.key) return std::string(text);
    return Joined(text.substr(0, found.key->lineBegin), "", text.substr(found.key->lineEnd));
  }
  const std::string_view newValue = OneLine(*value);
  if (found.key)
    return Joined(text.substr(0, found.key->valueBegin), newValue,
                  text.substr(found.key->contentEnd));
  std::string line = Joined(key, "=", newValue) + "\r\n";
  if (found.hasSection) return WithLines(text, found.sectionEnd, std::move(line));
  return WithLines(text, text.size(), Joined("[", section, "]\r\n") + line);
}

}  // namespace corvel::desk
