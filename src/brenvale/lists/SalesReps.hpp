#pragma once
#include "brenvale/lists/SalesRep.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class SalesReps : public ListCollection<SalesRep> {
 public:
  using ListCollection::ListCollection;

  SalesRep& Add(std::string Initial = {}, bool IsActive = true, std::string EntityFullName = {}) {
    auto record = std::make_shared<SalesRep>();
    record->Initial(std::move(Initial));
    record->IsActive(IsActive);
    if (!EntityFullName.empty()) record->SalesRepEntityRef(std::move(EntityFullName));
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
