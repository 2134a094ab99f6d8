#include "practice/win32/channel.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace corvel::practice {
namespace {

constexpr std::size_t kLengthBytes = 4;

std::string LengthOf(std::size_t length) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8)
    bytes += static_cast<char>(static_cast<std::uint32_t>(length) >> shift & 0xFF);
  return bytes;
}

// Takes a length off the front; nothing if it is cut or reaches beyond the bytes.
std::optional<std::size_t> TakeLength(std::string_view& bytes) {
  if (bytes.size() < kLengthBytes) return std::nullopt;
  std::uint32_t length = 0;
  for (std::size_t i = kLengthBytes; i-- > 0;)
    length = length << 8 | static_cast<unsigned char>(bytes[i]);
  bytes.remove_prefix(kLengthBytes);
  if (length > bytes.size()) return std::nullopt;
  return length;
}

}  // namespace

std::string Packed(const Words& words) {
  std::string bytes;
  for (const std::string& word : words) bytes += LengthOf(word.size()) + word;
  return bytes;
}

std::optional<Words> Unpacked(std::string_view bytes) {
  Words words;
  while (!bytes.empty()) {
    const auto length = TakeLength(bytes);
    if (!length) return std::nullopt;
    words.emplace_back(bytes.substr(0, *length));
    bytes.remove_prefix(*length);
  }
  return words;
}

Section::Section(HANDLE mapping)
    : mapping_(mapping),
      view_(mapping == nullptr
                ? nullptr
                : static_cast<char*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, kSectionBytes))) {
}

Section Section::Make(const std::string& name) {
  return Section(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                    static_cast<DWORD>(kSectionBytes), name.c_str()));
}

Section Section::Open(const std::string& name) {
  return Section(OpenFileMappingA(FILE_MAP_WRITE, FALSE, name.c_str()));
}

Section::~Section() {
  if (view_ != nullptr) UnmapViewOfFile(view_);
  if (mapping_ != nullptr) CloseHandle(mapping_);
}

Section::Section(Section&& other) noexcept
    : mapping_(std::exchange(other.mapping_, nullptr)),
      view_(std::exchange(other.view_, nullptr)) {}

bool Section::Write(const Words& words) {
  const std::string bytes = Packed(words);
  if (bytes.size() + kLengthBytes > kSectionBytes) return false;
  const std::string all = LengthOf(bytes.size()) + bytes;
  std::memcpy(view_, all.data(), all.size());
  return true;
}

std::optional<Words> Section::Read() const {
  std::string_view bytes(view_, kSectionBytes);
  const auto length = TakeLength(bytes);
  return length ? Unpacked(bytes.substr(0, *length)) : std::nullopt;
}

}  // namespace corvel::practice
