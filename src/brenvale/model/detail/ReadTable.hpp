#pragma once
// The elements a kind reads, laid out for reading many records of it: their tags side by side, and
// a quick filter on the length and first letter of a tag, so that an element the kind does not read
// is usually turned away without a comparison. Built once per thread and declaration.
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "brenvale/model/RecordDecl.hpp"

namespace brenvale::detail {

class ReadTable {
 public:
  explicit ReadTable(const RecordDecl& decl);

  // The field read from an element of that name, or kNoField. `cursor` remembers where the last one
  // was: elements come in the declared order, so the next one is usually there.
  FieldId Find(std::string_view tag, std::size_t& cursor) const {
    if (tag.empty()) return kNoField;
    const auto first = static_cast<unsigned char>(tag.front());
    if (!((lengths_ >> (tag.size() & 63)) & 1) || !((firsts_[first >> 6] >> (first & 63)) & 1)) return kNoField;
    const std::size_t n = entries_.size();
    for (std::size_t step = 0, at = cursor; step < n; ++step, at = at + 1 == n ? 0 : at + 1) {
      const Entry& e = entries_[at];
      if (e.size == tag.size() && Same(e.data, tag)) {
        cursor = at + 1 == n ? 0 : at + 1;
        return e.id;
      }
    }
    return kNoField;
  }

  // This thread's table of a declaration.
  static const ReadTable& Of(const RecordDecl& decl);

  // What the last record read through this table held (its values and their text): records of a
  // response are alike, so the next one is given room for as much before it reads, and its values
  // are not moved as they grow.
  mutable std::size_t lastSlots = 0;
  mutable std::size_t lastText = 0;

 private:
  // Tags are short: a plain loop beats a call to a library comparison.
  static bool Same(const char* a, std::string_view b) {
    for (std::size_t i = 0; i < b.size(); ++i)
      if (a[i] != b[i]) return false;
    return true;
  }
  struct Entry {
    const char* data;
    std::uint32_t size;
    FieldId id;
  };
  const RecordDecl* decl_;
  std::vector<Entry> entries_;
  std::uint64_t lengths_ = 0;                // bit n: a tag of length n (mod 64)
  std::array<std::uint64_t, 4> firsts_{};    // bit c: a tag beginning with byte c
  friend class ReadTableCache;
};

}  // namespace brenvale::detail
