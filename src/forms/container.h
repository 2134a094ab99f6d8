// Container: a window inside a form's window that other controls stand in.
//
// It arranges them by rows and columns of its own whenever it has another size, by whoever. It can
// hang in a window of another process, with all that is in it, and come back; and windows of other
// processes can stand in it, put there by WindowSystem::SetParent. Those belong to their processes:
// who puts them in gives them back, before the form is unloaded or the container changes its place
// for good, since a window goes with the one that it stands in.
//
// That holds for the container too: if the window that it hangs in goes, or that window's process,
// its windows go along. Nothing of its state does: behind that the windows are made anew, in the
// form, and onLost is raised. What other processes had in it is gone.
//
// While it hangs elsewhere its controls are seen, clicked and typed at as ever, also while the form
// itself is hidden. Their keyboard is their own then: Tab goes round among them.
#pragma once

#include "forms/control.h"
#include "forms/layout.h"

#include <functional>
#include <string>

namespace corvel::forms {

// The private message, to the form's window, by which a container with the number in wParam comes
// to itself again.
inline constexpr MessageId kContainerLost = wm::kUser + 0x301;

class Container : public Control {
 public:
  Container(Form& form, std::string name);

  // Of the window's size, `place` in the pixels of what it stands in; the controls inside are
  // arranged anew. While it hangs elsewhere the form's own layout leaves it alone.
  void SetPlace(const Rect& place) override;

  // Hangs it into a window of another process, from wherever it is. False, and nothing is changed,
  // if that window is gone or its process hangs.
  bool HangInto(Window host, const Rect& place);
  void ComeHome();                             // into the form, where it stood before
  Window Host() const { return state_.host; }  // 0 at home

  // Another program has given its window another size; its controls are arranged already.
  std::function<void()> onResize;
  // The window that it hung in has gone. It is at home again, with new windows.
  std::function<void()> onLost;

  // Contained() and the layout do these two.
  void SetContent(const Box& inside);
  void PlaceAtHome(const Rect& place);

  void WindowPlaced(const Rect& place) override;
  void WindowLost() override;

 private:
  friend class Form;
  void TakeIn(const Box& box);
  bool Holds(const Control& control) const;
  void LayOut();
  void MakeAnew();

  Box content_;
  Rect home_{};  // its place in the form
};

}  // namespace corvel::forms
