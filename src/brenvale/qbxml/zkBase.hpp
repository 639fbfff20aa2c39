#pragma once
// The interface of every record and transaction, as the request machinery calls it.
#include <cstdint>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"

namespace brenvale {

class xmlBldr;
class DomNode;

class zkBase {
 public:
  virtual ~zkBase() = default;
  // Writes the body of the record's Add request into the builder.
  virtual Long XMLInsert(xmlBldr& cxmlbldr) = 0;
  // Writes the record in query-response form (I/O documents).
  virtual Long XMLQueryRs(xmlBldr& cxmlbldr) = 0;
  // Writes the body of the record's Mod request.
  virtual Long XMLModify(xmlBldr& cxmlbldr) = 0;
  virtual zqEnumListObjectType ObjectType() const = 0;
  // Fills the record from its response element.
  virtual Long FromDom(const DomNode& obj) = 0;
};

}  // namespace brenvale
