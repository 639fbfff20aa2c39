#pragma once
// The key index of a collection: positions by the hash of a record's key, compared without regard
// to (ASCII) case. Keys are not stored: a record's key is read from the record itself, so filing a
// record costs no text, and a record whose key changed is filed again where it stands, in constant
// time, without moving any other.
#include <cstdint>
#include <string_view>
#include <vector>

#include "brenvale/model/RecordCore.hpp"

namespace brenvale {

class RecordIndex {
 public:
  static std::uint64_t Hash(const KeyParts& key);
  static std::uint64_t Hash(std::string_view key) { return Hash(KeyParts{{key}}); }
  // Whether two keys are equal, case aside.
  static bool Equal(const KeyParts& a, const KeyParts& b);

  void Clear();
  void Reserve(std::size_t count);
  void Insert(std::uint64_t hash, std::uint32_t position);
  void Erase(std::uint64_t hash, std::uint32_t position);
  // The first position filed under `hash` for which `matches(position)` holds; 0 when none.
  template <class Match>
  std::uint32_t Find(std::uint64_t hash, Match&& matches) const {
    if (buckets_.empty()) return 0;
    const std::size_t mask = buckets_.size() - 1;
    for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
      const Bucket& b = buckets_[at];
      if (b.position == kEmpty) return 0;
      if (b.position != kGone && b.hash == hash && matches(b.position)) return b.position;
    }
  }
  // Moves every position from `from` on by `delta` (a record removed or inserted ahead of them).
  void Shift(std::uint32_t from, int delta);

 private:
  static constexpr std::uint32_t kEmpty = 0;
  static constexpr std::uint32_t kGone = 0xFFFFFFFFu;
  struct Bucket {
    std::uint64_t hash;
    std::uint32_t position;
  };
  void Rehash(std::size_t buckets);

  std::vector<Bucket> buckets_;
  std::size_t used_ = 0;  // live and gone buckets
  std::size_t live_ = 0;
};

}  // namespace brenvale
