// Layout by rows and columns: a form says which control stands beside or below which, and how wide
// in characters or how tall in lines it wants to be; the pixels come from the platform's font.
#pragma once

#include "platform/display.h"

#include <initializer_list>
#include <vector>

namespace corvel::forms {

class Container;
class Control;
class Frame;

class Box {
 public:
  enum class Kind { kCell, kRow, kColumn, kSpace, kStack, kFramed, kContained };

  Kind kind = Kind::kSpace;
  Control* control = nullptr;
  int columns = 0;       // wanted width in average characters; 0: the control's natural width
  int lines = 0;         // wanted height in text lines; 0: natural
  bool stretch = false;  // takes what is left over along its row or column
  std::vector<Box> inside;
};

// A control at its natural size, or at so many characters and lines.
Box Cell(Control& control, int columns = 0, int lines = 0);
Box Stretch(Box box);                       // gives a cell or space the rest of its row or column
Box Space();                                // stretching empty room
Box Row(std::initializer_list<Box> boxes);  // left to right, same height, even gaps
Box Column(std::initializer_list<Box> boxes);  // top to bottom, same width, even gaps
Box Row(std::vector<Box> boxes);
Box Column(std::vector<Box> boxes);
// Pages that stand in the same place, one shown at a time: as large as the largest, hidden ones
// counted, so that the window keeps its size when the page is turned.
Box Stack(std::vector<Box> pages);
// A frame around a box, with a margin and room for the frame's caption if it has one. The frame
// holds the controls inside: they are seen only while it is.
Box Framed(Frame& frame, Box inside);

// A container around a box without any margin: its controls stand in the container's window, and
// are placed anew whenever that has another size.
Box Contained(Container& container, Box inside);

// Places all controls of `content` in the whole of `room`, which has its corner at 0, 0; what needs
// more than that is cut off by it.
void FitControls(const Box& content, Display& display, Size room);

// Places all controls of `content` with even margins in at least `room` and gives the client size
// used, never more than is needed for both. Controls hidden by themselves (not by their frame) take
// no room. Tab order follows the order of the boxes.
//
// Lists, pictures and frames fill the height of their row; what is one line high keeps its own
// height and stands in the middle. In a column everything has the column's width.
Size PlaceControls(const Box& content, Display& display, Size room = {});

}  // namespace corvel::forms
