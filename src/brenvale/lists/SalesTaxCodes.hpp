#pragma once
#include <string_view>

#include "brenvale/lists/SalesTaxCode.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class SalesTaxCodes : public ListCollection<SalesTaxCode> {
 public:
  using ListCollection::ListCollection;

  SalesTaxCode& Add(std::string_view Name = {}, bool IsActive = true, bool IsTaxable = false,
                    std::string_view Desc = {}) {
    auto record = std::make_shared<SalesTaxCode>();
    record->Name(Name);
    record->IsActive(IsActive);
    record->IsTaxable(IsTaxable);
    if (!Desc.empty()) record->Desc(Desc);
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
