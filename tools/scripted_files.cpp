// The drive of a scenario; see scripted_files.h.
#include "tools/scripted_files.h"

#include "base/error.h"
#include "platform/desk/profile_text.h"

namespace corvel::tools {

std::size_t ScriptedFiles::SizeOf(std::string_view path) {
  if (!home_.Exists(path) || home_.IsFolder(path)) return 0;
  try {
    return home_.Read(path).size();
  } catch (const RunTimeError&) {
    return 0;
  }
}

// A file that can't be written to says so, on a full drive too: writing nothing finds it out.
void ScriptedFiles::CheckRoom(std::string_view path, std::size_t bytes) {
  if (faults_.HasRoom(static_cast<std::int64_t>(bytes))) return;
  const bool isNew = !home_.Exists(path);
  home_.Append(path, "");
  if (isNew) home_.Delete(path);
  throw RunTimeError(err::kDiskFull);
}

std::string ScriptedFiles::Read(std::string_view path) {
  faults_.Begin(path);
  return home_.Read(path);
}

void ScriptedFiles::Write(std::string_view path, std::string_view bytes) {
  faults_.Begin(path);
  CheckRoom(path, bytes.size());
  const std::size_t before = SizeOf(path);
  home_.Write(path, bytes);
  faults_.Changed(before, bytes.size());
}

void ScriptedFiles::Append(std::string_view path, std::string_view bytes) {
  faults_.Begin(path);
  CheckRoom(path, bytes.size());
  home_.Append(path, bytes);
  faults_.Changed(0, bytes.size());
}

void ScriptedFiles::MakeFolder(std::string_view path) {
  faults_.Begin(path);
  home_.MakeFolder(path);
}

void ScriptedFiles::Delete(std::string_view path) {
  faults_.Begin(path);
  const std::size_t before = SizeOf(path);
  home_.Delete(path);
  faults_.Changed(before, 0);
}

void ScriptedFiles::Copy(std::string_view from, std::string_view to) {
  faults_.Begin(from, to);
  const std::size_t size = SizeOf(from), before = SizeOf(to);
  if (!faults_.HasRoom(static_cast<std::int64_t>(size))) {
    home_.Read(from);  // what can't be read can't be copied, whatever the room
    CheckRoom(to, size);
  }
  home_.Copy(from, to);
  faults_.Changed(before, size);
}

void ScriptedFiles::Rename(std::string_view from, std::string_view to) {
  faults_.Begin(from, to);
  home_.Rename(from, to);
}

void ScriptedFiles::SetAttributes(std::string_view path, std::uint32_t attributes) {
  faults_.Begin(path);
  home_.SetAttributes(path, attributes);
}

bool ScriptedFiles::WriteProfile(std::string_view path, std::string_view section,
                                 std::string_view key, std::optional<std::string_view> value) {
  const std::string whole = desk::ProfilePath(path, "C:\\WINDOWS");
  try {
    faults_.Begin(whole);
    const std::string old = SizeOf(whole) > 0 ? home_.Read(whole) : "";
    const std::size_t size = desk::WithProfileValue(old, section, key, value).size();
    if (!faults_.HasRoom(static_cast<std::int64_t>(size))) return false;
    if (!home_.WriteProfile(path, section, key, value)) return false;
    faults_.Changed(old.size(), size);
    return true;
  } catch (const RunTimeError&) {
    return false;
  }
}

}  // namespace corvel::tools
