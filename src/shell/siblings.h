// The maker's other programs: started from their stored paths.
#pragma once

#include "core/features/siblings.h"
#include "core/program.h"

#include <string>

namespace corvel {

class SiblingPrograms : public Siblings {
 public:
  explicit SiblingPrograms(Program& program) : program_(program) {}
  void Join(Hub& hub);

  void StartPalroster() override;
  void StartBackdrape() override;

 private:
  bool Start(const std::string& path);
  void StartOrTell(const std::string& path);

  Program& program_;
};

}  // namespace corvel
