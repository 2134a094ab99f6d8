// Containers: bare windows that other controls, and windows of other processes, stand in. See
// win32_control_peer.h for how they hang elsewhere.
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"
#include "platform/win32/win32_mouse_grip.h"

#include <algorithm>
#include <iterator>

namespace corvel::win32 {
namespace {

// What the system's controls tell the window that they stand in; the form answers it.
constexpr UINT kToldByControls[] = {WM_COMMAND, WM_NOTIFY, WM_CTLCOLORSTATIC, WM_CTLCOLORBTN};

class Container : public GripControl {
 public:
  using GripControl::GripControl;

 protected:
  WindowKind Kind() const override { return {kControlClass, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}; }
  void Show(Aspect aspect, int row) override {
    GripControl::Show(aspect, row);
    if (aspect == Aspect::kPlace) InvalidateRect(Hwnd(), nullptr, TRUE);
  }
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override {
    const bool told = std::find(std::begin(kToldByControls), std::end(kToldByControls), id) !=
                      std::end(kToldByControls);
    if (told && Form() && Form()->Hwnd()) return SendMessageA(Form()->Hwnd(), id, wParam, lParam);
    if (id == WM_ERASEBKGND) return Erase(reinterpret_cast<HDC>(wParam)), 1;
    if ((id == WM_MOVE || id == WM_SIZE) && !IsUpdating()) return TellPlace(), 0;
    return GripControl::OnMessage(id, wParam, lParam);
  }
  void OnLoss() override { Events().WindowLost(); }

 private:
  void Erase(HDC dc) const {
    RECT area{};
    GetClientRect(Hwnd(), &area);
    Fill(dc, area, Form() ? Form()->Ground() : GetSysColor(COLOR_3DFACE));
  }
  void TellPlace() {
    RECT area{};
    GetWindowRect(Hwnd(), &area);
    MapWindowPoints(nullptr, GetParent(Hwnd()), reinterpret_cast<POINT*>(&area), 2);
    const Rect place{static_cast<int>(area.left), static_cast<int>(area.top), WidthOf(area),
                     HeightOf(area)};
    if (place != State().place) Calls([&](ControlEvents& events) { events.WindowPlaced(place); });
  }
};

}  // namespace

std::unique_ptr<Win32Control> MakeContainer(Win32Form& form, const ControlState& state,
                                            ControlEvents& events) {
  return std::make_unique<Container>(form, state, events);
}

}  // namespace corvel::win32
