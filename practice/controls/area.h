// The space of a window that is being laid out: parts are cut off its edges, one after the other.
#pragma once

#include "platform/window_types.h"

#include <algorithm>

namespace corvel::practice {

class Area {
 public:
  // `line` is the height of a line of text, from which the sizes of controls are made.
  Area(Size inside, int line)
      : left_(kGap),
        top_(kGap),
        right_(inside.width - kGap),
        bottom_(inside.height - kGap),
        line_(line) {}

  int line() const { return line_; }
  int control() const { return line_ + 8; }  // the height of a button, an edit or a combo box

  Rect Top(int height) {
    const int to = std::min(top_ + height, bottom_);
    const Rect part = Between(left_, top_, right_, to);
    top_ = std::min(to + kGap, bottom_);
    return part;
  }
  Rect Bottom(int height) {
    const int from = std::max(bottom_ - height, top_);
    const Rect part = Between(left_, from, right_, bottom_);
    bottom_ = std::max(from - kGap, top_);
    return part;
  }
  Rect Left(int width) {
    const int to = std::min(left_ + width, right_);
    const Rect part = Between(left_, top_, to, bottom_);
    left_ = std::min(to + kGap, right_);
    return part;
  }
  Rect Right(int width) {
    const int from = std::max(right_ - width, left_);
    const Rect part = Between(from, top_, right_, bottom_);
    right_ = std::max(from - kGap, left_);
    return part;
  }
  Rect Rest() const { return Between(left_, top_, right_, bottom_); }
  // A strip as a space of its own.
  Area Within(const Rect& strip) const {
    Area area = *this;
    area.left_ = strip.left;
    area.top_ = strip.top;
    area.right_ = strip.left + strip.width;
    area.bottom_ = strip.top + strip.height;
    return area;
  }

 private:
  static constexpr int kGap = 6;
  static Rect Between(int left, int top, int right, int bottom) {
    return {left, top, std::max(right - left, 0), std::max(bottom - top, 0)};
  }
  int left_, top_, right_, bottom_, line_;
};

}  // namespace corvel::practice
