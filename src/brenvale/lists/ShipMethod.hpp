#pragma once
// A ship method: a way goods are sent (a courier, the post).
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class ShipMethod : public ListRecord {
 public:
  ShipMethod() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();
};

}  // namespace brenvale
