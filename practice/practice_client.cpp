// The client's outside: every way in is one entry.
#include "practice/practice_client.h"

#include "practice/client/client.h"
#include "practice/commands/commands.h"
#include "practice/session/frame.h"
#include "practice/session/keywords.h"
#include "practice/session/sign_on.h"

namespace corvel::practice {

struct PracticeClient::Impl {
  Client client;
};

PracticeClient::PracticeClient(Platform& platform, OwnMemory& memory, const Setup& setup,
                               Witness witness)
    : impl_(new Impl{Client(platform, memory, setup, std::move(witness))}) {}

PracticeClient::~PracticeClient() = default;

void PracticeClient::Start() {
  Client& client = impl_->client;
  const Client::Entry entry(client);
  MakeFrame(client);
  const std::string name = client.setup().signedOnAs;
  if (name.empty())
    ShowSignOn(client);
  else
    BeginSession(client, name);
}

bool PracticeClient::Finished() const { return impl_->client.finished(); }

Reply PracticeClient::Do(const std::vector<std::string>& words) {
  if (Finished()) return {"the client is not running", {}};
  const Client::Entry entry(impl_->client);
  return DoCommand(impl_->client, words);
}

Reply PracticeClient::Ask(const std::vector<std::string>& words) {
  if (Finished()) return {"the client is not running", {}};
  const Client::Entry entry(impl_->client);
  return AnswerQuestion(impl_->client, words);
}

void PracticeClient::TakeCommandLine(std::string_view target) {
  if (Finished()) return;
  const Client::Entry entry(impl_->client);
  GoToKeyword(impl_->client, target);
}

std::string PracticeClient::LibraryVersion() const {
  constexpr std::size_t kVersionCharacters = 3;
  return impl_->client.setup().version.substr(0, kVersionCharacters);
}

int PracticeClient::LibraryIsOnline() const { return impl_->client.SignedOn() ? 1 : 0; }

std::vector<std::string> PracticeClient::LibraryScreenNames() const {
  constexpr std::size_t kSlots = 5, kBuffer = 175;
  const auto buffer = [](std::string name) {
    name += '\0';
    name.resize(kBuffer, ' ');
    return name;
  };
  const auto& names = impl_->client.setup().screenNames;
  std::vector<std::string> buffers;
  for (std::size_t i = 0; i < kSlots; ++i)
    buffers.push_back(buffer(i < names.size() ? names[i] : ""));
  buffers.push_back(buffer(impl_->client.session().signedOnAs));
  return buffers;
}

// It plays nothing by itself: whoever asks for silence has it.
void PracticeClient::StopSound() {}

Window PracticeClient::Frame() const { return impl_->client.frame(); }
Window PracticeClient::Mdi() const { return impl_->client.mdi(); }

}  // namespace corvel::practice
