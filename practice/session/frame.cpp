#include "practice/session/frame.h"

#include "practice/client/client.h"
#include "practice/documents/boxes.h"
#include "practice/documents/mail.h"
#include "practice/session/by_hand.h"
#include "practice/session/menu_bar.h"
#include "practice/session/sign_on.h"

namespace corvel::practice {
namespace {

constexpr int kToolbarIcons = 10, kToolbarHeight = 48;

NewWindow Plan(std::string className, Window parent, Rect place) {
  NewWindow plan;
  plan.className = std::move(className);
  plan.parent = parent;
  plan.place = place;
  return plan;
}

// The keyboard goes on to the document on top, as in every MDI program.
void PassFocusOn(Client& client) {
  WindowSystem& windows = client.windows();
  Window top = windows.TopChild(client.mdi());
  while (top && !windows.IsVisible(top)) top = windows.Next(top);
  auto* document = client.FindAs<Document>(top);
  const Window control = document == nullptr ? Window{} : document->FocusWhenActive();
  if (control) windows.SetFocus(control);
}

struct ToolbarRow {
  const char* face;
  void (*run)(Client&);
};

void SignOnOrOff(Client& client) { client.SignedOn() ? SignOff(client) : ShowSignOn(client); }

// The second icon writes mail, the third tells the Australian client from the British one.
constexpr ToolbarRow kToolbar[kToolbarIcons] = {
    {"read", OpenInbox},       {"write", OpenWriteMail},      {"mail center", OpenInbox},
    {"im", OpenEmptyCompose},  {"find a chat", OpenChatList}, {"keyword", OpenKeywordBox},
    {"locate", OpenLocateBox}, {"profile", OpenGetProfile},   {"sign on/off", SignOnOrOff},
    {"about", OpenAbout},
};
constexpr int kIconWidth = 76;

Window ToolbarOf(Client& client) {
  WindowSystem& windows = client.windows();
  const Window outer = windows.FindChild(client.frame(), {}, "AOL Toolbar", std::nullopt);
  if (client.facts().generation == 3) return outer;
  return windows.FindChild(outer, {}, "_AOL_Toolbar", std::nullopt);
}

}  // namespace

MessageResult Frame::Handle(const Message& message) {
  if (message.id == wm::kTimer) {
    client().OnTimer(message.wParam);
    return 0;
  }
  if (message.id == wm::kCommand &&
      RunMenuCommand(client(), static_cast<std::uint32_t>(message.wParam & 0xFFFF)))
    return 0;
  if (message.id == wm::kSize) {
    // By itself the system would give all the space to the documents.
    constexpr WParam kMinimized = 1;
    if (message.wParam != kMinimized)
      Arrange(static_cast<int>(message.lParam & 0xFFFF),
              static_cast<int>(message.lParam >> 16 & 0xFFFF));
    return 0;
  }
  const MessageResult result = Default(message);
  if (message.id == wm::kSetFocus) PassFocusOn(client());
  return result;
}

void Frame::Arrange(int width, int height) {
  WindowSystem& windows = client().windows();
  const Window bar = windows.FindChild(window(), {}, "AOL Toolbar", std::nullopt);
  client().Put(bar, {0, 0, width, kToolbarHeight});
  client().Put(windows.FindChild(bar, {}, "_AOL_Toolbar", std::nullopt),
               {0, 0, width, kToolbarHeight});
  client().Put(client().mdi(), {0, kToolbarHeight, width, height - kToolbarHeight});
}

MessageResult MdiClient::Handle(const Message& message) {
  const MessageResult result = Default(message);
  if (message.id == wm::kSetFocus) PassFocusOn(client());
  return result;
}

void Frame::OnDestroyed() { client().FrameGone(); }

void Toolbar::Fill() {
  const Facts& facts = client().facts();
  for (int i = 1; i <= kToolbarIcons; ++i) {
    const bool australian = facts.Is(Locale::kAustralia);
    const ToolbarRow& row = kToolbar[i - 1];
    const bool needsService = i == facts.onlineIcon || i == 2;
    const Window icon = client().AddIcon(
        window(), i == 3 && australian ? "e-mail centre" : row.face, !needsService);
    icons_.push_back(icon);
    client().Put(icon, {4 + (i - 1) * (kIconWidth + 2), 4, kIconWidth, kToolbarHeight - 8});
  }
}

bool Toolbar::OnNotice(Notice notice, Window control, char character) {
  if (icons_.size() < 2) return false;
  if (notice == Notice::kClick) {
    for (std::size_t i = 0; i < icons_.size(); ++i)
      if (icons_[i] == control) kToolbar[i].run(client());
    return true;
  }
  if (notice == Notice::kCharacter && control == icons_[0] && character == 'g' &&
      client().facts().generation != 3) {
    OpenGetProfile(client());
    return true;
  }
  return false;
}

void MakeFrame(Client& client) {
  NewWindow plan = Plan("AOL Frame25", {}, {0, 0, 800, 570});
  plan.caption = client.facts().title;
  const Window frame = client.Make(plan, std::make_shared<Frame>(client));
  client.SetFrame(frame);
  MakeMenuBar(client);

  const bool nested = client.facts().generation != 3;
  std::shared_ptr<HostedWindow> outer;
  const auto toolbar = std::make_shared<Toolbar>(client);
  if (nested)
    outer = std::make_shared<PlainWindow>(client);
  else
    outer = toolbar;
  const Rect bar{0, 0, 800, kToolbarHeight};
  const Window outerWindow = client.Make(Plan("AOL Toolbar", frame, bar), outer);
  if (nested) client.Make(Plan("_AOL_Toolbar", outerWindow, bar), toolbar);
  toolbar->Fill();

  const Rect rest{0, kToolbarHeight, 800, 570 - kToolbarHeight};
  client.SetMdi(client.Make(Plan("MDIClient", frame, rest), std::make_shared<MdiClient>(client)));
}

void UpdateToolbar(Client& client) {
  const bool on = client.SignedOn();
  const Window bar = ToolbarOf(client);
  Window icon{};
  for (int i = 1; i <= kToolbarIcons; ++i) {
    icon = client.windows().FindChild(bar, icon, "_AOL_ICON", std::nullopt);
    if (!icon) return;
    if (i == client.facts().onlineIcon || i == 2) client.windows().Enable(icon, on);
  }
}

}  // namespace corvel::practice
