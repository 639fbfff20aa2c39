#include "brenvale/lists/PaymentMethod.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {

const RecordSchema& PaymentMethod::StaticSchema() {
  static const RecordSchema schema(detail::FlatSimpleList("PaymentMethod", "PaymentMethod",
                                                          zqObjectTypePaymentMethod, zqListTypePaymentMethod,
                                                          "Modify not allowed"));
  return schema;
}

PaymentMethod::PaymentMethod() : ListRecord(StaticSchema()) {}

}  // namespace brenvale
