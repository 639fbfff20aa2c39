#include "brenvale/model/RecordIndex.hpp"

#include <bit>

namespace brenvale {
namespace {

constexpr unsigned char Fold(char c) {
  return static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

}  // namespace

std::uint64_t RecordIndex::Hash(const KeyParts& key) {
  // FNV-1a over the folded bytes of the pieces, as if they were one text.
  std::uint64_t h = 14695981039346656037ull;
  for (std::string_view part : key.part)
    for (char c : part) {
      h ^= Fold(c);
      h *= 1099511628211ull;
    }
  return h;
}

bool RecordIndex::Equal(const KeyParts& a, const KeyParts& b) {
  if (a.Size() != b.Size()) return false;
  // Walks both keys piece by piece.
  std::size_t pa = 0, ia = 0, pb = 0, ib = 0;
  for (std::size_t n = a.Size(); n > 0; --n) {
    while (ia == a.part[pa].size()) ++pa, ia = 0;
    while (ib == b.part[pb].size()) ++pb, ib = 0;
    if (Fold(a.part[pa][ia++]) != Fold(b.part[pb][ib++])) return false;
  }
  return true;
}

void RecordIndex::Clear() {
  buckets_.clear();
  used_ = live_ = 0;
}

void RecordIndex::Reserve(std::size_t count) {
  if (count * 2 > buckets_.size()) Rehash(count * 2);
}

void RecordIndex::Rehash(std::size_t wanted) {
  std::size_t size = std::bit_ceil(wanted < 16 ? std::size_t{16} : wanted);
  std::vector<Bucket> old = std::move(buckets_);
  buckets_.assign(size, Bucket{0, kEmpty});
  used_ = live_ = 0;
  for (const Bucket& b : old)
    if (b.position != kEmpty && b.position != kGone) Insert(b.hash, b.position);
}

void RecordIndex::Insert(std::uint64_t hash, std::uint32_t position) {
  if ((used_ + 1) * 2 > buckets_.size()) Rehash(live_ * 4 + 16);
  const std::size_t mask = buckets_.size() - 1;
  std::size_t at = hash & mask;
  while (buckets_[at].position != kEmpty && buckets_[at].position != kGone) at = (at + 1) & mask;
  if (buckets_[at].position == kEmpty) ++used_;
  buckets_[at] = Bucket{hash, position};
  ++live_;
}

void RecordIndex::Erase(std::uint64_t hash, std::uint32_t position) {
  if (buckets_.empty()) return;
  const std::size_t mask = buckets_.size() - 1;
  for (std::size_t at = hash & mask; buckets_[at].position != kEmpty; at = (at + 1) & mask) {
    if (buckets_[at].hash == hash && buckets_[at].position == position) {
      buckets_[at].position = kGone;
      --live_;
      return;
    }
  }
}

void RecordIndex::Shift(std::uint32_t from, int delta) {
  for (Bucket& b : buckets_)
    if (b.position != kEmpty && b.position != kGone && b.position >= from)
      b.position = static_cast<std::uint32_t>(static_cast<std::int64_t>(b.position) + delta);
}

}  // namespace brenvale
