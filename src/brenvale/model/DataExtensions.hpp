#pragma once
// The data extension values of one owner on one object: a record's CustomFields (QuickBooks' own
// custom fields, owner "0") or ApplicationFields (the fields of the application whose GUID is
// registered), or a collection a host fills for any object it names by OwnerType and ListOrTxnId.
// Values are found by name; a name must be defined for the object's kind (2804). Commit saves what
// changed in one message.
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"
#include "brenvale/core/detail/PointeeIterator.hpp"
#include "brenvale/core/zkErrors.hpp"
#include "brenvale/model/DataExtObject.hpp"
#include "brenvale/model/DataExtension.hpp"

namespace brenvale {

class RecordCore;

class DataExtensions {
 public:
  // A collection of its own: OwnerType, OwnerId and ListOrTxnId say where its values are kept.
  DataExtensions();
  // The values of `record` (owner "0" or an application's GUID).
  DataExtensions(RecordCore& record, std::string ownerId);
  ~DataExtensions();
  DataExtensions(const DataExtensions&) = delete;
  DataExtensions& operator=(const DataExtensions&) = delete;

  // The kind of object the values are kept on; while unset, the record's.
  void OwnerType(zqEnumListObjectType value) { ownerType_ = value; }
  zqEnumListObjectType OwnerType() const;
  // "0" for QuickBooks' own custom fields, else the application's GUID.
  void OwnerId(std::string value) { ownerId_ = std::move(value); }
  const std::string& OwnerId() const { return ownerId_; }
  // The object's ListID or TxnID (and a line's TxnLineID); while unset, the record's.
  std::string ListOrTxnId() const;
  void ListOrTxnId(std::string value) { listOrTxnId_ = std::move(value); }
  std::string TxnLineId() const;
  void TxnLineId(std::string value) { txnLineId_ = std::move(value); }

  // Dirty while a value waits to be saved; Clean when QuickBooks keeps every value held; New when
  // it keeps none of them.
  zqEnumObjectState ObjectState() const;
  zkErrors& Errors();
  const zkErrors& Errors() const;

  // The value of that name, held or made (with the type of its definition when the session knows
  // it, else text); it is saved once it has a value.
  DataExtension& Add(std::string_view Name);
  bool ItemExists(std::string_view Name) const { return Find(Name) != nullptr; }
  // The value of that name (a String key; any other raises 2800). A name not held yet must be
  // defined for the object's kind, by this owner (2804); the definitions are asked of QuickBooks
  // once per session and kind.
  DataExtension& Item(const Variant& vntIndexKey);
  DataExtension& operator[](std::string_view Name) { return Item(std::string(Name)); }
  DataExtension* Find(std::string_view Name) const;
  // Forgets the values held (nothing is sent).
  void Clear() { items_.clear(); }
  Long Count() const { return static_cast<Long>(items_.size()); }

  using iterator = detail::PointeeIterator<std::vector<std::unique_ptr<DataExtension>>::const_iterator, DataExtension>;
  iterator begin() const { return iterator(items_.begin()); }
  iterator end() const { return iterator(items_.end()); }

  // Saves every value added, changed or cleared, in one message (given IDs name the object first).
  // Returns how many QuickBooks saved. Failures are collected: 1011 or 1018 here, the reason in the
  // value's Errors; with the library-wide setting on, 1023 is raised after.
  Long Commit(std::string_view ListOrTxnId = {}, std::string_view TxnLineId = {});
  // Every field defined for the object's kind by this owner, with the object's values from
  // QuickBooks (when it keeps the object already). Returns how many are held.
  Long GetAll();
  // Checks every value that waits to be saved; true when none fails.
  bool Validate();

  // Reads one "DataExtRet" element into the value of its name.
  void Read(const DomNode& dataExtRet);
  // Where the values are kept.
  DataExtTarget Target() const;
  // Collects what is wrong with where `value` would be kept.
  void CheckTarget(const DataExtension& value, zkErrors& errors) const;

 private:
  DataExtension& Make(std::string name, qbEnumDataExtDataType type);

  RecordCore* record_ = nullptr;
  zqEnumListObjectType ownerType_ = zqObjectTypeNone;
  std::string ownerId_ = "0";
  std::string listOrTxnId_;
  std::string txnLineId_;
  std::vector<std::unique_ptr<DataExtension>> items_;
  std::unique_ptr<zkErrors> errors_;
};

}  // namespace brenvale
