#include "practice/documents/boxes.h"

#include "practice/client/client.h"
#include "practice/controls/markup.h"
#include "practice/controls/simple_layout.h"
#include "practice/controls/text_box.h"
#include "practice/documents/room.h"

namespace corvel::practice {
namespace {

constexpr Size kModalSize{300, 140};

class Modal : public ClientWindow {
 public:
  Modal(Client& client, std::function<void()> whenGone)
      : ClientWindow(client), whenGone_(std::move(whenGone)) {}
  bool OnNotice(Notice notice, Window, char) override {
    if (notice != Notice::kClick) return false;
    client().platform().ownWindows.Destroy(window());
    return true;
  }

 protected:
  void OnDestroyed() override {
    if (whenGone_) whenGone_();
  }

 private:
  std::function<void()> whenGone_;
};

class UntitledWindow : public Document {
 public:
  explicit UntitledWindow(Client& client) : Document(client, "Untitled") {}

 protected:
  void Fill() override {
    client().AddControl<PlainWindow>(window(), "_AOL_FONTCOMBO", "Arial");
    for (int i = 0; i < 8; ++i) client().AddIcon(window());
    text_ = client().AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kPage);
  }
  Window FirstFocus() override { return text_; }
  Rect FirstPlace() const override { return {60, 30, 420, 260}; }

 private:
  Window text_{};
};

class ProfileWindow : public Document {
 public:
  ProfileWindow(Client& client, std::string name)
      : Document(client, "Member Profile"), name_(std::move(name)) {}

 protected:
  void Fill() override {
    const Window text =
        client().AddControl<TextBox>(window(), "RICHCNTL", "", TextBox::Use::kReadOnly);
    if (auto* box = client().FindAs<TextBox>(text)) box->SetText("Screen Name:\t" + name_);
    client().AddIcon(window(), "Locate");
  }

 private:
  std::string name_;
};

class GetProfileWindow : public Document {
 public:
  explicit GetProfileWindow(Client& client) : Document(client, "Get a Member's Profile") {}
  bool OnNotice(Notice notice, Window, char) override {
    if (notice != Notice::kEnter && notice != Notice::kClick) return false;
    Ask();
    return true;
  }

 protected:
  void Fill() override {
    client().AddStatic(window(), "Enter Screen Name:");
    name_ = client().AddControl<TextBox>(window(), "_AOL_EDIT", "", TextBox::Use::kLine);
    client().AddIcon(window(), "OK");
  }
  Window FirstFocus() override { return name_; }

 private:
  void Ask() {
    const auto* box = client().FindAs<TextBox>(name_);
    if (box == nullptr || box->text().empty()) return;
    if (client().session().members[NameKey(box->text())].state == "unknown")
      client().ShowMessage("There is no profile available for that Screen Name.");
    else
      client().Open(std::make_shared<ProfileWindow>(client(), box->text()));
  }
  Window name_{};
};

class LocateWindow : public Document {
 public:
  LocateWindow(Client& client, const std::string& name, const Member& member)
      : Document(client, "Locate " + name), name_(name), member_(member) {}
  bool OnNotice(Notice notice, Window, char) override {
    if (notice != Notice::kClick) return false;
    EnterRoom(client(), member_.room);
    return true;
  }

 protected:
  void Fill() override {
    client().AddStatic(window(), Sentence());
    client().AddIcon(window(), "Go", !member_.room.empty());
  }

 private:
  std::string Sentence() const {
    if (member_.state == "private") return name_ + " is in a private room.";
    if (member_.state == "room")
      return name_ + " is in chat room \"" + member_.room + "\" in \"Town Square.\"";
    if (member_.state == "conference")
      return name_ + " is in conference room \"" + member_.room + ".\"";
    return name_ + " is online, but not in a chat area.";
  }
  std::string name_;
  Member member_;
};

class InvitationWindow : public Document {
 public:
  explicit InvitationWindow(Client& client, const std::string& name)
      : Document(client, "Invitation From: " + name) {}
  bool OnNotice(Notice notice, Window, char) override {
    if (notice == Notice::kClick) Close();
    return notice == Notice::kClick;
  }

 protected:
  void Fill() override {
    client().AddStatic(window(), "You are invited to a Buddy Chat.");
    client().AddIcon(window(), "Go");
    client().AddIcon(window(), "Cancel");
  }
};

}  // namespace

Window OpenModal(Client& client, std::string caption, std::function<void()> whenGone) {
  NewWindow plan;
  plan.className = "_AOL_MODAL";
  plan.caption = std::move(caption);
  plan.place = {200, 150, kModalSize.width, kModalSize.height};
  const Window modal = client.Make(plan, std::make_shared<Modal>(client, std::move(whenGone)));
  client.windows().SetOwner(modal, client.frame());
  return modal;
}

void ArrangeModal(Client& client, Window modal) {
  // Of the outer size, frame and title bar take about so much.
  constexpr int kSides = 8, kTitle = 28;
  if (modal) ArrangeBox(client, modal, {kModalSize.width - kSides, kModalSize.height - kTitle});
}

void OpenAbout(Client& client) {
  client.AfterDelay([&client] {
    const Window box = OpenModal(client, "About " + client.facts().name,
                                 [&client] { client.session().hourglass = false; });
    client.AddControl<PlainWindow>(box, "_AOL_GLYPH", "");
    client.AddStatic(box, client.facts().name);
    client.AddIcon(box, "OK");
    ArrangeModal(client, box);
  });
}

void OpenUntitled(Client& client) { client.Open(std::make_shared<UntitledWindow>(client)); }

void OpenGetProfile(Client& client) {
  if (client.SignedOn()) client.Open(std::make_shared<GetProfileWindow>(client));
}

void OpenLocate(Client& client, const std::string& name) {
  const Member member = client.session().members[NameKey(name)];
  if (member.state == "offline" || member.state == "unknown")
    client.ShowMessage(name + " is not currently signed on.");
  else
    client.Open(std::make_shared<LocateWindow>(client, name, member));
}

void OpenInvitation(Client& client, const std::string& name) {
  client.Open(std::make_shared<InvitationWindow>(client, name));
}

void BeginUpload(Client& client) {
  Session& session = client.session();
  if (client.windows().Exists(session.upload)) return;
  session.upload = OpenModal(client, "File Transfer",
                             [&client] { client.windows().Enable(client.frame(), true); });
  client.AddStatic(session.upload, "Now Uploading");
  client.AddControl<PlainWindow>(session.upload, "_AOL_GAUGE", "");
  ArrangeModal(client, session.upload);
  client.windows().Enable(client.frame(), false);
}

void EndUpload(Client& client) { client.platform().ownWindows.Destroy(client.session().upload); }

void OpenRoomFull(Client& client, const std::string& room) {
  client.AfterDelay([&client, room] {
    const Window box = OpenModal(client, "Sorry...");
    client.AddStatic(box, room + " is full.");
    // Two of the locales close this notice with a button of another class.
    if (client.facts().Is(Locale::kUk) || client.facts().Is(Locale::kCanada))
      client.AddControl<Icon>(box, "_AOL_BUTTON", "OK");
    else
      client.AddIcon(box, "OK");
    ArrangeModal(client, box);
  });
}

}  // namespace corvel::practice
