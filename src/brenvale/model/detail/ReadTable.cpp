#include "brenvale/model/detail/ReadTable.hpp"

#include <array>
#include <memory>
#include <vector>

namespace brenvale::detail {

ReadTable::ReadTable(const RecordDecl& decl) : decl_(&decl) {
  for (FieldId id : decl.read) {
    const std::string_view tag = decl.Field(id).tag;
    entries_.push_back(Entry{tag.data(), static_cast<std::uint32_t>(tag.size()), id});
    lengths_ |= std::uint64_t{1} << (tag.size() & 63);
    const auto first = static_cast<unsigned char>(tag.front());
    firsts_[first >> 6] |= std::uint64_t{1} << (first & 63);
  }
}

const ReadTable& ReadTable::Of(const RecordDecl& decl) {
  // Every table built is kept for the thread: a reader holds its table while nested records are read
  // with theirs. A few declarations are read at a time (a kind, its addresses, its lines), so the
  // most recent ones are looked at first.
  thread_local std::vector<std::unique_ptr<ReadTable>> built;
  thread_local std::array<const ReadTable*, 8> recent{};
  thread_local std::size_t next = 0;
  for (const ReadTable* t : recent)
    if (t && t->decl_ == &decl) return *t;
  const ReadTable* found = nullptr;
  for (const auto& t : built)
    if (t->decl_ == &decl) found = t.get();
  if (!found) {
    built.push_back(std::make_unique<ReadTable>(decl));
    found = built.back().get();
  }
  recent[next] = found;
  next = (next + 1) % recent.size();
  return *found;
}

}  // namespace brenvale::detail
