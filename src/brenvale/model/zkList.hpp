#pragma once
// The interface every list collection implements, through which references and parent checks
// reach any list without knowing its type.
#include <string>
#include <string_view>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"
#include "brenvale/core/zkErrors.hpp"
#include "brenvale/model/zkListObject.hpp"

namespace brenvale {

class zkList {
 public:
  virtual ~zkList() = default;
  virtual zqEnumListType ListType() const = 0;
  virtual zkListObject& Item(std::string_view key) = 0;
  virtual zkListObject& Item(std::size_t position) = 0;
  virtual zkErrors& Errors() = 0;
  virtual bool ItemExists(std::string_view key) const = 0;
  virtual Long Count() const = 0;
  virtual void Remove(std::string_view key) = 0;
  virtual void Remove(std::size_t position) = 0;
  virtual void Clear() = 0;
  virtual Long Commit() = 0;
  virtual bool Validate() = 0;
  virtual Long GetActive(Long MaxReturned = 0, const std::string& sMDBPath = {}) = 0;
  virtual Long GetAll(Long MaxReturned = 0, const std::string& sMDBPath = {}) = 0;
  // The record found in QuickBooks (also kept in the collection), or null.
  virtual zkListObject* GetByFullName(const std::string& sFullName) = 0;
  virtual zkListObject* GetByListID(const std::string& sListID) = 0;
  // The loaded record filed under `key`, or null; asks QuickBooks nothing.
  virtual zkListObject* Find(std::string_view key) = 0;
};

}  // namespace brenvale
