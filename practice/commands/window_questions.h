// What an onlooker can see of the client's documents, by the captions that stand.
#pragma once

#include "practice/commands/reply.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::practice {

class Client;
class Document;

// The caption as it is to be read, also if somebody else has written it.
std::string CaptionThatStands(Client& client, const Document& document);
// Those that stand, the topmost first; what hangs in another's window comes last.
std::vector<std::shared_ptr<Document>> StandingDocuments(Client& client);

// `window CAPTION state|visible|text|place`: of the topmost document whose caption begins so
// whether it is shown, hidden or closed; the caption of the topmost visible one ("" for none); the
// text of its first text box; its place in the document area, four numbers.
Reply AskWindow(Client& client, const std::vector<std::string>& words);

}  // namespace corvel::practice
