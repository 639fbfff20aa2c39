#pragma once
#include <string_view>

#include "brenvale/lists/TaxCode.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class TaxCodes : public ListCollection<TaxCode> {
 public:
  using ListCollection::ListCollection;

  TaxCode& Add(std::string_view Name = {}, bool IsActive = true, std::string_view Desc = {}) {
    auto record = std::make_shared<TaxCode>();
    record->Name(Name);
    record->IsActive(IsActive);
    if (!Desc.empty()) record->Desc(Desc);
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
