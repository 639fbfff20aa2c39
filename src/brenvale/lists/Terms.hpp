#pragma once
#include <memory>
#include <string_view>

#include "brenvale/lists/DateDrivenTerm.hpp"
#include "brenvale/lists/StandardTerm.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

// Payment terms of both kinds, filed by name: a query answers standard and date-driven terms, each
// read into a record of its own kind.
class Terms : public ListCollection<zkTerm, StandardTerm, DateDrivenTerm> {
 public:
  using ListCollection::ListCollection;

  // New terms of the kind (zqObjectTypeStandardTerms, zqObjectTypeDateDrivenTerms); any other
  // kind raises 1900.
  zkTerm& Add(zqEnumListObjectType TermsType, std::string_view Name = {}, bool IsActive = true);
  template <class K>
  K& Add(std::string_view Name = {}, bool IsActive = true) {
    auto record = std::make_shared<K>();
    record->Name(Name);
    record->IsActive(IsActive);
    return AddNew(std::move(record));
  }
  // Queries terms of one kind only; any other kind raises 1900 ("Bad type in GetByType").
  Long GetByType(zqEnumListObjectType TermsType, Long MaxReturned = 0);

 protected:
  // An answer of any other kind is left out, and said to the trace hook as "Unknown Term".
  std::shared_ptr<RecordCore> MakeRecord(std::string_view retName) override;
};

}  // namespace brenvale
