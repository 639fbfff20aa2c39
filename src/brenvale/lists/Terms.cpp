#include "brenvale/lists/Terms.hpp"

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/TraceHook.hpp"

namespace brenvale {

zkTerm& Terms::Add(zqEnumListObjectType TermsType, std::string_view Name, bool IsActive) {
  switch (TermsType) {
    case zqObjectTypeStandardTerms: return Add<StandardTerm>(Name, IsActive);
    case zqObjectTypeDateDrivenTerms: return Add<DateDrivenTerm>(Name, IsActive);
    default: Raise(1900, CollectionLabel());
  }
}

Long Terms::GetByType(zqEnumListObjectType TermsType, Long MaxReturned) {
  std::string_view kind;
  switch (TermsType) {
    case zqObjectTypeStandardTerms: kind = StandardTerm::Declaration().xmlName; break;
    case zqObjectTypeDateDrivenTerms: kind = DateDrivenTerm::Declaration().xmlName; break;
    default: Raise(1900, CollectionLabel(), "Bad type in GetByType");
  }
  return Query(MaxReturned, 0, {}, true, kind);
}

std::shared_ptr<RecordCore> Terms::MakeRecord(std::string_view retName) {
  std::shared_ptr<RecordCore> made = ListCollection::MakeRecord(retName);
  if (!made) detail::Trace(CollectionLabel(), "Unknown Term");
  return made;
}

}  // namespace brenvale
