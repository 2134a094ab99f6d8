#include "core/hub.h"

#include "core/not_built.h"

namespace corvel {

namespace {

// They hold nothing, so one of each serves every program.
NoAccess noAccess;
NoChatTools noChatTools;
NoFactsAndClock noFactsAndClock;
NoFaderWindows noFaderWindows;
NoInstantMessages noInstantMessages;
NoReadMailWatch noReadMail;
NoSiblings noSiblings;

}  // namespace

Hub::Hub()
    : access(&noAccess),
      chatTools(&noChatTools),
      factsAndClock(&noFactsAndClock),
      faderWindows(&noFaderWindows),
      instantMessages(&noInstantMessages),
      readMail(&noReadMail),
      siblings(&noSiblings) {}

}  // namespace corvel
