#pragma once
#include <memory>
#include <string_view>

#include "brenvale/model/ListCollection.hpp"
#include "brenvale/pricing/PriceLevel.hpp"

namespace brenvale {

// Price levels, filed by name.
class PriceLevels : public ListCollection<PriceLevel> {
 public:
  using ListCollection::ListCollection;

  // A new level (master only: 1021 otherwise); "FixedPercentage" or "PerItem" as its type, or
  // empty to let what it holds decide.
  PriceLevel& Add(std::string_view Name = {}, bool IsActive = true, std::string_view PriceLevelType = {}) {
    auto record = std::make_shared<PriceLevel>();
    record->Name(Name);
    record->IsActive(IsActive);
    if (!PriceLevelType.empty()) record->PriceLevelType(PriceLevelType);
    return AddNew(std::move(record));
  }
};

}  // namespace brenvale
