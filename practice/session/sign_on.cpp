#include "practice/session/sign_on.h"

#include "practice/client/client.h"
#include "practice/controls/row_list.h"
#include "practice/controls/text_box.h"
#include "practice/documents/boxes.h"
#include "practice/session/by_hand.h"
#include "practice/session/frame.h"

namespace corvel::practice {
namespace {

constexpr const char* kChannels[] = {
    "News",  "Sports",   "Games", "Travel",        "Finance",      "Health",    "Families",
    "Teens", "Kids",     "Local", "Lifestyles",    "Interests",    "Computing", "Research",
    "Work",  "Shopping", "Women", "Entertainment", "International"};

// The document that generation 5 works in, told by its many check boxes.
class ChannelsWindow : public Document {
 public:
  explicit ChannelsWindow(Client& client) : Document(client, "Channels") {}

 protected:
  void Fill() override {
    for (int i = 0; i < client().facts().mainCheckboxes; ++i)
      boxes_.push_back(client().AddControl<PlainWindow>(window(), "_AOL_Checkbox", kChannels[i]));
  }
  Rect FirstPlace() const override { return {0, 0, 150, 400}; }
  void Arrange(Area area) override {
    for (const Window box : boxes_) client().Put(box, area.Top(area.line() + 1));
  }

 private:
  std::vector<Window> boxes_;
};

void Lift(Client& client, Document& document) {
  client.windows().Show(document.window(), show::kShow);
  client.windows().BringToTop(document.window());
}

}  // namespace

SignOnWindow::SignOnWindow(Client& client, std::string caption)
    : Document(client, std::move(caption)) {}

void SignOnWindow::Fill() {
  client().AddStatic(window(), "Select Screen Name:");
  combo_ = client().AddControl<RowList>(window(), "_AOL_COMBOBOX", "");
  client().AddStatic(window(), "Enter Password (any will do):");
  client().AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
  client().AddIcon(window(), "Sign On");
  auto* combo = client().FindAs<RowList>(combo_);
  if (combo == nullptr) return;
  const auto& names = client().setup().screenNames;
  for (const std::string& name : names) combo->Add(name);
  if (names.empty()) combo->Add("New User");
  combo->Add(client().facts().Is(Locale::kGermany) ? "Gast" : "Guest");
  combo->Select(static_cast<int>(combo->RowOf(client().session().lastName).value_or(0)));
}

bool SignOnWindow::OnNotice(Notice notice, Window, char) {
  const auto* combo = client().FindAs<RowList>(combo_);
  const bool wanted = notice == Notice::kClick || notice == Notice::kEnter;
  if (!wanted || combo == nullptr) return false;
  SignOn(client(), combo->NameAt(combo->selected()));
  return true;
}

WelcomeWindow::WelcomeWindow(Client& client)
    : Document(client, "Welcome, " + client.session().signedOnAs + "!") {}

void WelcomeWindow::Fill() {
  client().AddStatic(window(), "A letter waits for you.");
  client().AddIcon(window(), "You've Got Mail");
}

bool WelcomeWindow::OnNotice(Notice notice, Window, char) {
  if (notice == Notice::kClick) OpenInbox(client());
  return notice == Notice::kClick;
}

void ShowSignOn(Client& client) {
  if (client.SignedOn()) return;
  for (const auto& window : client.Documents<SignOnWindow>()) {
    if (window->Alive()) Lift(client, *window);
    return;
  }
  client.Open(std::make_shared<SignOnWindow>(client, client.facts().signOnTitle));
}

void SignOn(Client& client, const std::string& name) {
  Session& session = client.session();
  if (client.SignedOn() || session.signingOn || name.empty()) return;
  session.signingOn = true;
  const Window progress =
      OpenModal(client, "Connecting", [&session] { session.signingOn = false; });
  client.AddIcon(progress, "Cancel");
  ArrangeModal(client, progress);
  client.AfterDelay([&client, progress, name] {
    // Cancel has closed the window and with it the attempt.
    if (!client.windows().Exists(progress)) return;
    client.platform().ownWindows.Destroy(progress);
    BeginSession(client, name);
  });
}

void BeginSession(Client& client, const std::string& name) {
  for (const auto& window : client.Documents<SignOnWindow>()) window->Dismiss();
  client.session().signedOnAs = client.session().lastName = name;
  UpdateToolbar(client);
  if (client.facts().generation == 5) client.Open(std::make_shared<ChannelsWindow>(client));
  client.Open(std::make_shared<WelcomeWindow>(client));
}

void SignOff(Client& client) {
  if (!client.SignedOn()) return;
  client.session().signedOnAs.clear();
  client.ForgetPending();
  UpdateToolbar(client);
  // Whoever watches a window go may take others with it.
  for (const auto& document : client.Documents<Document>()) document->Dismiss();
  client.Open(std::make_shared<SignOnWindow>(client, client.facts().goodbyeTitle));
}

void ShowWelcome(Client& client) {
  if (!client.SignedOn()) return;
  for (const auto& window : client.Documents<WelcomeWindow>()) {
    if (window->Alive()) Lift(client, *window);
    return;
  }
  client.Open(std::make_shared<WelcomeWindow>(client));
}

}  // namespace corvel::practice
