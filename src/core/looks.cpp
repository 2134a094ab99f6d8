#include "core/looks.h"

#include "core/settings_shell.h"

#include <optional>

namespace corvel {

namespace {

constexpr Color kSystemFace = static_cast<Color>(0x8000000F);
constexpr Color kSystemHilight = static_cast<Color>(0x80000014);
constexpr Color kSystemButtonText = static_cast<Color>(0x80000012);
constexpr Color kSystemHighlightBack = static_cast<Color>(0x8000000D);

// The colours of a window and its buttons. Where the second face isn't set, a button keeps its own.
struct Look {
  Color window, face;
  std::optional<Color> secondFace;
  Color caption, highlight;
};

Look LookOf(const Program& program) {
  const auto& colors = program.settings.UserColors;
  const HouseColors& house = program.g.houseColors;
  switch (program.g.UIMode) {
    case 1:
      return {house.window, house.face, house.secondFace, 0xFFFFFF, kSystemHighlightBack};
    case 2:
      return {colors.WindowColor, colors.ButtonForecolor, std::nullopt, colors.ButtonText,
              colors.ButtonHighlight};
    default:
      return {kSystemFace, kSystemFace, kSystemHilight, kSystemButtonText, kSystemHilight};
  }
}

}  // namespace

void SetFormColor(Program& program, forms::Form& form) {
  form.SetBackColor(LookOf(program).window);
}

void SetButtonColor(Program& program, bool lit, forms::FlatButton& button) {
  const Look look = LookOf(program);
  ButtonLook colors = button.State().look;
  colors.highlight = look.highlight;
  colors.shadow = program.settings.UserColors.UseShadow;
  if (lit) {
    colors.face = 192;
    colors.secondFace = 255;
    colors.caption = 0xFFFFFF;
  } else {
    colors.face = look.face;
    colors.secondFace = look.secondFace.value_or(colors.secondFace);
    colors.caption = look.caption;
  }
  button.SetLook(colors);
}

}  // namespace corvel
