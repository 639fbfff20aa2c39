#include "brenvale/lists/CustomerMessage.hpp"

#include "brenvale/lists/detail/SimpleListSchemas.hpp"

namespace brenvale {

const RecordSchema& CustomerMessage::StaticSchema() {
  static const RecordSchema schema([] {
    SchemaSpec s = detail::FlatSimpleList("CustomerMessage", "CustomerMsg", zqObjectTypeCustomerMsg,
                                          zqListTypeCustomerMsg, "Modify not allowed");
    s.collectionLabel = "CustomerMsg";
    // A message may be longer than other names.
    s.rules = {{RuleKind::NotEmpty, "Name", 0, 1012, "Name"},
               {RuleKind::MaxLength, "Name", 101, 2400, "Name"}};
    return s;
  }());
  return schema;
}

CustomerMessage::CustomerMessage() : ListRecord(StaticSchema()) {}

}  // namespace brenvale
