// A program of the tests' own on a stage: one window with a control of every kind and pop-up menus
// behind some of them. It writes down which of its event procedures have run.
#pragma once

#include "forms/form.h"
#include "forms/menu.h"
#include "tools/desk/desk_stage.h"

#include <map>
#include <memory>
#include <string>

namespace corvel::tools {

class SampleWindow : public forms::Form {
 public:
  SampleWindow(forms::Forms& forms, std::map<std::string, int>& events)
      : Form(forms, "frmSample", "A sample"), events_(events) {
    for (forms::Control* control : Controls()) Follow(*control);
    txtName.onChange = [this] { ++events_["txtName change"]; };
    cmdMenu.onClick = [this] { PopupMenu(menu_); };
    lstRows.onRightClick = [this] { PopupMenu(listMenu_); };
    for (const char* item : {"one", "two", "three"}) {
      lstRows.AddItem(item);
      cboRows.AddItem(item);
      lvwRows.AddItem(std::string(item) + "\tmore");
      tabRows.AddItem(std::string("&") + item);
    }
    cmdGreyed.SetEnabled(false);
    lblHidden.SetVisible(false);
  }

  forms::Label lblName{*this, "lblName", "A name"}, lblHidden{*this, "lblHidden", "Hidden"};
  forms::Button cmdOk{*this, "cmdOk", "OK"}, cmdGreyed{*this, "cmdGreyed", "Greyed"};
  forms::FlatButton cmdMenu{*this, "cmdMenu", "Menu"};
  forms::TextBox txtName{*this, "txtName"};
  forms::CheckBox chkOn{*this, "chkOn", "On"};
  forms::OptionButton optOne{*this, "optOne", "1"}, optTwo{*this, "optTwo", "2"};
  forms::ListBox lstRows{*this, "lstRows"};
  forms::ComboBox cboRows{*this, "cboRows"};
  forms::ListView lvwRows{*this, "lvwRows", {"A", "B"}};
  forms::TabStrip tabRows{*this, "tabRows"};
  forms::PictureBox picName{*this, "picName"};
  forms::ProgressBar barDone{*this, "barDone"};

 protected:
  bool Form_QueryUnload(bool) override { return ++events_["close"], false; }

 private:
  void Follow(forms::Control& control) {
    const std::string name = control.Name();
    control.onClick = [this, name] { ++events_[name + " click"]; };
    control.onDblClick = [this, name] { ++events_[name + " double-click"]; };
    control.onRightClick = [this, name] { ++events_[name + " right click"]; };
    control.onKey = [this, name](Key) { return ++events_[name + " key"], false; };
  }
  forms::MenuRow Row(const char* caption) {
    forms::MenuRow row;
    row.caption = caption;
    row.onClick = [this, caption] { ++events_[std::string("row ") + caption]; };
    return row;
  }
  forms::MenuRow Greyed(const char* caption) {
    forms::MenuRow row = Row(caption);
    row.enabled = false;
    return row;
  }
  forms::MenuRow Sub(const char* caption) {
    forms::MenuRow row;
    row.caption = caption;
    row.rows = {Row("Deep"), Greyed("Deep, greyed")};
    return row;
  }

  std::map<std::string, int>& events_;
  forms::Menu menu_{"mnuSample", "", {Row("&First\tCtrl+F"), Greyed("Greyed"), Sub("More")}};
  forms::Menu listMenu_{"mnuList", "", {Row("Of the list")}};
};

// Stands on the stage from Begin on.
class SampleProgram {
 public:
  explicit SampleProgram(DeskStage& stage) : stage_(stage) {}

  void Begin() {
    stage_.desk().Install("C:\\SAMPLE\\SAMPLE.EXE", [this](desk::Desk& desk) {
      return std::make_unique<Body>(desk, events);
    });
    stage_.desk().Spawn("C:\\SAMPLE\\SAMPLE.EXE", "");
  }
  int Times(const std::string& event) const {
    const auto at = events.find(event);
    return at == events.end() ? 0 : at->second;
  }

  std::map<std::string, int> events;  // "cmdOk click", "row Deep"

 private:
  struct Body : desk::ProcessBody {
    Body(desk::Desk& desk, std::map<std::string, int>& events)
        : forms(desk.platform()), events_(events) {}
    void Start(const std::string&) override { forms.LoadNew<SampleWindow>(forms, events_)->Show(); }
    bool Finished() override { return false; }
    forms::Forms forms;
    std::map<std::string, int>& events_;
  };
  DeskStage& stage_;
};

}  // namespace corvel::tools
