#pragma once
// A reference to a list record, as qbXML's reference aggregates ("ParentRef", "TermsRef" ...)
// carry it: the record's ListID and/or FullName, and which list it points into.
#include <string>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"

namespace brenvale {

class zkListObject;

class zkListObjectRef {
 public:
  zkListObjectRef() = default;
  zkListObjectRef(std::string fullName, zqEnumListType list, std::string listID = {})
      : listID_(std::move(listID)), list_(list), fullName_(std::move(fullName)) {}

  const std::string& ListID() const { return listID_; }
  void ListID(std::string v) { listID_ = std::move(v); }
  zqEnumListType List() const { return list_; }
  void List(zqEnumListType v) { list_ = v; }
  const std::string& FullName() const { return fullName_; }
  void FullName(std::string v) { fullName_ = std::move(v); }
  // The referred record, looked up in the master collection of its list (loaded records first,
  // then QuickBooks); null when it cannot be found.
  zkListObject* Object() const;
  Variant& UserData() { return userData_; }

  bool IsEmpty() const { return listID_.empty() && fullName_.empty(); }
  bool operator==(const zkListObjectRef& o) const {
    return listID_ == o.listID_ && list_ == o.list_ && fullName_ == o.fullName_;
  }

 private:
  std::string listID_;
  zqEnumListType list_ = zqListTypeNone;
  std::string fullName_;
  Variant userData_;
};

}  // namespace brenvale
