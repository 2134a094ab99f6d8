// The sound code: "{S name}" in a line of chat, an IM or a mail makes the client of whoever reads
// it play that wav, if he has it.
#pragma once

#include <string>
#include <string_view>

namespace corvel {

// What opens the code: "{S ", or "{s " for users whose room prefers the small one.
std::string_view WavTrigger(bool upperCase);

// The code as IMs and mails get it: always the capital trigger, always closed.
std::string ClosedWavCode(std::string_view name);

// The name in the first code of a line; "" if there is none or no brace closes it.
std::string ParseWavName(std::string_view line);

}  // namespace corvel
