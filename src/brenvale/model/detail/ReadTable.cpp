#include "brenvale/model/detail/ReadTable.hpp"

#include <memory>

namespace brenvale::detail {

ReadTable::ReadTable(const RecordDecl& decl) : decl_(&decl) {
  auto add = [&](std::string_view tag, FieldId id) {
    entries_.push_back(Entry{tag.data(), static_cast<std::uint32_t>(tag.size()), id});
    lengths_ |= std::uint64_t{1} << (tag.size() & 63);
    const auto first = static_cast<unsigned char>(tag.front());
    firsts_[first >> 6] |= std::uint64_t{1} << (first & 63);
  };
  for (FieldId id : decl.read) add(decl.Field(id).tag, id);
  // A field other versions name otherwise is read under each name; those come last, so that a
  // record read in the declared order finds each element where it looks first.
  for (FieldId id : decl.read)
    if (const FieldTags* tags = decl.Field(id).tags)
      for (std::string_view other : tags->also) add(other, id);
}

const ReadTable& ReadTable::Of(const RecordDecl& decl) {
  // A few declarations are read at a time (a kind, its addresses, its lines): a small cache serves.
  thread_local std::array<std::unique_ptr<ReadTable>, 8> cache;
  thread_local std::size_t next = 0;
  for (const auto& t : cache)
    if (t && t->decl_ == &decl) return *t;
  auto& slot = cache[next];
  next = (next + 1) % cache.size();
  slot = std::make_unique<ReadTable>(decl);
  return *slot;
}

}  // namespace brenvale::detail
