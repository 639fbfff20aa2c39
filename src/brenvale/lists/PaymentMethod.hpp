#pragma once
// A payment method: a way customers pay ("Cash", "Check", "Visa").
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class PaymentMethod : public ListRecord {
 public:
  PaymentMethod();
  static const RecordSchema& StaticSchema();
};

}  // namespace brenvale
