// The small pictures at rows of list views and tab strips: an arrow for what hasn't been read, the
// same in grey for what has.
#pragma once

#include "platform/peers.h"

#include <cstddef>
#include <windows.h>

#include <commctrl.h>  // behind windows.h, which it needs

namespace corvel::win32 {

// Drawn at the first call and kept for the rest of the process: no control owns it.
HIMAGELIST RowPictures();

// The index of the row's picture in that list, or -1.
inline int PictureOf(const ControlState& state, std::size_t row) {
  return row < state.images.size() ? state.images[row] - 1 : -1;
}

}  // namespace corvel::win32
