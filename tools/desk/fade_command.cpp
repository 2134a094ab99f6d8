#include "tools/desk/fade_command.h"

#include "base/text.h"
#include "fader/modFade.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace corvel::tools {
namespace {

constexpr int kRefused = 2;

// What the user is told before the command ends with kRefused.
struct Refusal : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct Options {
  FadeSettings fade;
  std::optional<std::int16_t> number;
  std::size_t colors = 2;  // how many were given
  bool lines = false;
  std::string page;  // none if empty
};

template <typename Number>
Number ParsedNumber(std::string_view option, std::string_view text) {
  Number value{};
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (failure != std::errc{} || end != text.data() + text.size())
    throw Refusal(std::string(option) + ": \"" + std::string(text) +
                  "\" is not a whole number of " + std::to_string(8 * sizeof value) + " bits");
  return value;
}

void TakeColors(Options& options, const std::string& list) {
  FadeSettings& fade = options.fade;
  const std::array colors = {&fade.One, &fade.Two, &fade.Three, &fade.Four, &fade.Five, &fade.Six};
  for (ColorValue* color : colors) *color = 0;
  options.colors = 0;
  for (std::size_t at = 0; at <= list.size();) {
    const std::size_t comma = std::min(list.find(',', at), list.size());
    if (options.colors == colors.size()) throw Refusal("--colors: more than six colours");
    *colors[options.colors++] =
        ParsedNumber<ColorValue>("--colors", std::string_view(list).substr(at, comma - at));
    at = comma + 1;
  }
}

struct Option {
  std::string_view name;
  bool takesValue;
  void (*apply)(Options& options, const std::string& value);
};

constexpr Option kOptions[] = {
    {"--number", true,
     [](Options& o, const std::string& v) {
       o.number = ParsedNumber<std::int16_t>("--number", v);
     }},
    {"--colors", true, TakeColors},
    {"--solid", false, [](Options& o, const std::string&) { o.fade.SolidFade = true; }},
    {"--wavy", false, [](Options& o, const std::string&) { o.fade.Wavy = true; }},
    {"--bold", false, [](Options& o, const std::string&) { o.fade.Bold = true; }},
    {"--italic", false, [](Options& o, const std::string&) { o.fade.Italic = true; }},
    {"--uline", false, [](Options& o, const std::string&) { o.fade.ULine = true; }},
    {"--lines", false, [](Options& o, const std::string&) { o.lines = true; }},
    {"--html", true, [](Options& o, const std::string& v) { o.page = v; }},
};

const Option& OptionNamed(std::string_view name) {
  for (const Option& option : kOptions)
    if (option.name == name) return option;
  throw Refusal("unknown option \"" + std::string(name) + "\"");
}

Options ParsedOptions(std::span<const std::string> args) {
  Options options;
  for (std::size_t i = 0; i < args.size(); ++i) {
    const Option& option = OptionNamed(args[i]);
    if (option.takesValue && (i + 1 == args.size() || args[i + 1].empty()))
      throw Refusal(args[i] + ": a value is missing");
    option.apply(options, option.takesValue ? args[++i] : std::string());
  }
  options.fade.FadeNumber = options.number.value_or(static_cast<std::int16_t>(options.colors));
  return options;
}

struct Text {
  std::string text, end;  // what is faded, and what is written behind it
};

std::vector<Text> LinesOf(const std::string& input) {
  std::vector<Text> lines;
  for (std::size_t at = 0; at < input.size();) {
    const std::size_t end = std::min(input.find('\n', at), input.size());
    lines.push_back({input.substr(at, end - at), "\n"});
    at = end + 1;
  }
  return lines;
}

// What a shell's echo puts behind the text isn't meant.
Text WithoutLineEnd(const std::string& input) {
  std::size_t end = input.size();
  if (input.ends_with('\n')) end -= input.ends_with("\r\n") ? 2 : 1;
  return {input.substr(0, end), input.substr(end)};
}

// The characters that mean something to a browser, each with a stand-in that is not a blank and has
// no look of its own, so that a text can be faded first and made safe for the page afterwards.
struct PageCharacter {
  char plain, standIn;
  std::string_view entity;
};
constexpr PageCharacter kPageCharacters[] = {
    {'<', '\x01', "&lt;"}, {'>', '\x02', "&gt;"}, {'&', '\x03', "&amp;"}};

std::string WithStandIns(std::string text) {
  for (char& c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 32 && c != '\t' && c != '\n' && c != '\r') c = '?';  // nothing that a page may hold
    for (const PageCharacter& special : kPageCharacters)
      if (c == special.plain) c = special.standIn;
  }
  return text;
}

// A browser would nest the engine's colours, which are never closed, by the thousand; so each one
// is closed where the next begins. The look is the same.
std::string Paragraph(const std::string& faded) {
  constexpr std::string_view kEnd = "</FONT>";
  std::string html = Replaced(faded, "<FONT COLOR=#", "</FONT><FONT COLOR=#");
  if (const auto first = html.find(kEnd); first != html.npos) html.erase(first, kEnd.size());
  for (const PageCharacter& special : kPageCharacters)
    html = Replaced(html, std::string_view(&special.standIn, 1), special.entity);
  return "<p>" + html + "</p>\n";
}

std::string Page(const std::vector<Text>& texts, const FadeSettings& settings) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"windows-1252\">\n<title>Fade</title>\n"
      "<style>body { font: 16px Arial, sans-serif; background: white }\n"
      "p { white-space: pre-wrap; overflow-wrap: anywhere; margin: 0 }</style>\n";
  Fader fader(settings);
  for (const Text& text : texts) {
    std::string faded = WithStandIns(text.text);
    page += Paragraph(fader.FadeEngine(faded));
  }
  return page + "</html>\n";
}

void WritePage(const std::string& path, const std::string& page) {
  std::ofstream file(path, std::ios::binary);
  file << page << std::flush;
  if (!file) throw Refusal("cannot write the page \"" + path + "\"");
}

// By read(), which tells a failure of the file under the stream by the stream's state; the
// iterators of the buffer would throw it.
std::string ReadAll(std::istream& input) {
  std::string text;
  std::array<char, 65536> piece;
  do {
    input.read(piece.data(), piece.size());
    text.append(piece.data(), static_cast<std::size_t>(input.gcount()));
  } while (input);
  if (input.bad()) throw Refusal("cannot read the input");
  return text;
}

void Fade(const Options& options, std::istream& input, std::ostream& output) {
  const std::string all = ReadAll(input);
  const auto texts = options.lines ? LinesOf(all) : std::vector<Text>{WithoutLineEnd(all)};
  if (!options.page.empty()) WritePage(options.page, Page(texts, options.fade));
  Fader fader(options.fade);
  for (Text text : texts) output << fader.FadeEngine(text.text) << text.end;
  output.flush();
  if (!output) throw Refusal("cannot write the output");
}

}  // namespace

int RunFade(std::span<const std::string> args, std::istream& input, std::ostream& output,
            std::ostream& error) {
  try {
    Fade(ParsedOptions(args), input, output);
    return 0;
  } catch (const Refusal& refusal) {
    error << "corvel-desk fade: " << refusal.what() << '\n';
    return kRefused;
  }
}

int RunFade(std::span<const std::string> args) {
  std::ios::sync_with_stdio(false);
  return RunFade(args, std::cin, std::cout, std::cerr);
}

}  // namespace corvel::tools
