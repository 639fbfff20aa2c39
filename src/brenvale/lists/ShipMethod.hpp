#pragma once
// A ship method: a way goods are shipped ("UPS", "Courier").
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class ShipMethod : public ListRecord {
 public:
  ShipMethod();
  static const RecordSchema& StaticSchema();
};

}  // namespace brenvale
