#include "brenvale/model/TxnRecord.hpp"

#include <algorithm>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/model/ListRecord.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {
struct L {
  static constexpr FieldDef TxnID = field::Text("TxnID");
  static constexpr FieldDef TxnType = field::Enum("TxnType", zqeObjectType);
  static constexpr FieldDef TxnDate = field::Date("TxnDate");
  static constexpr FieldDef RefNumber = field::Text("RefNumber");
  static constexpr FieldDef LinkType = field::Text("LinkType");
  static constexpr FieldDef Amount = field::Amount("Amount");
  static constexpr FieldDef TxnLineID = field::Text("TxnLineID");
};
constexpr auto kLinkFields = Fields(L::TxnID, L::TxnType, L::TxnDate, L::RefNumber, L::LinkType, L::Amount, L::TxnLineID);
constexpr auto kLinkRead = kLinkFields.Order(L::TxnID, L::TxnType, L::TxnDate, L::RefNumber, L::LinkType, L::Amount,
                                             L::TxnLineID);
// Read only: QuickBooks reports links; a transaction asks for them with its own elements.
constexpr RecordDecl kLinkDecl{.label = "txnLinkedTransaction",
                               .fields = kLinkFields.fields,
                               .read = kLinkRead,
                               .make = [](const RecordDecl&) -> RecordCore* { return new txnLinkedTransaction(); }};
}  // namespace

const RecordDecl& txnLinkedTransaction::Declaration() { return kLinkDecl; }
std::string txnLinkedTransaction::TxnId() const { return Text(kLinkFields.Id(L::TxnID)); }
std::string txnLinkedTransaction::TxnLineId() const { return Text(kLinkFields.Id(L::TxnLineID)); }
zqEnumListObjectType txnLinkedTransaction::TxnType() const {
  return static_cast<zqEnumListObjectType>(EnumCode(kLinkFields.Id(L::TxnType)));
}
Date txnLinkedTransaction::TxnDate() const { return DateValue(kLinkFields.Id(L::TxnDate)); }
std::string txnLinkedTransaction::RefNumber() const { return Text(kLinkFields.Id(L::RefNumber)); }
Currency txnLinkedTransaction::Amount() const { return RecordCore::Amount(kLinkFields.Id(L::Amount)); }
bool txnLinkedTransaction::IsQuantityLink() const { return TextView(kLinkFields.Id(L::LinkType)) == "QUANTYPE"; }

// --- lines --------------------------------------------------------------------------------------

zqEnumTableName LineRecord::OwnerKind() const {
  if (Family() == OwnerFamily::GroupMember) return zqTableNameItemGroup;
  const RecordCore* owner = Owner();
  return owner && owner->Decl().txn ? owner->Decl().txn->table : zqTableNameNone;
}

DataExtTarget LineRecord::DataExtTargetOf() const {
  DataExtTarget t = Owner() ? Owner()->DataExtTargetOf() : DataExtTarget{};
  t.lineId = TextView(kTxnLineID);
  return t;
}

void LineRecord::WriteLead(xmlBldr& b, const WriteContext& context) const {
  if (context.form != Form::Mod) return;
  const std::string_view id = TextView(kTxnLineID);
  b.CreateElement("TxnLineID", id.empty() ? std::string_view("-1") : id);
}

void LineRecord::BeforeSet(FieldId id) {
  if (Family() == OwnerFamily::GroupMember) Raise(2000, Label());
  const RecordDecl& form = Decl();
  auto holds = [id](std::span<const FieldId> order) { return std::find(order.begin(), order.end(), id) != order.end(); };
  if (!holds(form.add) && !holds(form.mod) && !holds(form.read)) Raise(2008, Label());
  RecordCore::BeforeSet(id);
}

}  // namespace brenvale
