#pragma once
#include "brenvale/lists/PayrollItemNonWage.hpp"
#include "brenvale/model/ListCollection.hpp"

namespace brenvale {

// Read only: filled by the queries; there is nothing to add.
class PayrollItemNonWages : public ListCollection<PayrollItemNonWage> {
 public:
  using ListCollection::ListCollection;
};

}  // namespace brenvale
