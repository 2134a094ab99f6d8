#include "practice/commands/window_questions.h"

#include "practice/client/client.h"
#include "practice/client/document.h"
#include "practice/controls/text_box.h"

#include <algorithm>

namespace corvel::practice {
namespace {

constexpr std::size_t kLongestCaption = 260;

Reply Told(std::string text) { return {"", {std::move(text)}}; }

using Documents = std::vector<std::shared_ptr<Document>>;

Documents Called(Client& client, std::string_view beginning) {
  Documents called = StandingDocuments(client);
  std::erase_if(called, [&](const auto& document) {
    return !CaptionThatStands(client, *document).starts_with(beginning);
  });
  return called;
}

std::string FirstText(Client& client, const Document& document) {
  std::string text;
  client.windows().EnumDescendants(document.window(), [&](Window child) {
    const auto* box = client.FindAs<TextBox>(child);
    if (box != nullptr) text = box->text();
    return box == nullptr;
  });
  return text;
}

std::string PlaceOf(Client& client, const Document& document) {
  const Rect area = client.windows().PlaceOf(client.mdi());
  const Rect place = client.windows().PlaceOf(document.window());
  return std::to_string(place.left - area.left) + " " + std::to_string(place.top - area.top) + " " +
         std::to_string(place.width) + " " + std::to_string(place.height);
}

}  // namespace

std::string CaptionThatStands(Client& client, const Document& document) {
  return client.windows().SendForText(document.window(), wm::kGetText, kLongestCaption,
                                      kLongestCaption);
}

Documents StandingDocuments(Client& client) {
  Documents standing = client.Documents<Document>();
  std::erase_if(standing, [](const auto& document) { return !document->Filled(); });
  WindowSystem& windows = client.windows();
  std::vector<Window> order;
  for (Window at = windows.TopChild(client.mdi()); at; at = windows.Next(at)) order.push_back(at);
  const auto depth = [&order](const auto& document) {
    return std::find(order.begin(), order.end(), document->window()) - order.begin();
  };
  std::stable_sort(standing.begin(), standing.end(),
                   [&](const auto& a, const auto& b) { return depth(a) < depth(b); });
  return standing;
}

Reply AskWindow(Client& client, const std::vector<std::string>& words) {
  if (words.size() < 3) return {"which window, and what of it?", {}};
  Documents called = Called(client, words[1]);
  const auto visible = [&](const auto& document) {
    return client.windows().IsVisible(document->window());
  };
  if (words[2] == "visible") {
    const auto shown = std::find_if(called.begin(), called.end(), visible);
    return Told(shown == called.end() ? "" : CaptionThatStands(client, **shown));
  }
  if (words[2] == "state")
    return Told(called.empty() ? "closed" : visible(called.front()) ? "shown" : "hidden");
  if (called.empty()) return {"no window " + words[1] + " is open", {}};
  if (words[2] == "text") return Told(FirstText(client, *called.front()));
  if (words[2] == "place") return Told(PlaceOf(client, *called.front()));
  return {"state, visible, text or place?", {}};
}

}  // namespace corvel::practice
