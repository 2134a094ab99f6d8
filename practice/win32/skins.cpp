// Which class of window has which skin.
#include "base/text.h"
#include "practice/controls/text_box.h"
#include "practice/win32/list_skin.h"
#include "practice/win32/plain_skins.h"
#include "practice/win32/text_skin.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace corvel::practice {
namespace {

using Made = std::shared_ptr<Skin>;
using Fonts = win32::DialogFonts;

template <class T>
Made Plain(WindowProcedure& inner, Fonts& fonts) {
  return std::make_shared<T>(inner, fonts);
}
template <int systemColor>
Made Ground(WindowProcedure& inner, Fonts& fonts) {
  return std::make_shared<GroundSkin>(systemColor, inner, fonts);
}
Made DocumentOf(WindowProcedure& inner, Fonts& fonts) {
  return std::make_shared<DocumentSkin>(COLOR_BTNFACE, inner, fonts);
}
Made FrameOf(WindowProcedure& inner, Fonts& fonts) {
  return std::make_shared<FrameSkin>(COLOR_BTNFACE, inner, fonts);
}
Made Combo(WindowProcedure& inner, Fonts& fonts) {
  return std::make_shared<ComboSkin>(dynamic_cast<RowList*>(&inner), inner, fonts);
}

struct SkinRow {
  std::string_view className;
  Made (*make)(WindowProcedure&, Fonts&);
};

constexpr SkinRow kSkins[] = {
    {"_AOL_ICON", Plain<ButtonSkin>},
    {"_AOL_BUTTON", Plain<ButtonSkin>},
    {"_AOL_STATIC", Plain<LabelSkin>},
    {"_AOL_CHECKBOX", Plain<CheckSkin>},
    {"_AOL_GAUGE", Plain<GaugeSkin>},
    {"_AOL_GLYPH", Plain<GlyphSkin>},
    {"_AOL_COMBOBOX", Combo},
    {"_AOL_FONTCOMBO", Combo},
    {"AOL Frame25", FrameOf},
    {"AOL Child", DocumentOf},
    {"MDIClient", Ground<COLOR_APPWORKSPACE>},
};

}  // namespace

std::shared_ptr<Skin> MakeSkin(const NewWindow& plan, WindowProcedure& procedure, Fonts& fonts) {
  if (auto* box = dynamic_cast<TextBox*>(&procedure))
    return std::make_shared<TextSkin>(*box, procedure, fonts);
  for (const SkinRow& row : kSkins)
    if (EqualNoCase(row.className, plan.className)) return row.make(procedure, fonts);
  if (auto* list = dynamic_cast<RowList*>(&procedure))
    return std::make_shared<ListSkin>(*list, procedure, fonts);
  return Ground<COLOR_BTNFACE>(procedure, fonts);
}

}  // namespace corvel::practice
