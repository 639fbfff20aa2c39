#pragma once
// A payment method: a way customers pay (cash, check, a card).
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class PaymentMethod : public ListRecord {
 public:
  PaymentMethod() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();
};

}  // namespace brenvale
