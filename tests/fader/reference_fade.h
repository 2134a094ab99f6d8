// A plain fade engine: character by character, in double precision, with no thought for speed. The
// tests, the fuzzer and the benchmark hold the fast one against it. It needs a target whose double
// arithmetic is exactly double, as 64-bit ones have.
#pragma once

#include "core/fade_settings.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

namespace corvel {

static_assert(FLT_EVAL_METHOD == 0, "extra precision would give other values");

inline int ReferenceChannel(int from, int to, int length, int i) {
  const int difference = to - from;
  double value = static_cast<double>(difference) / length;
  value = value * i;
  value = value + from;
  return static_cast<int>(std::nearbyint(value));
}

class ReferenceFader {
 public:
  std::function<void()> yield = [] {};

  std::string Engine(const std::string& text, const FadeSettings& s) {
    std::vector<ColorValue> colors{s.One, s.Two, s.Three, s.Four, s.Five, s.Six};
    if (s.FadeNumber < 1 || s.FadeNumber > 6 || (s.SolidFade.bits != -1 && s.SolidFade.bits != 0))
      return Styled(text, s);
    colors.resize(static_cast<std::size_t>(s.FadeNumber));
    if (colors.size() == 1) return Styled(OneColor(text, colors[0], s.Wavy), s);
    return Styled(
        s.SolidFade.bits == 0 ? Gradient(text, colors, s.Wavy) : Cycle(text, colors, s.Wavy), s);
  }

 private:
  static std::string Styled(std::string text, const FadeSettings& s) {
    if (text.empty()) return text;
    if (s.Bold) text = "<B>" + text + "</B>";
    if (s.Italic) text = "<I>" + text + "</I>";
    if (s.ULine) text = "<U>" + text + "</U>";
    return text;
  }

  static std::string Tag(int red, int green, int blue) {
    char tag[32];
    std::snprintf(tag, sizeof tag, "<FONT COLOR=#%02X%02X%02X>", static_cast<unsigned>(red),
                  static_cast<unsigned>(green), static_cast<unsigned>(blue));
    const std::string text = tag;
    return text == "<FONT COLOR=#FFFFFF>" ? "<FONT COLOR=#FBFBFB>" : text;
  }

  struct Rgb {
    int red, green, blue;
  };

  static Rgb Apart(ColorValue color) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%06X", static_cast<unsigned>(color));
    const std::string hex = digits;
    const auto number = [](const std::string& two) {
      return static_cast<int>(std::strtol(two.c_str(), nullptr, 16));
    };
    return {number(hex.substr(hex.size() - 2)), number(hex.substr(2, 2)), number(hex.substr(0, 2))};
  }

  std::string Wave(bool wavy) {
    static const char* const kTags[] = {"", "<sup>", "</sup>", "<sub>", "</sub>"};
    if (step_ == 5) step_ = 1;
    return wavy ? kTags[step_++] : (++step_, "");
  }

  std::string Segment(const std::string& text, Rgb from, Rgb to, bool wavy) {
    std::string out;
    const int length = static_cast<int>(text.size());
    for (int i = 1; i <= length; ++i) {
      const char c = text[static_cast<std::size_t>(i - 1)];
      if (c == ' ') {
        out += c;
        continue;
      }
      out += Tag(ReferenceChannel(from.red, to.red, length, i),
                 ReferenceChannel(from.green, to.green, length, i),
                 ReferenceChannel(from.blue, to.blue, length, i));
      out += Wave(wavy) + c;
    }
    return out;
  }

  std::vector<std::size_t> Deal(std::size_t length, std::size_t segments) {
    if (segments == 1) return {length};
    if (segments == 2) {
      const auto left = static_cast<std::size_t>(std::nearbyint(static_cast<double>(length) / 2));
      return {left, length - left};
    }
    std::vector<std::size_t> lengths(segments);
    for (auto rest = static_cast<long>(length);;) {
      yield();
      for (std::size_t& part : lengths) {
        ++part;
        if (--rest < 1) return lengths;
      }
    }
  }

  std::string Gradient(const std::string& text, const std::vector<ColorValue>& colors, bool wavy) {
    step_ = 2;
    std::string out;
    std::size_t at = 0;
    const auto lengths = Deal(text.size(), colors.size() - 1);
    for (std::size_t s = 0; s < lengths.size(); ++s) {
      out += Segment(text.substr(at, lengths[s]), Apart(colors[s]), Apart(colors[s + 1]), wavy);
      at += lengths[s];
      if (at > text.size()) at = text.size();
    }
    return out;
  }

  std::string Cycle(const std::string& text, const std::vector<ColorValue>& colors, bool wavy) {
    std::string out;
    std::size_t index = 0;
    for (const char c : text) {
      if (c != ' ') {
        const Rgb color = Apart(colors[index++ % colors.size()]);
        out += Tag(color.red, color.green, color.blue) + Wave(wavy);
      }
      out += c;
    }
    return out;
  }

  std::string OneColor(const std::string& text, ColorValue one, bool wavy) {
    const Rgb color = Apart(one);
    std::string out = Tag(color.red, color.green, color.blue);
    for (const char c : text) {
      if (c != ' ') out += Wave(wavy);
      out += c;
    }
    return out;
  }

  int step_ = 0;
};

}  // namespace corvel
