#include "core/maker_pages.h"

#include "core/features/client.h"
#include "core/helpers.h"
#include "core/settings_shell.h"

namespace corvel {

void OpenPage(Program& program, const forms::Form* form, const std::string& page) {
  if (program.settings.General.UseExternalBrowser)
    OpenWithShell(program, form, page);
  else
    program.hub.client->RunKeyword(page);
}

}  // namespace corvel
