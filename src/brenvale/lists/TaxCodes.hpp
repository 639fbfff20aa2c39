#pragma once
#include "brenvale/lists/TaxCode.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class TaxCodes : public ListCollection<TaxCode> {
 public:
  using ListCollection::ListCollection;

  TaxCode& Add(std::string Name = {}, bool IsActive = true, std::string Desc = {}) {
    auto record = std::make_shared<TaxCode>();
    record->Name(std::move(Name));
    record->IsActive(IsActive);
    if (!Desc.empty()) record->Desc(std::move(Desc));
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
