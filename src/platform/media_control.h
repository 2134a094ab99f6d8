// The system's media control: devices that are driven by command strings.
//
// What is promised of all its commands, for wave files:
//
//   open "FILE" type WaveAudio alias ALIAS wait      the reply is the device's number
//   status ALIAS ITEM wait                           ITEM: format tag, bitspersample, channels,
//                                                    length (milliseconds), samplespersec
//   close ALIAS wait, close all wait
//
// Words are compared without case; the trailing "wait" may be left out. "format tag" is answered by
// "pcm" or by the tag's number, every other item by a number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvel {

namespace media_error {  // the system's own numbers, as far as these commands give them
inline constexpr std::uint32_t kUnknownParameter = 259;
inline constexpr std::uint32_t kUnknownCommand = 261;
inline constexpr std::uint32_t kNotOpen = 263;  // or no kind of device of that name
inline constexpr std::uint32_t kNoCommand = 267;
inline constexpr std::uint32_t kMissingParameter = 273;
inline constexpr std::uint32_t kUnsupported = 274;
inline constexpr std::uint32_t kFileNotFound = 275;
inline constexpr std::uint32_t kNotForAll = 279;
inline constexpr std::uint32_t kUnknownExtension = 281;
inline constexpr std::uint32_t kAliasInUse = 289;
inline constexpr std::uint32_t kMissingDevice = 292;
inline constexpr std::uint32_t kNoClosingQuote = 294;
inline constexpr std::uint32_t kNoSuchMedium = 296;  // it is no wave file, or a broken one
inline constexpr std::uint32_t kTextBehindQuote = 305;
}  // namespace media_error

struct MediaReply {
  std::uint32_t error = 0;  // 0: done
  std::string text{};       // at most 127 characters, up to the first NUL; "" after an error
  friend bool operator==(const MediaReply&, const MediaReply&) = default;
};

class MediaControl {
 public:
  virtual ~MediaControl() = default;
  // Carries a command out before it comes back. Aliases are each process's own; what a process has
  // left open is closed when it ends.
  virtual MediaReply Send(std::string_view command) = 0;
  // The system's words for an error, at most 127 characters; "" for a number it has none for.
  virtual std::string ErrorText(std::uint32_t error) = 0;
};

}  // namespace corvel
