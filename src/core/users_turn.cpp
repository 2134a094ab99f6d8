#include "core/users_turn.h"

#include "core/frmMain.h"

namespace corvel {

UsersTurn::UsersTurn(Program& program, std::string_view request) : program_(program) {
  frmMain* const splash = program.forms.Loaded<frmMain>();
  duringStart_ = splash != nullptr && !program.g.Closing;
  if (!duringStart_) return;
  before_ = splash->lblStatus.Caption();
  splash->lblStatus.SetCaption(request);
  splash->OfferExit(true);
  program.platform.windows.Enable(program.g.hAOL, true);
}

// A way down that has begun has given the client back for good.
UsersTurn::~UsersTurn() {
  if (!duringStart_ || program_.g.Closing) return;
  program_.platform.windows.Enable(program_.g.hAOL, false);
  frmMain* const splash = program_.forms.Loaded<frmMain>();
  if (!splash) return;
  splash->OfferExit(false);
  splash->lblStatus.SetCaption(before_);
}

}  // namespace corvel
