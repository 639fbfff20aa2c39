#pragma once
// The objects data extensions are kept on, as QuickBooks names them: the kinds a definition is
// assigned to ("AssignToObject"), and how a value's request names its object — a list record by
// "ListDataExtType" and "ListObjRef", the company by "OtherDataExtType", a transaction or one of its
// lines by "TxnDataExtType", "TxnID" and "TxnLineID".
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "brenvale/core/EnumTypes.hpp"

namespace brenvale {

enum class DataExtRefForm : std::uint8_t { None, List, Company, Txn };

struct DataExtObject {
  zqEnumListObjectType type = zqObjectTypeNone;  // the kind QuickBooks keeps the values on
  std::string_view tag{};                        // its name in "AssignToObject" and the *DataExtType
  DataExtRefForm form = DataExtRefForm::None;
};

// Where one record's values are kept: the kind QuickBooks keeps them on, the record's ListID or
// TxnID, and for a transaction line its TxnLineID.
struct DataExtTarget {
  zqEnumListObjectType type = zqObjectTypeNone;
  std::string id;
  std::string lineId;
};

// Every object data extensions can be assigned to, in the order QuickBooks lists them.
std::span<const DataExtObject> DataExtObjects();

// The object the values of a record kind are kept on: every kind of item is kept as "Item". A kind
// that keeps none (a job type, a to-do) gives an object of form None.
DataExtObject DataExtObjectOf(zqEnumListObjectType type);
// The object with that tag (as QuickBooks writes it); form None for a tag the library does not know.
DataExtObject DataExtObjectNamed(std::string_view tag);

}  // namespace brenvale
