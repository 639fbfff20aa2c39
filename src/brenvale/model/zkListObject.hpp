#pragma once
// The interface every list record implements, as collections and other records reach it.
#include <string>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"
#include "brenvale/core/zkErrors.hpp"

namespace brenvale {

class DomNode;
class zkListObjectRefs;

class zkListObject {
 public:
  virtual ~zkListObject() = default;
  virtual zqEnumListObjectType ObjectType() const = 0;
  virtual std::string ListID() const = 0;
  virtual std::string Name() const = 0;
  virtual std::string CollectionKey() const = 0;
  virtual zkErrors& Errors() = 0;
  virtual bool SupportsChildren() const = 0;
  virtual std::string Parent() const = 0;
  virtual zkListObjectRefs& Children() = 0;
  virtual std::string FullName() const = 0;
  virtual Integer Sublevel() const = 0;
  virtual zqEnumObjectState ObjectState() const = 0;
  virtual Long FromDom(const DomNode& obj) = 0;
  virtual bool Validate() = 0;
};

}  // namespace brenvale
