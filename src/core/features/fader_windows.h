// The fader's windows: the control panel, the bar over a mail that is being written.
#pragma once

namespace corvel {

class FaderWindows {
 public:
  virtual ~FaderWindows() = default;
  // At the end of the start: takes in the fade schemes in \incoming\.
  virtual void ScanIncoming() = 0;
  // A room has come, on AOL 4.0 and 5.0, and the panel shall come with it. False: it did not.
  virtual bool ShowPanelWithRoom() = 0;
  // The room that it came with has gone.
  virtual void HidePanel() = 0;
  // The room has refused a faded line, and would refuse the next one.
  virtual void SwitchOff() = 0;
  // A mail is being written. False: no bar has come.
  virtual bool ShowMailBar() = 0;
  // None is.
  virtual void HideMailBar() = 0;
};

}  // namespace corvel
