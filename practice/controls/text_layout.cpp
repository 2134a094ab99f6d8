#include "practice/controls/text_layout.h"

#include <algorithm>

namespace corvel::practice {

namespace {

constexpr int kTabStop = 24, kNarrowestTab = 6;

int TabWidth(int x) { return (x + kNarrowestTab + kTabStop - 1) / kTabStop * kTabStop - x; }

}  // namespace

// Takes one visible character after the other.
class TextLayout::Builder {
 public:
  Builder(TextLayout& layout, std::string_view text, int width, const CharacterWidths* widths)
      : layout_(layout), text_(text), width_(width), widths_(widths) {
    layout_.lines_.emplace_back();
  }

  void Take(std::size_t position, const TextLook& look) {
    const char character = text_[position];
    if (character == '\n' && position > 0 && text_[position - 1] == '\r') {
      layout_.lines_.back().start = position + 1;
      return;
    }
    if (character == '\r' || character == '\n') return EndLine(position);
    const int width = character == '\t' ? TabWidth(x_) : widths_->Of(character, look);
    if (width_ > 0 && x_ + width > width_ && x_ > 0 && character != ' ') Wrap(position);
    Add(position, width, look);
    if (character == ' ' || character == '\t') wordStart_ = layout_.spots_.size();
  }
  void Finish() {
    layout_.spots_.push_back({text_.size(), x_, 0, layout_.lines_.size() - 1});
    layout_.lines_.back().end = text_.size();
  }

 private:
  void Add(std::size_t position, int width, const TextLook& look) {
    layout_.spots_.push_back({position, x_, width, layout_.lines_.size() - 1});
    looks_.push_back(look);
    AddToPieces(position, look);
    x_ += width;
  }

  void AddToPieces(std::size_t position, const TextLook& look) {
    if (text_[position] == '\t') return;
    auto& pieces = layout_.lines_.back().pieces;
    const bool joins = !pieces.empty() && pieces.back().look == look &&
                       pieces.back().start + pieces.back().length == position;
    if (joins)
      ++pieces.back().length;
    else
      pieces.push_back({position, 1, x_, look});
  }

  void EndLine(std::size_t position) {
    layout_.spots_.push_back({position, x_, 0, layout_.lines_.size() - 1});
    looks_.emplace_back();
    layout_.lines_.back().end = position;
    BeginLine(position + 1);
    lineStart_ = wordStart_ = layout_.spots_.size();
  }

  void BeginLine(std::size_t position) {
    layout_.lines_.push_back({position, position});
    x_ = 0;
  }

  // The word that has begun goes into a line of its own; one that fills the line is broken here.
  void Wrap(std::size_t position) {
    auto& spots = layout_.spots_;
    if (wordStart_ == lineStart_ || wordStart_ > spots.size()) wordStart_ = spots.size();
    const std::vector<Spot> moved(spots.begin() + static_cast<std::ptrdiff_t>(wordStart_),
                                  spots.end());
    const std::vector<TextLook> looks(looks_.begin() + static_cast<std::ptrdiff_t>(wordStart_),
                                      looks_.end());
    spots.resize(wordStart_);
    looks_.resize(wordStart_);
    const std::size_t start = moved.empty() ? position : moved.front().position;
    CutPieces(start);
    layout_.lines_.back().end = start;
    BeginLine(start);
    lineStart_ = wordStart_;
    for (std::size_t i = 0; i < moved.size(); ++i) Add(moved[i].position, moved[i].width, looks[i]);
  }

  void CutPieces(std::size_t end) {
    auto& pieces = layout_.lines_.back().pieces;
    while (!pieces.empty() && pieces.back().start >= end) pieces.pop_back();
    if (!pieces.empty())
      pieces.back().length = std::min(pieces.back().length, end - pieces.back().start);
  }

  TextLayout& layout_;
  std::string_view text_;
  int width_;
  const CharacterWidths* widths_;
  int x_ = 0;
  std::vector<TextLook> looks_;                // of the spots
  std::size_t lineStart_ = 0, wordStart_ = 0;  // spots
};

TextLayout::TextLayout(std::string_view text, const std::vector<LookRun>& runs, int width,
                       const CharacterWidths* widths) {
  Builder builder(*this, text, width, widths);
  for (const LookRun& run : runs)
    for (std::size_t at = run.start; at < run.start + run.length && at < text.size(); ++at)
      builder.Take(at, run.look);
  builder.Finish();
}

std::size_t TextLayout::LineOf(std::size_t position) const {
  const auto spot =
      std::lower_bound(spots_.begin(), spots_.end(), position,
                       [](const Spot& each, std::size_t sought) { return each.position < sought; });
  return spot == spots_.end() ? lines_.size() - 1 : spot->line;
}

int TextLayout::XOf(std::size_t position) const {
  const auto spot =
      std::lower_bound(spots_.begin(), spots_.end(), position,
                       [](const Spot& each, std::size_t sought) { return each.position < sought; });
  return spot == spots_.end() ? 0 : spot->x;
}

std::size_t TextLayout::At(std::size_t line, int x) const {
  line = std::min(line, lines_.size() - 1);
  std::size_t last = lines_[line].start;
  for (const Spot& spot : spots_) {
    if (spot.line < line) continue;
    if (spot.line > line) break;
    last = spot.position;
    if (x < spot.x + (spot.width + 1) / 2) break;
  }
  return last;
}

std::size_t TextLayout::After(std::size_t position) const {
  for (const Spot& spot : spots_)
    if (spot.position > position) return spot.position;
  return spots_.back().position;
}

std::size_t TextLayout::Before(std::size_t position) const {
  std::size_t before = 0;
  bool any = false;
  for (const Spot& spot : spots_) {
    if (spot.position >= position) break;
    before = spot.position;
    any = true;
  }
  return any ? before : std::min(position, spots_.front().position);
}

}  // namespace corvel::practice
