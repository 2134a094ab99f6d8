// One running client: its session, its documents, and what it will do later.
#pragma once

#include "practice/client/facts.h"
#include "practice/client/setup.h"
#include "practice/controls/window_host.h"

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvel::practice {

class Document;

// What the service knows of another member.
struct Member {
  std::string state = "online";  // offline, online, private, room, conference, no-ims, unknown
  std::string room{};            // of the states room and conference
};

// What is true beside the windows.
struct Session {
  std::string signedOnAs;  // "" while signed off
  std::string lastName;    // of the last session, preselected on the sign-on window
  bool signingOn = false;
  bool refuseNextLine = false;
  bool hourglass = false;
  Window upload{};                         // the modal window of an upload
  std::map<std::string, Member> members;   // by NameKey
  std::map<std::string, int> triesToFail;  // rooms that are full, by NameKey
};

class Client : public WindowHost {
 public:
  Client(Platform& platform, OwnMemory& memory, const Setup& setup, Witness witness);
  ~Client();

  const Facts& facts() const { return facts_; }
  Setup& setup() { return setup_; }
  Session& session() { return session_; }
  bool SignedOn() const { return !session_.signedOnAs.empty(); }
  void Note(std::string_view kind, std::vector<std::string> words);

  void SetFrame(Window frame) { frame_ = frame; }
  void SetMdi(Window mdi) { mdi_ = mdi; }
  Window frame() const { return frame_; }
  Window mdi() const { return mdi_; }
  bool finished() const { return finished_; }
  void FrameGone();

  // --- Documents -----------------------------------------------------------------------------
  // Asks for a document: it exists hidden after half the delay, and stands after all of it.
  void Open(const std::shared_ptr<Document>& document);
  // Those asked for or standing that are a T, oldest first.
  template <class T>
  std::vector<std::shared_ptr<T>> Documents() const;
  // The newest that stands, with its controls; empty if there is none.
  template <class T>
  std::shared_ptr<T> Standing() const;
  // The client's message box, after the delay.
  void ShowMessage(std::string text);

  // --- Later ---------------------------------------------------------------------------------
  // Runs `act` when so much time has passed; at once for 0. Forgotten if the frame goes.
  void After(std::uint32_t milliseconds, std::function<void()> act);
  void AfterDelay(std::function<void()> act) { After(setup_.delayMs, std::move(act)); }
  void OnTimer(std::uintptr_t id);
  void ForgetPending();
  bool Busy() const { return !pending_.empty(); }

 private:
  Setup setup_;
  Facts facts_;
  Witness witness_;
  Session session_;
  Window frame_{}, mdi_{};
  bool finished_ = false;
  mutable std::vector<std::weak_ptr<Document>> documents_;
  std::unordered_map<std::uintptr_t, std::function<void()>> pending_;
  std::uintptr_t nextTimer_ = 100;
};

template <class T>
std::vector<std::shared_ptr<T>> Client::Documents() const {
  std::erase_if(documents_, [](const auto& weak) {
    const auto document = weak.lock();
    return !document || document->Gone();
  });
  std::vector<std::shared_ptr<T>> found;
  for (const auto& weak : documents_)
    if (auto document = std::dynamic_pointer_cast<T>(weak.lock()))
      found.push_back(std::move(document));
  return found;
}

template <class T>
std::shared_ptr<T> Client::Standing() const {
  std::shared_ptr<T> newest;
  for (auto& document : Documents<T>())
    if (document->Filled()) newest = std::move(document);
  return newest;
}

}  // namespace corvel::practice
