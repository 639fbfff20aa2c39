#pragma once
#include "brenvale/lists/SalesTaxCode.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class SalesTaxCodes : public ListCollection<SalesTaxCode> {
 public:
  using ListCollection::ListCollection;

  SalesTaxCode& Add(std::string Name = {}, bool IsActive = true, bool IsTaxable = false,
                    std::string Desc = {}) {
    auto record = std::make_shared<SalesTaxCode>();
    record->Name(std::move(Name));
    record->IsActive(IsActive);
    record->IsTaxable(IsTaxable);
    if (!Desc.empty()) record->Desc(std::move(Desc));
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
