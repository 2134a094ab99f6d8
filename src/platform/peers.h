// Peers: what stands on the screen for a form and its controls.
//
// The toolkit above (forms/) holds the state of every form and control; a peer shows it and tells
// what the user does with it. On Windows a peer is a system control or our own drawing; on the desk
// it is a desk window, and nothing is drawn. So a peer never keeps state that the toolkit doesn't
// have, and no user action exists that isn't a method of ControlEvents or FormEvents.
#pragma once

#include "platform/window_types.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvel {

enum class ControlKind {
  kLabel,
  kButton,      // the system's push button
  kFlatButton,  // drawn by us in one of the three looks
  kTextBox,
  kCheckBox,
  kOptionButton,
  kListBox,
  kComboBox,  // a drop-down list without an edit box
  kListView,  // report view; the columns of a row are parted by TAB
  kTabStrip,
  kProgressBar,
  kPicture,  // marked-up text runs, an icon, or the gradient
  kFrame,
  kContainer,  // a window of its own that other controls stand in, and windows of other processes
};

// A colour as the system takes it: 0x00BBGGRR, or 0x800000nn for a named system colour.
using Color = std::int32_t;

struct FontStyle {
  bool bold = false, italic = false, underline = false;
  Color color = static_cast<Color>(0x80000012);  // the system's button text
  friend bool operator==(const FontStyle&, const FontStyle&) = default;
};

// A piece of text at a fixed place of a picture, in the picture's pixels.
struct TextRun {
  std::string text;
  int x = 0, y = 0;
  FontStyle style;
};

enum class Picture {
  kNone,
  kTextRuns,
  kInformation,
  kExclamation,
  kQuestion,
  kStop,
  kGradient,
  kProgramIcon
};

// The colours of a flat button.
struct ButtonLook {
  Color face = static_cast<Color>(0x8000000F), secondFace = static_cast<Color>(0x80000014);
  Color caption = static_cast<Color>(0x80000012), highlight = static_cast<Color>(0x80000014);
  bool shadow = true;
};

// The small pictures at rows of list views and tab strips.
namespace row_image {
inline constexpr int kNone = 0, kUnread = 1, kRead = 2;
inline constexpr int kCount = 2;
}  // namespace row_image

// All that a peer shows of a control. Owned and changed by the toolkit only.
struct ControlState {
  ControlKind kind = ControlKind::kLabel;
  std::string name;            // "cmdSend"
  int index = -1;              // its number in a row of like controls, or -1
  std::string text;            // caption, label, edit text
  std::string accessibleName;  // what a screen reader says where the caption says nothing
  std::string toolTip;
  bool enabled = true, visible = true;
  Rect place{};  // in the pixels of the window that it stands in
  int tabOrder = 0;
  const ControlState* container = nullptr;  // of the same form, that it stands in; else the form
  // Of a container: the window of another process that it hangs in just now, put there by
  // WindowSystem::SetParent; else 0.
  Window host{};
  bool dragsForm = false;  // a label: the left button on it drags the form, as a title bar does

  std::vector<std::string> items;  // rows of a list, combo, list view, tab strip
  std::vector<int> images;  // a row_image for each row of these two last; empty: none has one
  std::vector<std::string> columns;  // headings of a list view
  std::vector<bool> marked;          // selected rows of a list with multiple selection, else empty
  int selected = -1;                 // the current row
  bool sorted = false, multiSelect = false;

  int value = 0, maximum = 100;              // check state 0/1; bar value
  bool isDefault = false, isCancel = false;  // Enter and Escape press it, by UserKey
  bool wordWrap = false, alignCenter = false, multiLine = false, popupArrow = false;
  bool mnemonic = true;  // "&" in a caption marks the access key; else it is shown as it is
  int maxLength = 0;     // characters that the user can type into a text box; 0: any number

  Picture picture = Picture::kNone;
  std::vector<TextRun> runs;
  ButtonLook look{};
  FontStyle font{};
};

// "cmdSend", "Command1(1)".
inline std::string NameOf(const ControlState& state) {
  return state.index < 0 ? state.name : state.name + "(" + std::to_string(state.index) + ")";
}
inline bool HasRows(ControlKind kind) {
  return kind == ControlKind::kListBox || kind == ControlKind::kComboBox ||
         kind == ControlKind::kListView || kind == ControlKind::kTabStrip;
}
inline bool HasRow(const ControlState& state, int row) {
  return row >= 0 && static_cast<std::size_t>(row) < state.items.size();
}

enum class Key {
  kEnter,
  kEscape,
  kTab,
  kBackspace,
  kDelete,
  kUp,
  kDown,
  kLeft,
  kRight,
  kHome,
  kEnd,
  kSpace,
  kControlEnter,
  kOther
};

// What the user does at a control. The peer calls these; the control changes its state, shows that,
// and runs its event procedures. A disabled or hidden control gets none.
class ControlEvents {
 public:
  virtual ~ControlEvents() = default;
  virtual void UserClick() = 0;        // a button, check, option, label, picture, or bare container
  virtual void UserDoubleClick() = 0;  // on the current row of a list
  virtual void UserRightClick() = 0;   // on the current row of a list, or on a control
  virtual void UserSelect(int row, bool alsoKeepMarked) = 0;  // a row; keeping others marked (Ctrl)
  virtual void UserText(const std::string& text) = 0;         // the whole new text of a text box
  virtual bool UserKey(Key key) = 0;                          // true: used up
  // A container: another program has moved or sized its window. In its parent's pixels.
  virtual void WindowPlaced(const Rect& place) = 0;
  // A container: its window, with all in it, is being destroyed along with the window that it
  // stands in. In the midst of that: to be noted only.
  virtual void WindowLost() = 0;
};

enum class Aspect {
  kAll,
  kText,
  kEnabled,
  kVisible,
  kPlace,
  kParent,  // the container that it stands in
  kItems,
  kItemInserted,
  kItemRemoved,
  kSelection,
  kValue,
  kLook,
  kPicture,
  kToolTip
};

class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  // The state has changed in this aspect; `row` is the row inserted or removed, with kItems the
  // only row whose text has changed, with kSelection the only one whose mark has. -1: look at all.
  virtual void Changed(Aspect aspect, int row = -1) = 0;
  virtual void TakeFocus() = 0;
  virtual Window Handle() = 0;
};

struct FormState {
  std::string name;  // "frmTabs"
  std::string caption;
  Rect place{};  // outer, in screen pixels
  bool visible = false, enabled = true, topMost = false;
  bool border = true, resizable = false, closable = true, minimizable = false,
       showsInTaskbar = false;
  Color backColor = static_cast<Color>(0x8000000F);
  bool etchedEdge = false;  // the frame that DrawFormEdge gives a borderless window
  bool draggable = false;   // without a border: by one of its labels, and by the keys for moving
};

class FormEvents {
 public:
  virtual ~FormEvents() = default;
  virtual void UserClose() = 0;  // the frame's close box, Alt+F4
  virtual void UserMoved(int left, int top) = 0;
  virtual void UserResized(int width, int height) = 0;
  // A message to the form's own window that isn't one of the above: timers (kTimer with the id
  // given to EventLoop::StartTimer), posted values from kUser up, the tray's callback.
  virtual void OnMessage(MessageId id, WParam wParam, LParam lParam) = 0;
};

class FormPeer {
 public:
  virtual ~FormPeer() = default;  // destroys the window and what is left of its controls
  virtual void Changed(Aspect aspect) = 0;
  // Shows or hides by state.visible; showing takes the activation unless told not to.
  virtual void ApplyVisible(bool activate) = 0;
  virtual Window Handle() = 0;
  // The space that frame and title bar take: outer size minus client size.
  virtual Size FrameSize() = 0;
  // State and events must outlive the peer.
  virtual std::unique_ptr<ControlPeer> Add(const ControlState& state, ControlEvents& events) = 0;
};

class Peers {
 public:
  virtual ~Peers() = default;
  // A hidden window until ApplyVisible. State and events must outlive the peer.
  virtual std::unique_ptr<FormPeer> CreateForm(const FormState& state, FormEvents& events) = 0;
};

}  // namespace corvel
