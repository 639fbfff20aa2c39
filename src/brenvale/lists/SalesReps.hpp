#pragma once
#include <string_view>

#include "brenvale/lists/SalesRep.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

class SalesReps : public ListCollection<SalesRep> {
 public:
  using ListCollection::ListCollection;

  SalesRep& Add(std::string_view Initial = {}, bool IsActive = true, std::string_view EntityFullName = {}) {
    auto record = std::make_shared<SalesRep>();
    record->Initial(Initial);
    record->IsActive(IsActive);
    if (!EntityFullName.empty()) record->SalesRepEntityRef(EntityFullName);
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
