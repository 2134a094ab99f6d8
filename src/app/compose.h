// The composition: which feature answers which slot of the hub. This file with core/hub.h shows how
// the whole program meets.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"
#include "shell/access_modes.h"
#include "wavlib/wavlib.h"

namespace corvel {

// Fills the program's hub. All of these must outlive the program's last event.
void Compose(Program& program, AolClient& client, WavLibrary& wavLibrary, AccessModes& accessModes);

}  // namespace corvel
