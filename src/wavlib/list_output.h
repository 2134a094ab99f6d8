// What the wav list and the description list have in common on their way to the printer, into a
// mail and into a text file.
#pragma once

#include "aolbridge/aolclient.h"
#include "core/program.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace corvel {

// The font for the rows of a printed list: "Courier New", or the printer's default (name "") if it
// has none and the user agrees. Nothing if he cancels.
std::optional<PrintFont> AskRowFont(Program& program);

// Starts a print job with its centred title and lets `rows` print into it. Tells the user if there
// is no printer.
void Print(Program& program, const std::string& title, const std::function<void(PrintJob&)>& rows);

// Opens a mail (or takes the one that is open) and puts subject and body into it. Tells the user if
// that can't be done. Waits for the client.
void ComposeMail(Program& program, AolClient& client, const std::string& subject,
                 const std::string& body);

// The head of such a mail's body: the program, whose list it is, what it holds, a rule line.
std::string MailHead(const std::string& screenName, const std::string& contents);
inline constexpr std::string_view kMailEnd = "</PRE></HTML>";

// Whether a file of a folder can have this name, as it is or with an extension behind. Tells the
// user if not.
bool CanBeFileName(Program& program, const std::string& name);

// Asks for the name of a text file in the client's folder, again while it can't be one or the user
// won't overwrite one that exists. The path, or "" if he gives up.
std::string AskTextFile(Program& program, std::string_view what, std::string_view preset);

}  // namespace corvel
