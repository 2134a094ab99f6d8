// The client's documents and boxes, by what they are for: mail, the Welcome window, what it asks.
#include "aolbridge/aolclient.h"
#include "aolbridge/client_facts.h"
#include "base/text.h"

#include <algorithm>

namespace corvel {

Window AolClient::TopDocument() { return program_.platform.windows.TopChild(program_.g.hMDI); }

Window AolClient::DocumentTitled(std::string_view caption) {
  if (caption.empty()) return {};
  return program_.platform.windows.FindChild(program_.g.hMDI, {}, facts::kDocument, caption);
}

Window AolClient::FirstDocumentIn(Window parent) {
  if (!parent) return {};
  WindowSystem& windows = program_.platform.windows;
  Window first{};
  windows.EnumDescendants(parent, [&](Window window) {
    if (EqualNoCase(windows.ClassOf(window), facts::kDocument)) first = window;
    return !first;
  });
  return first;
}

// --- Mail ----------------------------------------------------------------------------------------

Window AolClient::IsWriteMailWindow(Window window) {
  if (!window || !KnownEdition()) return {};
  WindowSystem& windows = program_.platform.windows;
  if (!Fact(facts::kMailHasAddressBook)) {
    const Window probe = FindChildByClass(window, facts::kCheckBox);
    const bool isMail = probe && FindChildByClass(window, facts::kFontCombo) &&
                        Lower(GetAPIText(probe)).starts_with("request \"return receipt\"");
    return isMail ? window : Window{};
  }
  constexpr std::string_view kCaptions[] = {"Address Book", "Address\r\nBook", "Address\rBook",
                                            "Address\nBook"};
  const bool isMail = std::any_of(std::begin(kCaptions), std::end(kCaptions), [&](auto caption) {
    return bool(windows.FindChild(window, {}, facts::kLabel, caption));
  });
  return isMail ? window : Window{};
}

Window AolClient::WriteMailOnTop() { return IsWriteMailWindow(TopDocument()); }

Window AolClient::WriteMailByTitle() {
  Window mail = DocumentTitled(strings_.AOLWriteTitle);
  for (const char* const title : {"Re:", "Fwd:"})
    if (!mail) mail = FindChildByTitle(program_.g.hMDI, title);
  return mail;
}

MailParts AolClient::PartsOfMail(Window mail) {
  return {FindChildByClass(mail, facts::kEdit, facts::kAddressField),
          FindChildByClass(mail, facts::kEdit, facts::kSubjectField), BodyOf(mail)};
}

Window AolClient::BodyOf(Window document) { return FindChildByClass(document, facts::kRichText); }

Window AolClient::WaitForBody(Window document) {
  return WaitChildByClass(document, facts::kRichText);
}

Window AolClient::ReadMailOnTop() {
  const Window top = TopDocument();
  const Window label = FindChildByClass(top, facts::kLabel, Fact(facts::kReplyLabel));
  return label && Lower(GetAPIText(label)) == "reply" ? top : Window{};
}

// --- The session's windows -----------------------------------------------------------------------

Window AolClient::WelcomeWindow() { return FindChildByTitle(program_.g.hMDI, facts::kWelcome); }

Window AolClient::MainWindow() {
  const int boxes = Fact(facts::kMainWindowCheckBoxes);
  WindowSystem& windows = program_.platform.windows;
  for (Window w = TopDocument(); w; w = windows.Next(w))
    if (EqualNoCase(windows.ClassOf(w), facts::kDocument) &&
        FindChildByClass(w, facts::kCheckBox, boxes))
      return w;
  return {};
}

// --- Over the client -----------------------------------------------------------------------------

Window AolClient::ModalWindow() {
  return program_.platform.windows.Find(facts::kModal, std::nullopt);
}

Window AolClient::UploadWindow() {
  const Window modal = ModalWindow();
  return FindChildByClass(modal, facts::kGauge) ? modal : Window{};
}

Window AolClient::ClientBox() {
  if (strings_.AOLTitle.empty()) return {};
  return program_.platform.windows.Find(facts::kBox, strings_.AOLTitle);
}

Window AolClient::RefusalBox() {
  const Window box = ClientBox();
  const Window text = FindChildByClass(box, facts::kBoxLabel, 2);  // behind the icon
  return text && HoldsNoCase(GetAPIText(text), facts::kRefusal) ? box : Window{};
}

Window AolClient::BuddyInvitation() {
  return FindChildByTitle(program_.g.hMDI, facts::kInvitation);
}

// --- Its menus -----------------------------------------------------------------------------------

MenuHandle AolClient::WindowMenu() {
  const int place = Fact(facts::kWindowMenu);
  if (place == 0) return {};
  Menus& menus = program_.platform.menus;
  return menus.SubMenu(menus.MenuOf(program_.g.hAOL), place - 1);
}

int AolClient::PlaceOfOurMenu(int count) const {
  const auto edition = KnownEdition();
  const facts::MenuPlace& row = edition ? facts::kMenuPlace(*edition) : facts::kMenuPlaceElsewhere;
  return std::min(count <= row.few ? row.place : row.placeBeyond, count);
}

}  // namespace corvel
