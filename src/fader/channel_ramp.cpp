#include "fader/channel_ramp.h"

#include <bit>
#include <limits>
#include <numeric>

namespace corvel {
namespace {

constexpr std::uint64_t kNoTie = std::numeric_limits<std::uint64_t>::max();

// The place of the highest bit, from 1.
int BitWidth(std::uint32_t value) { return static_cast<int>(std::bit_width(value)); }

}  // namespace

ChannelRamp::ChannelRamp(std::uint8_t from, std::uint8_t to, std::uint32_t length)
    : from_(from),
      falling_(to < from),
      distance_(static_cast<std::uint32_t>(falling_ ? from - to : to - from)),
      length_(length),
      level_((2 * std::uint64_t{from} + 1) << (kFractionBits - 1)),
      nextTie_(kNoTie) {
  const std::uint64_t scaled = std::uint64_t{distance_} << kFractionBits;
  const std::uint64_t step = scaled / length_;
  stepRest_ = static_cast<std::uint32_t>(scaled - step * length_);
  step_ = falling_ ? 0 - step : step;
  FindTies();
}

// The value at i is a tie where 2 * distance * i / length is odd. In lowest terms the fraction must
// have an odd numerator, so the length must hold more factors of two than the distance; then the
// ties are the odd multiples of the denominator.
void ChannelRamp::FindTies() {
  if (std::countr_zero(length_) <= std::countr_zero(distance_)) return;
  const std::uint32_t common = std::gcd(2 * distance_, length_);
  nextTie_ = length_ / common;
  tiePeriod_ = 2 * nextTie_;
  tieRise_ = 2 * distance_ / common;
  tieRisePeriod_ = 2 * tieRise_;
  // A power of two as the denominator of the rise leaves the quotient a double.
  const bool exactQuotient = (nextTie_ & (nextTie_ - 1)) == 0;
  if (exactQuotient)
    SkipTiesToOdd();
  else
    MeasureQuotient();
}

// With an exact quotient the course is exact too, and rounds each tie up. That is right if the
// integer below is odd; it is by turns, since from tie to tie it moves by an odd number.
void ChannelRamp::SkipTiesToOdd() {
  const bool belowIsOdd = TwiceTieValue() / 2 % 2 == 1;
  if (belowIsOdd) {
    nextTie_ += tiePeriod_;
    tieRise_ += tieRisePeriod_;
  }
  tiePeriod_ *= 2;
  tieRisePeriod_ *= 2;
}

void ChannelRamp::MeasureQuotient() {
  quotientExponent_ = BitWidth(distance_) - BitWidth(length_);
  std::uint64_t top = distance_;
  quotientScale_ = length_;
  if (quotientExponent_ < 0)
    top <<= -quotientExponent_;
  else
    quotientScale_ <<= quotientExponent_;
  if (top < quotientScale_) {
    top <<= 1;
    --quotientExponent_;
  }
  // 52 bits of a double stand behind its first one. They are divided off in two halves, to stay
  // within 64 bits.
  std::uint64_t rest = top - quotientScale_;
  rest = (rest << 26) % quotientScale_;
  rest = (rest << 26) % quotientScale_;
  // Exactly half a unit cannot be left: the quotient would need 54 bits, and a finite one has 8.
  const bool roundedUp = 2 * rest > quotientScale_;
  quotientRest_ = static_cast<std::int64_t>(rest);
  if (roundedUp) quotientRest_ -= static_cast<std::int64_t>(quotientScale_);
}

void ChannelRamp::Settle(const Course& course, std::size_t count) {
  done_ += count;
  owed_ += std::uint64_t{stepRest_} * count;
  const std::uint64_t paid = owed_ / length_;
  owed_ -= paid * length_;
  level_ = falling_ ? course.level_ - paid : course.level_ + paid;
}

// What double precision makes of a tie: the even neighbour if it sees the tie, else the side on
// which the rounding of quotient and product has left the value.
std::uint8_t ChannelRamp::DriftedTie() const {
  const std::uint32_t twiceValue = TwiceTieValue();
  const std::uint32_t below = twiceValue / 2;
  // A drift of one unit in the last place of the rise is lost in a sum of a higher power of two: it
  // is half a unit there or less, and the sum's last bit is even.
  const int drift = Drift();
  if (drift == 0 || BitWidth(twiceValue) > BitWidth(tieRise_))
    return static_cast<std::uint8_t>(below + (below & 1));
  const bool up = (drift > 0) != falling_;
  return static_cast<std::uint8_t>(up ? below + 1 : below);
}

// By how many units in its last place the double product quotient * i misses the exact rise, which
// ends in a half: -1, 0 or 1. The quotient is off by half a unit at most, so the exact product of
// the two is off by less than one unit of the rise, and rounds to the rise unless that is more than
// half of one.
int ChannelRamp::Drift() const {
  const bool tooSmall = quotientRest_ > 0;
  const auto rest = static_cast<std::uint64_t>(tooSmall ? quotientRest_ : -quotientRest_);
  const std::uint64_t missing =
      rest * nextTie_ / quotientScale_;  // in units of the quotient; exact
  const int riseExponent = BitWidth(tieRise_) - 2;
  const std::uint64_t riseUnit = std::uint64_t{1} << (riseExponent - quotientExponent_);
  if (2 * missing <= riseUnit) return 0;
  return tooSmall ? -1 : 1;
}

}  // namespace corvel
