#pragma once
// One data extension (custom field) value on one object: its name, owner and type, the value, and
// where it is kept (a list record, a transaction or one of its lines, the company). A value read
// from QuickBooks is Clean; one set by the host is New until QuickBooks keeps it, Dirty when a
// value QuickBooks keeps was changed. Saving sends a New value as "DataExtAdd", a changed one as
// "DataExtMod", and a cleared one as "DataExtDel".
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/Date.hpp"
#include "brenvale/core/EnumTypes.hpp"
#include "brenvale/core/Types.hpp"
#include "brenvale/core/zkErrors.hpp"

namespace brenvale {

class DataExtensions;
class DomNode;
namespace detail {
class DataExtBatch;
}

class DataExtension {
 public:
  DataExtension(std::string name, std::string ownerId, qbEnumDataExtDataType type);
  DataExtension(const DataExtension&) = delete;
  DataExtension& operator=(const DataExtension&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& OwnerId() const { return ownerId_; }
  qbEnumDataExtDataType DataType() const { return type_; }
  // The type of a value QuickBooks does not keep yet; on a kept value the change is refused and
  // collected as 1002 "Field cannot be modified".
  void DataType(qbEnumDataExtDataType value);
  // The object the value is kept on: its ListID or TxnID, and for a transaction line its TxnLineID.
  // While unset here, those of the collection (and of the record that holds it). Like the type,
  // they can change only while QuickBooks does not keep the value.
  std::string ListOrTxnId() const;
  void ListOrTxnId(std::string value);
  std::string TxnLineId() const;
  void TxnLineId(std::string value);

  // The value by the type: Long (INTTYPE), Currency (AMTTYPE), Double (PRICETYPE, QUANTYPE,
  // PERCENTTYPE), Date (DATETIMETYPE), std::string (STR255TYPE, STR1024TYPE); empty when unset.
  Variant Value() const;
  // Sets the value from a number, a Currency, a Date or text. A value the type cannot take raises
  // 13 "Type mismatch" and leaves the value as it was. An empty Variant or empty text clears the
  // value: the next save deletes it from QuickBooks.
  void Value(const Variant& value);
  // Sets the value from its text ("12.50", "2024-03-01T10:00:00", "Red").
  void ValueAsString(std::string_view text);
  // The text a request carries, by the type: a whole number; an amount ("12.50"); a price or a
  // percentage ("0000012.50000", a percentage kept to four decimals); a quantity ("2.50000"); a
  // date and time; the text itself. Empty when there is no value.
  std::string ValueText() const;
  bool HasValue() const;

  zqEnumObjectState ObjectState() const { return state_; }
  zkErrors& Errors();
  const zkErrors& Errors() const;
  Variant& UserData();
  // Fills the value from a "DataExtRet" element; the value is Clean afterwards.
  Long FromDom(const DomNode& obj);
  // Checks that the value can be saved; failures are collected in Errors.
  bool Validate();

  // What a save sends for the value: nothing, "Add", "Mod" or "Del".
  std::string_view PendingRequest() const;

 private:
  friend class DataExtensions;
  friend class detail::DataExtBatch;
  using Held = std::variant<std::monostate, std::string, std::int64_t, double, Currency, Date>;
  // The text of `held` for `type`, or nothing when the type cannot take it.
  static std::optional<std::string> TextFor(const Held& held, qbEnumDataExtDataType type);
  // Reads qbXML text of a value of the type (kept as text when it does not convert).
  static Held FromText(std::string_view text, qbEnumDataExtDataType type);
  void Set(Held value);
  // A change of where the value is kept or of its type: refused once QuickBooks keeps the value.
  bool MayChangeKey();
  // QuickBooks kept (`kept`) or deleted the value.
  void Saved(bool kept);

  std::string name_;
  std::string ownerId_;
  qbEnumDataExtDataType type_;
  zqEnumObjectState state_ = zqObjectStateNew;
  Held value_;
  std::string listOrTxnId_;
  std::string txnLineId_;
  DataExtensions* holder_ = nullptr;
  std::unique_ptr<zkErrors> errors_;
  std::unique_ptr<Variant> userData_;
};

}  // namespace brenvale
