#include "platform/win32/win32_row_pictures.h"

#include "platform/win32/win32_drawing.h"

#include <iterator>

namespace corvel::win32 {
namespace {

constexpr int kSide = 16;                        // pixels
constexpr COLORREF kThrough = RGB(255, 0, 255);  // where nothing is drawn

struct ArrowColors {
  COLORREF edge, face;
};
// In the order of row_image, from 1 on.
constexpr ArrowColors kArrows[row_image::kCount] = {{RGB(96, 0, 0), RGB(255, 0, 0)},
                                                    {RGB(96, 96, 96), RGB(192, 192, 192)}};

void DrawArrow(HDC dc, const ArrowColors& colors) {
  constexpr POINT kOutline[] = {{1, 5}, {7, 5}, {7, 1}, {14, 8}, {7, 15}, {7, 11}, {1, 11}};
  const Brush face(colors.face);
  const HPEN pen = CreatePen(PS_SOLID, 1, colors.edge);
  {
    const Selected filled(dc, face.Get()), outlined(dc, pen);
    Polygon(dc, kOutline, static_cast<int>(std::size(kOutline)));
  }
  DeleteObject(pen);
}

void AddArrow(HIMAGELIST list, const WindowDc& screen, const ArrowColors& colors) {
  const HDC dc = CreateCompatibleDC(screen.Get());
  const HBITMAP bitmap = CreateCompatibleBitmap(screen.Get(), kSide, kSide);
  {
    const Selected surface(dc, bitmap);
    Fill(dc, {0, 0, kSide, kSide}, kThrough);
    DrawArrow(dc, colors);
  }
  ImageList_AddMasked(list, bitmap, kThrough);
  DeleteObject(bitmap);
  DeleteDC(dc);
}

}  // namespace

HIMAGELIST RowPictures() {
  static HIMAGELIST list = nullptr;
  if (list) return list;
  list = ImageList_Create(kSide, kSide, ILC_COLORDDB | ILC_MASK, row_image::kCount, 0);
  const WindowDc screen(nullptr);
  for (const ArrowColors& colors : kArrows) AddArrow(list, screen, colors);
  return list;
}

}  // namespace corvel::win32
