// The keyboard on a form: who has the focus next, and what comes of a key that the control with the
// focus has no use for. Rules on the states alone, so that they are the same on every home; the
// peers ask, and do what is answered.
//
// The controls of a form are given in the order of their making. Those in a container that hangs in
// a window of another process have a keyboard of their own: the focus goes round there, and neither
// leaves it nor comes there by a key.
#pragma once

#include "platform/peers.h"

#include <vector>

namespace corvel {

using ControlStates = std::vector<const ControlState*>;

bool CanHaveFocus(ControlKind kind);
bool IsButton(ControlKind kind);  // of any sort, check boxes and options too
// Visible and enabled, and each container that it stands in enabled too.
bool IsUsable(const ControlState& control);
// The container that hangs elsewhere and that this one is, or stands in; nullptr: none.
const ControlState* HungWith(const ControlState& control);

// Where the Tab key stops, in order, among what hangs with `hung`. Of a group of options it is only
// one: the chosen one, else the first.
ControlStates TabStops(const ControlStates& controls, const ControlState* hung);
// Who has the focus when the form comes up, or nullptr. The first stop; but where that is a mere
// button, the default one: Enter presses the button that has the focus.
const ControlState* FirstFocus(const ControlStates& controls);
// Who has it when this one is about to be out of reach, or nullptr.
const ControlState* FocusBehind(const ControlStates& controls, const ControlState& leaving);

struct KeyDeed {
  enum class Kind {
    kNone,    // the key goes on to the window that has the focus
    kUsedUp,  // it doesn't, and nothing comes of it
    kFocus,   // the control gets the focus
    kClick,   // that too where it can have it, and it is clicked
  };
  Kind kind = Kind::kNone;
  const ControlState* control = nullptr;
};
// With no control focused the key is the form's own. `backward`: with Shift.
KeyDeed DeedOfKey(const ControlStates& controls, const ControlState* focused, Key key,
                  bool backward);
// An access key, case ignored. Of several controls that have it, it means the next one behind the
// focus; a label passes it on to the control behind it.
KeyDeed DeedOfLetter(const ControlStates& controls, const ControlState* focused, char letter);

}  // namespace corvel
