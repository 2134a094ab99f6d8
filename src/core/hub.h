// The hub: how the core calls what it does not know.
//
// The core owns the timers, hooks and menus, and no feature's data. Each feature that it calls has
// an interface in core/features/, which says when it is called and what its answer means; whoever
// stands above implements it and joins the hub (app/corvel_process.cpp shows who). This header
// names the interfaces only, so that a change of one rebuilds those who use that one.
//
// An interface whose feature isn't there yet is answered by core/not_built.h: nothing happens.
#pragma once

#include "core/commands.h"

namespace corvel {

class Access;
class ChatTools;
class Client;
class FactsAndClock;
class FaderWindows;
class InstantMessages;
class ReadMailWatch;
class Siblings;

struct Hub {
  Hub();  // with nothing built

  Commands commands;

  Client* client = nullptr;  // joins before the start; the core can do nothing without it
  // Never null.
  Access* access;
  ChatTools* chatTools;
  FactsAndClock* factsAndClock;
  FaderWindows* faderWindows;
  InstantMessages* instantMessages;
  ReadMailWatch* readMail;
  Siblings* siblings;
};

}  // namespace corvel
