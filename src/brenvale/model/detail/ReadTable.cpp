#include "brenvale/model/detail/ReadTable.hpp"

#include <memory>
#include <vector>

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
  // One table per declaration, kept for the thread's life: a record's table is in use while it
  // reads its nested records of other declarations, so none may be dropped to make room. A program
  // has a bounded number of declarations, and a read meets few of them: the last one and a short
  // list serve.
  thread_local std::vector<std::unique_ptr<ReadTable>> tables;
  thread_local const ReadTable* last = nullptr;
  if (last && last->decl_ == &decl) return *last;
  for (const auto& t : tables)
    if (t->decl_ == &decl) return *(last = t.get());
  tables.push_back(std::make_unique<ReadTable>(decl));
  return *(last = tables.back().get());
}

}  // namespace brenvale::detail
