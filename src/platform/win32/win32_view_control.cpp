// The common controls: list view, tab strip, progress bar.
#include "base/text.h"
#include "platform/win32/win32_control_peer.h"
#include "platform/win32/win32_drawing.h"
#include "platform/win32/win32_form_peer.h"
#include "platform/win32/win32_row_pictures.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace corvel::win32 {
namespace {

// The part of a row that stands in this column.
std::string_view CellOf(std::string_view row, int column) {
  for (; column > 0; --column) {
    const auto tab = row.find('\t');
    if (tab == row.npos) return {};
    row.remove_prefix(tab + 1);
  }
  return row.substr(0, row.find('\t'));
}

// --- List view -----------------------------------------------------------------------------------

// Holds no rows of its own: it asks for the texts that it is about to show.
class ListView : public Win32Control {
 public:
  using Win32Control::Win32Control;

  LRESULT OnNotify(NMHDR& notice) override {
    switch (notice.code) {
      case LVN_GETDISPINFOA:
        GiveRow(reinterpret_cast<NMLVDISPINFOA&>(notice).item);
        break;
      case LVN_ODFINDITEMA:
        return Find(reinterpret_cast<NMLVFINDITEMA&>(notice));
      case LVN_ITEMCHANGED:
      case NM_CLICK:
        OnSelected(notice.code != LVN_ITEMCHANGED);
        break;
      case NM_DBLCLK:
        PostNotice(kDoubleClicked);
        break;
      default:
        break;
    }
    return 0;
  }

 protected:
  WindowKind Kind() const override {
    return {"SysListView32",
            LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER |
                LVS_SHAREIMAGELISTS,
            WS_EX_CLIENTEDGE};
  }
  void Show(Aspect aspect, int row) override {
    if (aspect == Aspect::kAll) {
      Send(LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
      AddColumns();
    }
    const bool rows = aspect == Aspect::kAll || aspect == Aspect::kItems ||
                      aspect == Aspect::kItemInserted || aspect == Aspect::kItemRemoved;
    if (rows && !State().images.empty())
      Send(LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(RowPictures()));
    if (rows) {
      Send(LVM_SETITEMCOUNT, State().items.size());
      InvalidateRect(Hwnd(), nullptr, TRUE);
    }
    Win32Control::Show(aspect, row);
    if (rows || aspect == Aspect::kPlace) SizeColumns();
    if (rows || aspect == Aspect::kSelection) ShowSelection();
  }
  void OnNotice(int code) override {
    if (code == kDoubleClicked) {
      Calls([](ControlEvents& events) { events.UserDoubleClick(); });
      return;
    }
    noticed_ = false;
    Calls([row = Current()](ControlEvents& events) { events.UserSelect(row, false); });
  }
  std::optional<LRESULT> OnMessage(UINT id, WPARAM wParam, LPARAM lParam) override {
    if (id == WM_LBUTTONDOWN) told_ = false;
    return Win32Control::OnMessage(id, wParam, lParam);
  }

 private:
  static constexpr int kSelected = 1, kDoubleClicked = 2;

  // A click on the row that is current already changes nothing, and yet is one.
  void OnSelected(bool byClick) {
    if (IsUpdating() || (byClick ? told_ : Current() == State().selected)) return;
    told_ = !byClick;
    if (!std::exchange(noticed_, true)) PostNotice(kSelected);
  }
  int Current() const {
    return static_cast<int>(Send(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
  }
  void Mark(int row) {
    LVITEMA item{};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    if (row < 0) item.stateMask = LVIS_SELECTED;  // of all rows; the caret stays
    item.state = row < 0 ? 0 : item.stateMask;
    Send(LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    if (row >= 0) Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  }
  void ShowSelection() {
    if (Current() != State().selected) Mark(State().selected);
  }

  void GiveRow(LVITEMA& item) const {
    const auto row = static_cast<std::size_t>(item.iItem);
    if (item.mask & LVIF_IMAGE) item.iImage = PictureOf(State(), row);
    if (!(item.mask & LVIF_TEXT) || item.cchTextMax <= 0) return;
    const std::string_view text =
        row < State().items.size() ? CellOf(State().items[row], item.iSubItem) : "";
    const auto taken = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    item.pszText[text.copy(item.pszText, taken)] = '\0';
  }
  // The row that begins with what the user has typed, from iStart and round to the beginning.
  LRESULT Find(const NMLVFINDITEMA& wanted) const {
    if (!(wanted.lvfi.flags & LVFI_STRING) || !wanted.lvfi.psz) return -1;
    const std::string_view text = wanted.lvfi.psz;
    const int count = static_cast<int>(State().items.size());
    for (int step = 0; step < count; ++step) {
      const int row = (std::max(wanted.iStart, 0) + step) % count;
      const std::string_view item = State().items[static_cast<std::size_t>(row)];
      if (EqualNoCase(item.substr(0, text.size()), text)) return row;
    }
    return -1;
  }

  void AddColumns() {
    for (std::size_t i = 0; i < State().columns.size(); ++i) {
      LVCOLUMNA column{};
      column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
      column.pszText = const_cast<char*>(State().columns[i].c_str());
      column.iSubItem = static_cast<int>(i);
      Send(LVM_INSERTCOLUMNA, i, reinterpret_cast<LPARAM>(&column));
    }
  }
  // Each column as wide as its texts, as far as the first rows tell, up to half of the view; the
  // last one takes the rest.
  void SizeColumns() {
    if (!Form() || State().columns.empty()) return;
    const int view =
        State().place.width - 2 * GetSystemMetrics(SM_CXEDGE) - GetSystemMetrics(SM_CXVSCROLL);
    const int last = static_cast<int>(State().columns.size()) - 1;
    int rest = view;
    for (int column = 0; column < last; ++column) {
      const int width = std::min(TextWidth(column), view / 2);
      Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
      rest -= width;
    }
    Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(last), MAKELPARAM(std::max(rest, 1), 0));
  }
  int TextWidth(int column) const {
    constexpr std::size_t kRowsMeasured = 200;
    constexpr int kAround = 24;
    const auto widthOf = [this](std::string_view text) {
      return Form()->Fonts().Extent(text, State().font).width + kAround;
    };
    int width = std::max(widthOf(State().columns[static_cast<std::size_t>(column)]), 90);
    for (std::size_t row = 0; row < std::min(State().items.size(), kRowsMeasured); ++row)
      width = std::max(width, widthOf(CellOf(State().items[row], column)));
    return width;
  }

  bool told_ = false;     // the toolkit has been told of this click's row
  bool noticed_ = false;  // a notice of the selection is on its way
};

// --- Tab strip -----------------------------------------------------------------------------------

class TabStrip : public Win32Control {
 public:
  using Win32Control::Win32Control;

  LRESULT OnNotify(NMHDR& notice) override {
    if (notice.code == TCN_SELCHANGE && !IsUpdating()) PostNotice(0);
    return 0;
  }

 protected:
  WindowKind Kind() const override { return {"SysTabControl32"}; }
  void Show(Aspect aspect, int row) override {
    if (!State().images.empty()) Send(TCM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(RowPictures()));
    const auto at = static_cast<WPARAM>(row);
    if (aspect == Aspect::kItemInserted)
      Put(TCM_INSERTITEMA, at);
    else if (aspect == Aspect::kItemRemoved)
      Send(TCM_DELETEITEM, at);
    else if (aspect == Aspect::kItems && row >= 0)
      Put(TCM_SETITEMA, at);
    else if (aspect == Aspect::kAll || aspect == Aspect::kItems)
      Refill();
    Win32Control::Show(aspect, row);
    Send(TCM_SETCURSEL, static_cast<WPARAM>(State().selected));
  }
  void OnNotice(int) override {
    const int row = static_cast<int>(Send(TCM_GETCURSEL));
    Calls([row](ControlEvents& events) { events.UserSelect(row, false); });
  }

 private:
  void Refill() {
    Send(TCM_DELETEALLITEMS);
    for (WPARAM row = 0; row < State().items.size(); ++row) Put(TCM_INSERTITEMA, row);
  }
  void Put(UINT order, WPARAM row) const {
    std::string caption = Replaced(State().items[row], "&", "&&");  // it is no access key
    TCITEMA item{};
    item.mask = TCIF_TEXT | TCIF_IMAGE;
    item.pszText = caption.data();
    item.iImage = PictureOf(State(), row);
    Send(order, row, reinterpret_cast<LPARAM>(&item));
  }
};

// --- Progress bar --------------------------------------------------------------------------------

class ProgressBar : public Win32Control {
 public:
  using Win32Control::Win32Control;

 protected:
  WindowKind Kind() const override { return {"msctls_progress32"}; }
  void Show(Aspect aspect, int row) override {
    if (aspect == Aspect::kAll || aspect == Aspect::kLook) Send(PBM_SETRANGE32, 0, State().maximum);
    if (aspect == Aspect::kAll || aspect == Aspect::kValue || aspect == Aspect::kLook)
      Send(PBM_SETPOS, static_cast<WPARAM>(State().value));
    Win32Control::Show(aspect, row);
    if (aspect == Aspect::kValue) UpdateWindow(Hwnd());
  }
};

}  // namespace

std::unique_ptr<Win32Control> MakeListView(Win32Form& form, const ControlState& state,
                                           ControlEvents& events) {
  return std::make_unique<ListView>(form, state, events);
}

std::unique_ptr<Win32Control> MakeTabStrip(Win32Form& form, const ControlState& state,
                                           ControlEvents& events) {
  return std::make_unique<TabStrip>(form, state, events);
}

std::unique_ptr<Win32Control> MakeProgressBar(Win32Form& form, const ControlState& state,
                                              ControlEvents& events) {
  return std::make_unique<ProgressBar>(form, state, events);
}

}  // namespace corvel::win32
