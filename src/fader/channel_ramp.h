// One colour channel along one gradient segment.
//
// A value is defined by double-precision arithmetic: (To - From) / N, times i, plus From, each step
// rounded to a double, and the end rounded to an integer with ties to even. The floating-point unit
// of the target keeps more digits than a double and would now and then give another one, so
// everything here is done in integers, with the same results on every machine.
#pragma once

#include <cstddef>
#include <cstdint>

namespace corvel {

class ChannelRamp {
 public:
  // The way through a block of values, kept small so that it stays in registers. It is right but
  // for ties, which EndBlock tells.
  class Course {
   public:
    std::uint8_t Next() {
      level_ += step_;
      return static_cast<std::uint8_t>(level_ >> kFractionBits);
    }

   private:
    friend ChannelRamp;
    Course(std::uint64_t level, std::uint64_t step) : level_(level), step_(step) {}
    std::uint64_t level_, step_;
  };

  // A ramp over `length` characters, 1 to 2^31 - 1. `from` itself is never a value: the first one
  // is a step along already, and the last one is `to`.
  ChannelRamp(std::uint8_t from, std::uint8_t to, std::uint32_t length);

  // Takes the ramp on by a block: Next() of the course that BeginBlock gives `count` times, at most
  // 2^20, then EndBlock with it, which calls put(index in the block, value) for each tie that the
  // course may have wrong.
  Course BeginBlock() const { return {level_, step_}; }
  template <typename Put>
  void EndBlock(const Course& course, std::size_t count, Put put) {
    const std::uint64_t end = done_ + count;
    for (; nextTie_ <= end; nextTie_ += tiePeriod_, tieRise_ += tieRisePeriod_)
      put(static_cast<std::size_t>(nextTie_ - done_ - 1), ValueAtTie());
    if (end < length_) Settle(course, count);
  }

 private:
  static constexpr int kFractionBits = 56;

  void FindTies();
  void SkipTiesToOdd();
  void MeasureQuotient();
  int Drift() const;
  std::uint8_t DriftedTie() const;
  std::uint8_t ValueAtTie() const {
    return quotientRest_ != 0 ? DriftedTie() : static_cast<std::uint8_t>(TwiceTieValue() / 2);
  }
  std::uint32_t TwiceTieValue() const {
    return falling_ ? 2u * from_ - tieRise_ : 2u * from_ + tieRise_;
  }
  void Settle(const Course& course, std::size_t count);

  std::uint8_t from_;
  bool falling_;
  std::uint32_t distance_;  // |to - from|
  std::uint32_t length_;

  // Fixed point. What the division leaves over is paid back after each block, so that the error
  // never comes near the 1 / (2 * length) that would change a rounding.
  std::uint64_t level_;
  std::uint64_t step_;
  std::uint32_t stepRest_;
  std::uint64_t owed_ = 0;  // in units of the last bit / length
  std::uint64_t done_ = 0;  // values taken

  // Where a value lies exactly between two integers, and twice its distance from `from_` there. If
  // the quotient is a double, only ties that go down are told, as the course takes each one up.
  std::uint64_t nextTie_;
  std::uint64_t tiePeriod_ = 0;
  std::uint32_t tieRise_ = 0;
  std::uint32_t tieRisePeriod_ = 0;

  // distance / length as a double is 2^quotientExponent_ or more, less than twice that, and too
  // small by quotientRest_ / quotientScale_ units in its last place.
  int quotientExponent_ = 0;
  std::int64_t quotientRest_ = 0;
  std::uint64_t quotientScale_ = 1;
};

}  // namespace corvel
