#include "practice/controls/simple_layout.h"

#include "base/text.h"
#include "practice/controls/window_host.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace corvel::practice {
namespace {

enum class Kind { kRow, kPicture, kButton, kRest };

struct KindRow {
  std::string_view className;
  Kind kind;
};

constexpr KindRow kKinds[] = {
    {"_AOL_STATIC", Kind::kRow},    {"_AOL_EDIT", Kind::kRow},      {"_AOL_COMBOBOX", Kind::kRow},
    {"_AOL_GAUGE", Kind::kRow},     {"_AOL_FONTCOMBO", Kind::kRow}, {"_AOL_CHECKBOX", Kind::kRow},
    {"_AOL_GLYPH", Kind::kPicture}, {"_AOL_ICON", Kind::kButton},   {"_AOL_BUTTON", Kind::kButton},
    {"RICHCNTL", Kind::kRest},      {"_AOL_LISTBOX", Kind::kRest},  {"_AOL_VIEW", Kind::kRest},
};

Kind KindOf(std::string_view className) {
  for (const KindRow& row : kKinds)
    if (EqualNoCase(row.className, className)) return row.kind;
  return Kind::kRow;
}

std::string FaceOf(WindowHost& host, Window button) {
  return host.windows().SendForText(button, wm::kGetText, 0, 100);
}

int ButtonWidth(WindowHost& host, Window button) {
  constexpr int kSides = 24, kNarrowest = 60;
  const int text = host.platform().display.TextExtent(FaceOf(host, button), {}).width;
  return std::max(text + kSides, kNarrowest);
}

}  // namespace

void ArrangeSimply(WindowHost& host, Window parent, Area area) {
  constexpr int kPicture = 40;
  WindowSystem& windows = host.windows();
  std::vector<Window> rows, buttons, rest;
  for (Window child = windows.TopChild(parent); child; child = windows.Next(child)) {
    const Kind kind = KindOf(windows.ClassOf(child));
    if (kind == Kind::kPicture) host.Put(child, area.Left(kPicture));
    if (kind == Kind::kRow) rows.push_back(child);
    if (kind == Kind::kButton && !FaceOf(host, child).empty()) buttons.push_back(child);
    if (kind == Kind::kRest) rest.push_back(child);
  }
  if (!buttons.empty()) {
    Area strip = area.Within(area.Bottom(area.control()));
    for (const Window button : buttons) host.Put(button, strip.Left(ButtonWidth(host, button)));
  }
  for (const Window row : rows) host.Put(row, area.Top(area.control()));
  const Rect room = area.Rest();
  for (std::size_t i = 0; i < rest.size(); ++i)
    host.Put(rest[i], i + 1 == rest.size() ? area.Rest()
                                           : area.Left(room.width / static_cast<int>(rest.size())));
}

void ArrangeBox(WindowHost& host, Window box, Size inside) {
  ArrangeSimply(host, box, Area(inside, host.LineHeight()));
}

}  // namespace corvel::practice
