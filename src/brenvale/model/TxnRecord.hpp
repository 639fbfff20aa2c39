#pragma once
// The transaction identity on the record core: TxnID, TxnNumber, TxnDate, RefNumber, the
// transactions linked to it, the zkBase face, and the facts a transaction kind declares beside its
// fields (its table name, whether it can be deleted and voided, which query filters it takes).
#include <concepts>
#include <string>
#include <string_view>

#include "brenvale/model/BaseRecord.hpp"
#include "brenvale/model/ChildList.hpp"

namespace brenvale {

// A transaction linked to another (a payment to the invoice it pays), as QuickBooks reports it.
class txnLinkedTransaction : public RecordCore {
 public:
  txnLinkedTransaction() : RecordCore(Declaration()) {}
  static const RecordDecl& Declaration();

  std::string TxnId() const;
  std::string TxnLineId() const;
  // The kind of the linked transaction; zqObjectTypeNone when QuickBooks named one the library lacks.
  zqEnumListObjectType TxnType() const;
  Date TxnDate() const;
  std::string RefNumber() const;
  Currency Amount() const;
  // True when the link is by quantity (an item receipt received against a purchase order).
  bool IsQuantityLink() const;
};

// The fields of every transaction, at the same ids in every transaction kind's table.
struct TxnBase {
  static constexpr FieldDef TxnID = field::Text("TxnID");
  static constexpr FieldDef TimeCreated = field::DateTime("TimeCreated");
  static constexpr FieldDef TimeModified = field::DateTime("TimeModified");
  static constexpr FieldDef EditSequence = field::Text("EditSequence");
  static constexpr FieldDef TxnNumber = field::Int("TxnNumber");
  static constexpr FieldDef TxnDate = field::Date("TxnDate");
  static constexpr FieldDef RefNumber = field::Text("RefNumber");
  static constexpr FieldDef LinkedTxn = field::Children("LinkedTxn", &txnLinkedTransaction::Declaration);
};

inline constexpr auto kTxnBaseFields =
    Fields(TxnBase::TxnID, TxnBase::TimeCreated, TxnBase::TimeModified, TxnBase::EditSequence, TxnBase::TxnNumber,
           TxnBase::TxnDate, TxnBase::RefNumber, TxnBase::LinkedTxn);

// A transaction kind's field table: the base fields, then its own.
template <std::same_as<FieldDef>... F>
consteval auto TxnFields(const F&... own) {
  return Extend(kTxnBaseFields, own...);
}

// The filters a transaction kind's query takes beside TxnID, MaxReturned and the date filters.
enum TxnQueries : std::uint8_t {
  kTxnQueryEntity = 1,
  kTxnQueryAccount = 2,
  kTxnQueryRefNumber = 4,
  kTxnQueryPaidStatus = 8,
  kTxnQueryLineItems = 16,   // IncludeLineItems
  kTxnQueryLinkedTxns = 32,  // IncludeLinkedTxns
  kTxnQueryAll = 63,
};

struct TxnFacts {
  zqEnumTableName table = zqTableNameNone;  // the owner kind lines know it by
  OwnerFamily family = OwnerFamily::None;   // the family of its item lines
  bool deletable = true;
  bool voidable = false;
  std::uint8_t queries = kTxnQueryAll;
};

class TxnRecord : public BaseRecord {
 public:
  static constexpr FieldId kTxnID = kTxnBaseFields.Id(TxnBase::TxnID);
  static constexpr FieldId kTimeCreated = kTxnBaseFields.Id(TxnBase::TimeCreated);
  static constexpr FieldId kTimeModified = kTxnBaseFields.Id(TxnBase::TimeModified);
  static constexpr FieldId kEditSequence = kTxnBaseFields.Id(TxnBase::EditSequence);
  static constexpr FieldId kTxnNumber = kTxnBaseFields.Id(TxnBase::TxnNumber);
  static constexpr FieldId kTxnDate = kTxnBaseFields.Id(TxnBase::TxnDate);
  static constexpr FieldId kRefNumber = kTxnBaseFields.Id(TxnBase::RefNumber);
  static constexpr FieldId kLinkedTxn = kTxnBaseFields.Id(TxnBase::LinkedTxn);

  explicit TxnRecord(const RecordDecl& decl) : BaseRecord(decl, kTxnID, kEditSequence) {}

  const TxnFacts& Facts() const { return *Decl().txn; }

  // --- what every transaction offers ------------------------------------------------------------
  std::string TxnId() const { return Text(kTxnID); }
  Date TimeCreated() const { return DateValue(kTimeCreated); }
  Date TimeModified() const { return DateValue(kTimeModified); }
  std::string EditSequence() const { return Text(kEditSequence); }
  Long TxnNumber() const { return static_cast<Long>(Int(kTxnNumber)); }
  Date TxnDate() const { return DateValue(kTxnDate); }
  void TxnDate(Date value) { SetDate(kTxnDate, value); }
  std::string RefNumber() const { return Text(kRefNumber); }
  void RefNumber(std::string_view value) { SetText(kRefNumber, value); }
  ChildList<txnLinkedTransaction> LinkedTxns() { return ChildList<txnLinkedTransaction>(ChildrenOf(kLinkedTxn)); }
  std::string CollectionKey() const { return Text(kTxnID); }

  KeyParts CollectionKeyParts() const override { return {TextView(kTxnID)}; }
};

// The field every line has, at the same id in every line kind's table.
struct LineBase {
  static constexpr FieldDef TxnLineID = field::Text("TxnLineID");
};

inline constexpr auto kLineBaseFields = Fields(LineBase::TxnLineID);

template <std::same_as<FieldDef>... F>
consteval auto LineFields(const F&... own) {
  return Extend(kLineBaseFields, own...);
}

// The line identity: TxnLineID, the owner and the owner's kind. One line class serves every owner;
// the owner's family chooses the line's form (its aggregate names and element order, a RecordDecl
// over the line's one field table), and so which fields the line has.
class LineRecord : public RecordCore {
 public:
  static constexpr FieldId kTxnLineID = kLineBaseFields.Id(LineBase::TxnLineID);

  explicit LineRecord(const RecordDecl& form) : RecordCore(form) {}

  std::string TxnLineId() const { return Text(kTxnLineID); }
  OwnerFamily Family() const { return Decl().family; }
  // The owning transaction's kind (zqTableNameItemGroup for a line inside a group line).
  zqEnumTableName OwnerKind() const;

  // TxnLineID ahead of a Mod body: "-1" for a line added to a transaction QuickBooks holds.
  void WriteLead(xmlBldr& b, const WriteContext& context) const override;
  // A line's values are kept on its transaction, under the transaction's TxnID and its TxnLineID.
  DataExtTarget DataExtTargetOf() const override;

 protected:
  // The line guards: a line inside a group line cannot change (2000); a field its owner's form does
  // not have is not valid for the owner (2008); then the state rule.
  void BeforeSet(FieldId id) override;
};

}  // namespace brenvale
