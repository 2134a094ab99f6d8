#include "forms/layout.h"

#include "base/text.h"
#include "forms/container.h"

#include <algorithm>
#include <utility>

namespace corvel::forms {
namespace {

// How a control's natural size is made up: from its caption, or from so many characters and lines;
// and what its borders, boxes and arrows take around the text, in pixels.
struct Rule {
  bool byCaption;
  int columns, lines;
  Size around;
  bool fillsHeight;  // of a row
};

constexpr Rule RuleOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
      return {true, 0, 1, {0, 0}, false};
    case ControlKind::kButton:
      return {true, 0, 1, {18, 10}, false};
    case ControlKind::kFlatButton:
      return {true, 0, 1, {14, 10}, false};
    case ControlKind::kTextBox:
      return {false, 20, 1, {8, 8}, false};
    case ControlKind::kCheckBox:
    case ControlKind::kOptionButton:
      return {true, 0, 1, {20, 4}, false};
    case ControlKind::kListBox:
      return {false, 20, 6, {24, 6}, true};
    case ControlKind::kComboBox:
      return {false, 16, 1, {26, 8}, false};
    case ControlKind::kListView:
      return {false, 40, 9, {24, 10}, true};
    case ControlKind::kTabStrip:
      return {false, 20, 1, {4, 10}, false};
    case ControlKind::kProgressBar:
      return {false, 20, 1, {4, 4}, false};
    case ControlKind::kPicture:
      return {false, 20, 5, {0, 0}, true};
    case ControlKind::kFrame:
      return {true, 0, 1, {16, 8}, true};
    case ControlKind::kContainer:
      return {false, 20, 5, {0, 0}, true};
  }
  return {};
}

constexpr Size kIconSize{32, 32};
constexpr int kPopupArrowWidth = 12;
constexpr int kTabAround = 16;       // left and right of a tab's caption
constexpr int kTabImage = 20;        // a picture beside it
constexpr int kNearlyAsHigh = 4;     // pixels: a row's buttons and edits become equally high
constexpr int kWrappedColumns = 40;  // of a wrapping label without a width of its own

bool IsOneOf(ControlKind kind, std::initializer_list<ControlKind> kinds) {
  return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

// The dialog font, and distances in proportion to it: a quarter of the average character's width
// and an eighth of a line's height are the system's dialog units.
struct Metrics {
  explicit Metrics(Display& display) : display(display) {
    constexpr std::string_view kAlphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const Size extent = display.TextExtent(kAlphabet, {});
    character = std::max((extent.width + 26) / 52, 1);
    line = std::max(extent.height, 1);
  }
  int Across(int units) const { return (units * character + 2) / 4; }
  int Down(int units) const { return (units * line + 4) / 8; }

  Display& display;
  int character, line;
};

std::string Shown(const ControlState& state, std::string_view text) {
  return state.mnemonic ? PlainCaption(text) : std::string(text);
}

Size CaptionExtent(const ControlState& state, const Metrics& metrics) {
  Size extent{0, 0};
  for (const std::string_view line : Lines(state.text)) {
    const Size size = metrics.display.TextExtent(Shown(state, line), state.font);
    extent = {std::max(extent.width, size.width), extent.height + metrics.line};
  }
  return {extent.width, std::max(extent.height, metrics.line)};
}

// The lines that a label's text takes when it is broken at blanks.
int WrappedLines(const ControlState& state, int width, const Metrics& metrics) {
  int lines = 0;
  for (std::string_view rest : Lines(state.text)) {
    int x = 0;
    ++lines;
    while (!rest.empty()) {
      const auto blank = rest.find(' ');
      const std::string_view word = rest.substr(0, blank);
      const int wordWidth = metrics.display.TextExtent(Shown(state, word), state.font).width;
      if (x > 0 && x + wordWidth > width) ++lines, x = 0;
      x += wordWidth + metrics.display.TextExtent(" ", state.font).width;
      rest.remove_prefix(blank == rest.npos ? rest.size() : blank + 1);
    }
  }
  return std::max(lines, 1);
}

Size RunsExtent(const std::vector<TextRun>& runs, const Metrics& metrics) {
  Size extent{0, 0};
  for (const TextRun& run : runs) {
    const Size size = metrics.display.TextExtent(run.text, run.style);
    extent = {std::max(extent.width, run.x + size.width),
              std::max(extent.height, run.y + size.height)};
  }
  return extent;
}

int TabsWidth(const ControlState& state, const Metrics& metrics) {
  int width = 0;
  for (const std::string& caption : state.items)
    width += metrics.display.TextExtent(caption, state.font).width + kTabAround +
             (state.images.empty() ? 0 : kTabImage);
  return width;
}

int NaturalWidth(const ControlState& state, const Metrics& metrics) {
  const Rule rule = RuleOf(state.kind);
  if (state.kind == ControlKind::kTabStrip && !state.items.empty())
    return TabsWidth(state, metrics) + rule.around.width;
  if (state.kind == ControlKind::kLabel && state.wordWrap)
    return kWrappedColumns * metrics.character;
  if (state.kind == ControlKind::kPicture && state.picture == Picture::kTextRuns)
    return RunsExtent(state.runs, metrics).width;
  if (!rule.byCaption) return rule.columns * metrics.character + rule.around.width;
  int width = CaptionExtent(state, metrics).width + rule.around.width;
  if (state.popupArrow) width += kPopupArrowWidth;
  if (state.kind == ControlKind::kButton) width = std::max({width, metrics.Across(50), 75});
  return width;
}

int NaturalHeight(const ControlState& state, int width, const Metrics& metrics) {
  const Rule rule = RuleOf(state.kind);
  if (state.kind == ControlKind::kPicture && state.picture == Picture::kTextRuns)
    return RunsExtent(state.runs, metrics).height;
  if (state.kind == ControlKind::kLabel && state.wordWrap)
    return WrappedLines(state, width, metrics) * metrics.line;
  if (rule.byCaption) return CaptionExtent(state, metrics).height + rule.around.height;
  return rule.lines * metrics.line + rule.around.height;
}

bool IsIcon(const ControlState& state) {
  return state.kind == ControlKind::kPicture &&
         !(state.picture == Picture::kNone || state.picture == Picture::kTextRuns ||
           state.picture == Picture::kGradient);
}

Size CellSize(const Box& box, const Metrics& metrics) {
  const ControlState& state = box.control->State();
  const Rule rule = RuleOf(state.kind);
  if (IsIcon(state) && !box.columns && !box.lines) return kIconSize;
  Size size;
  size.width = box.columns > 0 ? box.columns * metrics.character + rule.around.width
                               : NaturalWidth(state, metrics);
  // A width that was asked for must not cut off what a button or a check box says.
  if (box.columns > 0 && rule.byCaption && state.kind != ControlKind::kLabel)
    size.width = std::max(size.width, NaturalWidth(state, metrics));
  size.height = box.lines > 0 ? box.lines * metrics.line + rule.around.height
                              : NaturalHeight(state, size.width, metrics);
  return size;
}

// A box with its natural size and what of its inside takes room.
struct Measured {
  const Box* box;
  Size size;
  std::vector<Measured> inside;

  bool IsSpace() const { return box->kind == Box::Kind::kSpace; }
};

class Layouter {
 public:
  explicit Layouter(const Metrics& metrics)
      : metrics_(metrics), gap_{metrics.Across(4), metrics.Down(4)} {}

  Measured Measure(const Box& box) const {
    Measured measured{&box, {}, {}};
    if (box.kind == Box::Kind::kCell) measured.size = CellSize(box, metrics_);
    for (const Box& inside : box.inside)
      if (box.kind == Box::Kind::kStack || TakesRoom(inside))
        measured.inside.push_back(Measure(inside));
    if (box.kind == Box::Kind::kRow)
      measured.size = SizeOfLine(measured.inside, true);
    else if (box.kind == Box::Kind::kColumn)
      measured.size = SizeOfLine(measured.inside, false);
    else
      for (const Measured& page : measured.inside)
        measured.size = {std::max(measured.size.width, page.size.width),
                         std::max(measured.size.height, page.size.height)};
    if (box.kind == Box::Kind::kFramed) {
      measured.size = Grown(measured.size, FrameInset(box));
      measured.size.width =
          std::max(measured.size.width, NaturalWidth(box.control->State(), metrics_));
    }
    return measured;
  }

  void Place(const Measured& measured, const Rect& place) const {
    switch (measured.box->kind) {
      case Box::Kind::kCell:
        return measured.box->control->SetPlace(place);
      case Box::Kind::kContained:  // which places what is inside
        return static_cast<Container*>(measured.box->control)->PlaceAtHome(place);
      case Box::Kind::kRow:
        return PlaceLine(measured, place, true);
      case Box::Kind::kColumn:
        return PlaceLine(measured, place, false);
      case Box::Kind::kFramed:
        measured.box->control->SetPlace(place);
        [[fallthrough]];
      case Box::Kind::kStack:
      case Box::Kind::kSpace:
        for (const Measured& inside : measured.inside)
          Place(inside, Shrunk(place, FrameInset(*measured.box)));
    }
  }

 private:
  struct Inset {
    int left = 0, top = 0, right = 0, bottom = 0;
  };

  static bool TakesRoom(const Box& box) {
    if (box.control) return box.control->OwnVisible();
    return box.kind == Box::Kind::kSpace || box.kind == Box::Kind::kStack ||
           std::any_of(box.inside.begin(), box.inside.end(), [](const Box& inside) {
             return inside.kind != Box::Kind::kSpace && TakesRoom(inside);
           });
  }

  Inset FrameInset(const Box& box) const {
    if (box.kind != Box::Kind::kFramed) return {};
    const int across = metrics_.Across(6), down = metrics_.Down(5);
    const bool caption = !box.control->State().text.empty();
    return {across, caption ? metrics_.line + metrics_.Down(2) : down, across, down};
  }

  static Size Grown(Size size, const Inset& inset) {
    return {size.width + inset.left + inset.right, size.height + inset.top + inset.bottom};
  }

  static Rect Shrunk(const Rect& place, const Inset& inset) {
    return {place.left + inset.left, place.top + inset.top, place.width - inset.left - inset.right,
            place.height - inset.top - inset.bottom};
  }

  Size SizeOfLine(const std::vector<Measured>& boxes, bool across) const {
    int along = 0, aside = 0;
    bool first = true;
    for (const Measured& box : boxes) {
      if (box.IsSpace()) continue;
      if (!std::exchange(first, false)) along += across ? gap_.width : gap_.height;
      along += across ? box.size.width : box.size.height;
      aside = std::max(aside, across ? box.size.height : box.size.width);
    }
    return across ? Size{along, aside} : Size{aside, along};
  }

  void PlaceLine(const Measured& line, const Rect& place, bool across) const {
    int left = across ? place.width - line.size.width : place.height - line.size.height;
    auto takers = std::count_if(line.inside.begin(), line.inside.end(),
                                [](const Measured& box) { return box.box->stretch; });
    int at = across ? place.left : place.top;
    bool first = true;
    for (const Measured& box : line.inside) {
      int length = across ? box.size.width : box.size.height;
      if (box.box->stretch) {
        const int share = left / static_cast<int>(takers--);
        left -= share;
        length += share;
      }
      if (!box.IsSpace() && !std::exchange(first, false)) at += across ? gap_.width : gap_.height;
      Place(box, across ? InRow(box, {at, place.top, length, place.height})
                        : Rect{place.left, at, place.width, length});
      at += length;
    }
  }

  // What is one line high keeps its height in a row, in the middle; buttons and edits that are
  // nearly as high as the row become so.
  Rect InRow(const Measured& box, Rect place) const {
    if (box.box->kind != Box::Kind::kCell) return place;
    const ControlKind kind = box.box->control->State().kind;
    const int spare = place.height - box.size.height;
    if (RuleOf(kind).fillsHeight && !IsIcon(box.box->control->State())) return place;
    if (spare <= kNearlyAsHigh &&
        IsOneOf(kind, {ControlKind::kButton, ControlKind::kFlatButton, ControlKind::kTextBox}))
      return place;
    return {place.left, place.top + spare / 2, place.width, box.size.height};
  }

  const Metrics& metrics_;
  Size gap_;
};

void NumberTabs(const Box& box, int& next) {
  if (box.control) box.control->SetTabOrder(next++);
  for (const Box& inside : box.inside) NumberTabs(inside, next);
}

void HoldAll(Frame& frame, const Box& box) {
  if (box.control) frame.Hold(*box.control);
  if (box.kind == Box::Kind::kFramed || box.kind == Box::Kind::kContained) return;  // these hold it
  for (const Box& inside : box.inside) HoldAll(frame, inside);
}

Box Group(Box::Kind kind, std::vector<Box> boxes) {
  Box box;
  box.kind = kind;
  box.inside = std::move(boxes);
  return box;
}

}  // namespace

Box Cell(Control& control, int columns, int lines) {
  Box box;
  box.kind = Box::Kind::kCell;
  box.control = &control;
  box.columns = columns;
  box.lines = lines;
  return box;
}

Box Stretch(Box box) {
  box.stretch = true;
  return box;
}

Box Space() { return Stretch({}); }
Box Row(std::initializer_list<Box> boxes) { return Group(Box::Kind::kRow, boxes); }
Box Column(std::initializer_list<Box> boxes) { return Group(Box::Kind::kColumn, boxes); }
Box Row(std::vector<Box> boxes) { return Group(Box::Kind::kRow, std::move(boxes)); }
Box Column(std::vector<Box> boxes) { return Group(Box::Kind::kColumn, std::move(boxes)); }
Box Stack(std::vector<Box> pages) { return Group(Box::Kind::kStack, std::move(pages)); }

Box Framed(Frame& frame, Box inside) {
  HoldAll(frame, inside);
  Box box = Group(Box::Kind::kFramed, {std::move(inside)});
  box.control = &frame;
  return box;
}

Box Contained(Container& container, Box inside) {
  container.SetContent(inside);
  Box box = Group(Box::Kind::kContained, {std::move(inside)});
  box.control = &container;
  return box;
}

void FitControls(const Box& content, Display& display, Size room) {
  const Metrics metrics(display);
  const Layouter layouter(metrics);
  const Measured measured = layouter.Measure(content);
  layouter.Place(measured, {0, 0, std::max(measured.size.width, room.width),
                            std::max(measured.size.height, room.height)});
}

Size PlaceControls(const Box& content, Display& display, Size room) {
  const Metrics metrics(display);
  const Layouter layouter(metrics);
  const Size margin{metrics.Across(7), metrics.Down(7)};
  const Measured measured = layouter.Measure(content);
  const Size client{std::max(measured.size.width + 2 * margin.width, room.width),
                    std::max(measured.size.height + 2 * margin.height, room.height)};
  layouter.Place(measured, {margin.width, margin.height, client.width - 2 * margin.width,
                            client.height - 2 * margin.height});
  int nextTab = 0;
  NumberTabs(content, nextTab);
  return client;
}

}  // namespace corvel::forms
