// IMs: known by their captions, and what stands in them.
#include "aolbridge/aolclient.h"
#include "aolbridge/client_facts.h"
#include "base/text.h"

namespace corvel {
namespace {

// The title that the program gives the frame of its IM manager, among others at its end.
constexpr std::string_view kManagerTitle = "Corvel IM Manager";

bool Holds(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

}  // namespace

bool AolClient::IsIM(Window window) {
  const std::string caption = GetCaptionText(window);
  const std::string begin = Lower(Trim(std::string_view(caption).substr(0, caption.find(':') + 1)));
  for (const auto title : {facts::kUnreadIMFrom, facts::kIMFrom, facts::kIMTo})
    if (begin == Lower(Trim(title))) return true;
  return false;
}

Window AolClient::IMOnTop() {
  const Window top = TopDocument();
  return IsIM(top) ? top : Window{};
}

bool AolClient::IMFromSomebodyOnTop() {
  return Holds(GetCaptionText(TopDocument()), Trim(facts::kIMFrom));
}

Window AolClient::ManagerOnTop() {
  const Window top = TopDocument();
  return Holds(GetCaptionText(top), kManagerTitle) ? top : Window{};
}

Window AolClient::ManagedIMOnTop() { return FirstDocumentIn(ManagerOnTop()); }

Window AolClient::UnreadIM() { return FindChildByTitle(program_.g.hMDI, facts::kUnreadIMFrom); }

Window AolClient::NewIMWindow() { return DocumentTitled(facts::kNewIM); }

std::string AolClient::GetIMSender(Window im) {
  const std::string caption = GetAPIText(im);
  const auto colon = caption.find(':');
  return colon == std::string::npos ? std::string() : Trim(caption.substr(colon + 1));
}

IMParts AolClient::PartsOfIM(Window im) {
  return {FindChildByClass(im, facts::kLabel, Fact(facts::kIMNameLabel)),
          FindChildByClass(im, facts::kRichText, facts::kTranscript),
          FindChildByClass(im, facts::kRichText, facts::kEntryBox),
          FindChildByClass(im, facts::kIcon, Fact(facts::kIMSendIcon)),
          FindChildByClass(im, facts::kIcon, Fact(facts::kIMRespondIcon))};
}

}  // namespace corvel
