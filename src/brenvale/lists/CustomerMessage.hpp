#pragma once
// A customer message, printed on sales forms; its name is the message text, up to 101
// characters. Its qbXML name is "CustomerMsg".
#include "brenvale/model/ListRecord.hpp"

namespace brenvale {

class CustomerMessage : public ListRecord {
 public:
  CustomerMessage() : ListRecord(Declaration()) {}
  static const RecordDecl& Declaration();
};

}  // namespace brenvale
