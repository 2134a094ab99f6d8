// MarkedPicture: a picture that shows a marked-up text.
#pragma once

#include "forms/control.h"
#include "platform/display.h"

#include <string_view>

namespace corvel {

class MarkedPicture : public forms::PictureBox {
 public:
  using PictureBox::PictureBox;
  // Sets the text in lines of at most `columns` average characters; the picture's natural size is
  // then that of the text, however long. The state's text keeps the mark-up as it was given, the
  // accessible name says it without.
  void SetMarkedText(Display& display, std::string_view marked, int columns);
};

}  // namespace corvel
