#include "platform/form_keyboard.h"

#include <deque>
#include <gtest/gtest.h>

namespace corvel::test {
namespace {

// A form's controls, each named by a letter; those with a large one stand in the container "box".
class FormKeyboard : public testing::Test {
 protected:
  ControlState& Add(const char* name, ControlKind kind, const char* caption = "") {
    ControlState& state = states_.emplace_back();
    state.name = name;
    state.kind = kind;
    state.text = caption;
    state.tabOrder = static_cast<int>(states_.size());
    all_.push_back(&state);
    return state;
  }
  ControlState& Of(std::string_view name) {
    for (ControlState& state : states_)
      if (state.name == name) return state;
    throw std::logic_error("no such control");
  }
  static std::string NamesOf(const ControlStates& controls) {
    std::string names;
    for (const ControlState* control : controls) names += control->name;
    return names;
  }
  static std::string Said(const KeyDeed& deed) {
    constexpr const char* kWords[] = {"on", "used", "to ", "click "};
    return kWords[static_cast<int>(deed.kind)] + (deed.control ? deed.control->name : "");
  }
  std::string Pressed(const char* focused, Key key, bool backward = false) {
    return Said(DeedOfKey(all_, *focused ? &Of(focused) : nullptr, key, backward));
  }
  std::string Letter(const char* focused, char letter) {
    return Said(DeedOfLetter(all_, *focused ? &Of(focused) : nullptr, letter));
  }

  std::deque<ControlState> states_;
  ControlStates all_;
};

class AForm : public FormKeyboard {
 protected:
  AForm() {
    Add("l", ControlKind::kLabel, "&Name:");
    Add("t", ControlKind::kTextBox);
    Add("c", ControlKind::kOptionButton, "&Copy");
    Add("m", ControlKind::kOptionButton, "&Move").value = 1;
    Add("k", ControlKind::kCheckBox, "&Keep && more");
    Add("o", ControlKind::kButton, "OK").isDefault = true;
    Add("x", ControlKind::kButton, "&Cancel").isCancel = true;
    Add("v", ControlKind::kListBox);
    ControlState& box = Add("box", ControlKind::kContainer);
    Add("P", ControlKind::kButton, "&Profile").container = &box;
    Add("Q", ControlKind::kFlatButton, "&Quit").container = &box;
  }
};

TEST_F(AForm, TabStopsOnceInAGroupOfOptionsAndNotAtWhatCannotBeReached) {
  EXPECT_EQ(NamesOf(TabStops(all_, nullptr)), "tmkoxvPQ");
  Of("m").value = 0;
  EXPECT_EQ(NamesOf(TabStops(all_, nullptr)), "tckoxvPQ");
  Of("k").enabled = false;
  Of("v").visible = false;
  Of("box").enabled = false;
  EXPECT_EQ(NamesOf(TabStops(all_, nullptr)), "tcox");
  EXPECT_EQ(Pressed("t", Key::kTab), "to c");
  EXPECT_EQ(Pressed("x", Key::kTab), "to t");
  EXPECT_EQ(Pressed("t", Key::kTab, true), "to x");
  EXPECT_EQ(Pressed("", Key::kTab), "to t");
}

TEST_F(AForm, WhatHangsElsewhereHasAKeyboardOfItsOwn) {
  Of("box").host = {1};
  EXPECT_EQ(NamesOf(TabStops(all_, nullptr)), "tmkoxv");
  EXPECT_EQ(Pressed("P", Key::kTab), "to Q");
  EXPECT_EQ(Pressed("Q", Key::kTab), "to P");
  EXPECT_EQ(Letter("P", 'q'), "click Q");
  EXPECT_EQ(Letter("P", 'n'), "on");
  EXPECT_EQ(Letter("t", 'q'), "on");
  EXPECT_EQ(FocusBehind(all_, Of("Q")), &Of("P"));
  EXPECT_EQ(FocusBehind(all_, Of("v")), &Of("t"));
  Of("P").enabled = false;
  EXPECT_EQ(FocusBehind(all_, Of("Q")), nullptr);
}

TEST_F(AForm, TheFirstFocusIsTheFirstStopOrTheDefaultButton) {
  EXPECT_EQ(FirstFocus(all_), &Of("t"));
  for (const char* name : {"t", "c", "m", "k", "v"}) Of(name).visible = false;
  std::swap(Of("o").tabOrder, Of("x").tabOrder);
  EXPECT_EQ(FirstFocus(all_), &Of("o"));
  Of("o").isDefault = false;
  EXPECT_EQ(FirstFocus(all_), &Of("x"));
}

TEST_F(AForm, ArrowsMoveAmongButtonsAndChooseOptions) {
  EXPECT_EQ(Pressed("c", Key::kDown), "click m");
  EXPECT_EQ(Pressed("m", Key::kRight), "click c");
  EXPECT_EQ(Pressed("k", Key::kRight), "to o");
  EXPECT_EQ(Pressed("k", Key::kUp), "to x") << "buttons beside each other, round";
  EXPECT_EQ(Pressed("v", Key::kUp), "on");
}

TEST_F(AForm, EnterAndEscapeWithoutAFocusPressTheirButtons) {
  EXPECT_EQ(Pressed("", Key::kEnter), "click o");
  EXPECT_EQ(Pressed("", Key::kEscape), "click x");
  Of("x").enabled = false;
  EXPECT_EQ(Pressed("", Key::kEscape), "on");
  EXPECT_EQ(Pressed("t", Key::kEnter), "used") << "a box of one line would beep";
  Of("t").multiLine = true;
  EXPECT_EQ(Pressed("t", Key::kEnter), "on");
}

TEST_F(AForm, AnAccessKeyMeansTheNextControlThatHasIt) {
  EXPECT_EQ(Letter("v", 'N'), "to t") << "a label passes it on";
  EXPECT_EQ(Letter("t", 'c'), "click c");
  EXPECT_EQ(Letter("c", 'c'), "click x");
  EXPECT_EQ(Letter("t", 'k'), "click k");
  EXPECT_EQ(Letter("t", 'z'), "on");
  Of("l").mnemonic = false;
  EXPECT_EQ(Letter("v", 'n'), "on") << "a text isn't a caption";
}

}  // namespace
}  // namespace corvel::test
