// The stage: one desktop with the practice client and the program on it, wired with each other, as
// a scenario and the soak find it. It sets the scene and starts processes; it plays nobody.
#pragma once

#include "platform/desk/desk.h"
#include "practice/practice_client.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace corvel::tools {

class Stage {
 public:
  explicit Stage(std::uint64_t seed);
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  desk::Desk& desk() { return desk_; }

  // What the client will be; changed until it is put on the desk.
  practice::Setup setup;
  bool clientRuns = true;

  // Puts the client on the desk and, if it shall run, starts it. Its windows stand after StandMs.
  void PutClient();
  bool HasClient() const { return hasClient_; }
  std::int64_t StandMs() const;
  // The client changes for its next start.
  void ChangeClient();
  practice::PracticeClient* Client();  // the running one, or nullptr
  ProcessId ClientProcess() const;

  // Leaves one of the system's runtime files out.
  void RemoveRuntimeFile(std::string_view name);
  static bool IsRuntimeFile(std::string_view name);
  // A valid wave file of silence.
  void PutWave(std::string_view path, double seconds);

  ProcessId StartProgram(const std::string& commandLine);
  // The first of the running programs, or 0.
  ProcessId Program() const;
  bool HasStarted(ProcessId program) const { return started_.contains(program); }
  // Its Main has come back, it waits for its user, or it is no more.
  bool IsUp(ProcessId program) const;
  bool AnyProgramWaitsForUser() const;

  // Ends all processes, however deep their calls stand.
  void EndAll();

 private:
  desk::Desk desk_;
  bool hasClient_ = false;
  std::vector<ProcessId> programs_;
  std::set<ProcessId> started_;
};

}  // namespace corvel::tools
