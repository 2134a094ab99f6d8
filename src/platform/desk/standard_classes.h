// What the system does by itself with the messages of a window, by its class.
#pragma once

#include "platform/desk/window_tree.h"

#include <memory>
#include <string_view>

namespace corvel::desk {

SystemClass SystemClassOf(std::string_view name);

// What a parent is told when a child is made (kCreate) or destroyed (kDestroy).
Message ParentNotice(MessageId event, int childId, Window child);

// Of standard dialogs and all that is in them.
std::unique_ptr<WindowProcedure> MakeDialogProcedure(DeskWindows& windows);

}  // namespace corvel::desk
