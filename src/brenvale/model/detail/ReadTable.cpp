#include "brenvale/model/detail/ReadTable.hpp"

#include <memory>
#include <unordered_map>

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
  // A table lives as long as the thread: a record being read holds its kind's table while its nested
  // records and lines are read with theirs. The few declarations read last are found without a hash.
  thread_local std::unordered_map<const RecordDecl*, std::unique_ptr<ReadTable>> tables;
  thread_local std::array<const ReadTable*, 8> recent{};
  thread_local std::size_t next = 0;
  for (const ReadTable* t : recent)
    if (t && t->decl_ == &decl) return *t;
  std::unique_ptr<ReadTable>& held = tables[&decl];
  if (!held) held = std::make_unique<ReadTable>(decl);
  recent[next] = held.get();
  next = (next + 1) % recent.size();
  return *held;
}

}  // namespace brenvale::detail
