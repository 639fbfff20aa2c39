#include "brenvale/model/DataExtensions.hpp"

#include <algorithm>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/KeyedList.hpp"
#include "brenvale/model/RecordCore.hpp"
#include "brenvale/model/detail/DataExtBatch.hpp"
#include "brenvale/model/detail/DataExtCatalog.hpp"
#include "brenvale/qbxml/ResponseView.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale {
namespace {

constexpr std::string_view kSource = "DataExtensions";

// The element of a transaction that holds the line `lineId` (an item line, an expense line, a line
// of a group).
DomNode LineHolding(const DomNode& node, std::string_view lineId) {
  for (DomNode c : node.Children()) {
    if (!c.IsElement()) continue;
    if (c.ChildText("TxnLineID") == lineId) return c;
    if (DomNode found = LineHolding(c, lineId)) return found;
  }
  return DomNode();
}

// Raises when the session's definitions for an object cannot be known.
void RequireKnown(detail::DataExtCatalog::Known known) {
  using K = detail::DataExtCatalog::Known;
  if (known == K::NoConnection) Raise(1000, kSource);
  if (known == K::NoAnswer) Raise(1001, kSource, "QuickBooks: the data extension definitions could not be read");
}

}  // namespace

DataExtensions::DataExtensions() { detail::InstallDataExtHook(); }

DataExtensions::DataExtensions(RecordCore& record, std::string ownerId)
    : record_(&record), ownerId_(std::move(ownerId)) {
  detail::InstallDataExtHook();
}

DataExtensions::~DataExtensions() = default;

zkErrors& DataExtensions::Errors() {
  if (!errors_) errors_ = std::make_unique<zkErrors>();
  return *errors_;
}

const zkErrors& DataExtensions::Errors() const {
  static const zkErrors kNone;
  return errors_ ? *errors_ : kNone;
}

// --- where the values are kept ------------------------------------------------------------------

DataExtTarget DataExtensions::Target() const {
  DataExtTarget t = record_ ? record_->DataExtTargetOf() : DataExtTarget{};
  if (ownerType_ != zqObjectTypeNone) t.type = ownerType_;
  if (!listOrTxnId_.empty()) t.id = listOrTxnId_;
  if (!txnLineId_.empty()) t.lineId = txnLineId_;
  return t;
}

zqEnumListObjectType DataExtensions::OwnerType() const { return Target().type; }
std::string DataExtensions::ListOrTxnId() const { return Target().id; }
std::string DataExtensions::TxnLineId() const { return Target().lineId; }

void DataExtensions::CheckTarget(const DataExtension& value, zkErrors& errors) const {
  DataExtTarget t = Target();
  t.id = value.ListOrTxnId();
  t.lineId = value.TxnLineId();
  const DataExtObject object = DataExtObjectOf(t.type);
  if (object.form == DataExtRefForm::None) {
    errors.AddCode(1030, "DataExt");
  } else if (object.form != DataExtRefForm::Company && t.id.empty()) {
    errors.AddCode(1031, "ListOrTxnId");
  } else if (object.form == DataExtRefForm::Txn && !t.lineId.empty() &&
             CurrentSession().qbXMLVersionNumber >= Currency(2) && CurrentSession().qbXMLVersionNumber < Currency(3)) {
    // Values on transaction lines came with qbXML 3.0.
    errors.AddCode(1005, "DataExt");
  }
}

zqEnumObjectState DataExtensions::ObjectState() const {
  bool kept = false;
  for (const auto& item : items_) {
    if (!item->PendingRequest().empty()) return zqObjectStateDirty;
    kept = kept || item->ObjectState() == zqObjectStateClean;
  }
  return kept ? zqObjectStateClean : zqObjectStateNew;
}

// --- values by name ---------------------------------------------------------------------------

DataExtension* DataExtensions::Find(std::string_view Name) const {
  const std::string key = detail::FoldKey(Name);
  for (const auto& item : items_)
    if (detail::FoldKey(item->Name()) == key) return item.get();
  return nullptr;
}

DataExtension& DataExtensions::Make(std::string name, qbEnumDataExtDataType type) {
  items_.push_back(std::make_unique<DataExtension>(std::move(name), ownerId_, type));
  items_.back()->holder_ = this;
  return *items_.back();
}

DataExtension& DataExtensions::Add(std::string_view Name) {
  if (DataExtension* held = Find(Name)) return *held;
  const DataExtObject object = DataExtObjectOf(Target().type);
  if (object.form != DataExtRefForm::None)
    if (const auto* d = detail::TheDataExtCatalog().Find(object.tag, ownerId_, Name)) return Make(d->name, d->type);
  return Make(std::string(Name), qbDataExtTypeSTR255TYPE);
}

DataExtension& DataExtensions::Item(const Variant& vntIndexKey) {
  std::string name;
  if (auto s = std::any_cast<std::string>(&vntIndexKey))
    name = *s;
  else if (auto c = std::any_cast<const char*>(&vntIndexKey); c && *c)
    name = *c;
  else if (auto v = std::any_cast<std::string_view>(&vntIndexKey))
    name = *v;
  else
    Raise(2800, "DataExt");
  if (DataExtension* held = Find(name)) return *held;
  const DataExtObject object = DataExtObjectOf(Target().type);
  if (object.form == DataExtRefForm::None) Raise(2804, kSource);
  detail::DataExtCatalog::Known known{};
  const auto* d = detail::TheDataExtCatalog().Find(object.tag, ownerId_, name, &known);
  if (!d) {
    RequireKnown(known);
    Raise(2804, kSource);
  }
  return Make(d->name, d->type);
}

void DataExtensions::Read(const DomNode& dataExtRet) {
  const std::string name = dataExtRet.ChildText("DataExtName");
  DataExtension* value = Find(name);
  if (!value) value = &Make(name, qbDataExtTypeSTR255TYPE);
  value->FromDom(dataExtRet);
}

// --- asking and saving ------------------------------------------------------------------------

Long DataExtensions::GetAll() {
  const DataExtTarget t = Target();
  const DataExtObject object = DataExtObjectOf(t.type);
  if (object.form == DataExtRefForm::None) Raise(1030, kSource);
  detail::DataExtCatalog& catalog = detail::TheDataExtCatalog();
  catalog.Forget();
  detail::DataExtCatalog::Known known{};
  const std::vector<detail::DataExtDefFacts>& defs = catalog.AssignedTo(object.tag, &known);
  RequireKnown(known);
  for (const detail::DataExtDefFacts& d : defs) {
    if (!detail::SameOwner(d.ownerId, ownerId_)) continue;
    DataExtension* held = Find(d.name);
    if (!held)
      Make(d.name, d.type);
    else if (held->ObjectState() == zqObjectStateNew)
      held->type_ = d.type;
  }
  if (object.form != DataExtRefForm::Company && t.id.empty()) return Count();

  // The object's own values: its query, asking for this owner's data extensions.
  const std::string rq = std::string(object.tag) + "QueryRq";
  xmlBldr b;
  b.NewClear();
  b.OpenAggregate(rq, "requestID", "1");
  if (object.form == DataExtRefForm::List) b.CreateElement("ListID", t.id);
  if (object.form == DataExtRefForm::Txn) {
    b.CreateElement("TxnID", t.id);
    if (!t.lineId.empty()) b.CreateElement("IncludeLineItems", "true");
  }
  b.CreateElement("OwnerID", ownerId_);
  b.EndAggregate(rq);
  const DomDocument doc = b.NewSendRequest();
  const ResponseView::Response rs = ResponseView(doc).First();
  if (!rs) Raise(1001, kSource, "QuickBooks: no response to " + rq);
  if (rs.StatusCode() == 1) Raise(1031, kSource);
  if (rs.StatusCode() != 0) Raise(1001, kSource, "QuickBooks: " + rs.Message());
  DomNode holder = rs.FirstRet();
  if (!t.lineId.empty()) holder = LineHolding(holder, t.lineId);
  if (!holder) Raise(1031, kSource);
  for (DomNode c : holder.Children()) {
    if (!c.IsElement() || c.BaseName() != "DataExtRet") continue;
    std::string owner = c.ChildText("OwnerID");
    if (detail::SameOwner(owner.empty() ? "0" : owner, ownerId_)) Read(c);
  }
  return Count();
}

bool DataExtensions::Validate() {
  zkErrors& errors = Errors();
  errors.Clear();
  for (const auto& item : items_)
    if (!item->PendingRequest().empty() && !item->Validate()) errors.AddCode(1011, item->Name());
  return errors.Count() == 0;
}

Long DataExtensions::Commit(std::string_view ListOrTxnId, std::string_view TxnLineId) {
  if (!ListOrTxnId.empty()) listOrTxnId_ = ListOrTxnId;
  if (!TxnLineId.empty()) txnLineId_ = TxnLineId;
  detail::DataExtBatch batch;
  batch.Add(*this);
  const Long saved = batch.Send();
  if (Errors().Count() > 0 && CurrentSession().commitRaises) Raise(1023, kSource);
  return saved;
}

// --- the batch --------------------------------------------------------------------------------

namespace detail {

void DataExtBatch::Add(DataExtensions& values) {
  values.Errors().Clear();
  for (DataExtension& value : values) {
    const std::string_view request = value.PendingRequest();
    if (request.empty()) continue;
    if (!value.Validate()) {
      values.Errors().AddCode(1011, value.Name());
      ++refused_;
      continue;
    }
    DataExtTarget target = values.Target();
    target.id = value.ListOrTxnId();
    target.lineId = value.TxnLineId();
    entries_.push_back(Entry{&values, &value, request, std::move(target)});
  }
}

Long DataExtBatch::Send() {
  if (entries_.empty()) return 0;
  xmlBldr b;
  b.NewClear();
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const Entry& e = entries_[i];
    const std::string body = "DataExt" + std::string(e.request);
    const std::string rq = body + "Rq";
    b.OpenAggregate(rq, "requestID", std::to_string(i + 1));
    b.OpenAggregateOnly(body);
    b.CreateElement("OwnerID", e.value->OwnerId());
    b.CreateElement("DataExtName", e.value->Name());
    const DataExtObject object = DataExtObjectOf(e.target.type);
    switch (object.form) {
      case DataExtRefForm::List:
        b.CreateElement("ListDataExtType", object.tag);
        b.OpenAggregateOnly("ListObjRef");
        b.CreateElement("ListID", e.target.id);
        b.EndAggregate("ListObjRef");
        break;
      case DataExtRefForm::Company: b.CreateElement("OtherDataExtType", "Company"); break;
      case DataExtRefForm::Txn:
        b.CreateElement("TxnDataExtType", object.tag);
        b.CreateElement("TxnID", e.target.id);
        b.CreateElement2("TxnLineID", e.target.lineId, false, Currency(3));
        break;
      case DataExtRefForm::None: break;  // refused by the checks before
    }
    if (e.request != "Del") b.CreateElement("DataExtValue", e.value->ValueText());
    b.EndAggregate(body);
    b.EndAggregate(rq);
  }
  const DomDocument doc = b.NewSendRequest();
  std::vector<char> answered(entries_.size(), 0);
  Long saved = 0;
  auto refuse = [](const Entry& e, const std::string& why) {
    e.value->Errors().AddCode(1001, "", "QuickBooks: " + why);
    e.values->Errors().AddCode(1018, e.value->Name());
  };
  for (ResponseView::Response rs : ResponseView(doc)) {
    const Long id = rs.RequestNumber();
    if (id < 1 || static_cast<std::size_t>(id) > entries_.size() || answered[static_cast<std::size_t>(id - 1)]) continue;
    answered[static_cast<std::size_t>(id - 1)] = 1;
    const Entry& e = entries_[static_cast<std::size_t>(id - 1)];
    if (rs.StatusCode() != 0) {
      refuse(e, rs.Message());
      continue;
    }
    const bool kept = e.request != "Del";
    if (kept)
      if (const DomNode ret = rs.FirstRet(); ret && ret.BaseName() == "DataExtRet") e.value->FromDom(ret);
    e.value->Saved(kept);
    ++saved;
  }
  for (std::size_t i = 0; i < entries_.size(); ++i)
    if (!answered[i]) refuse(entries_[i], "no response to this value");
  entries_.clear();
  return saved;
}

}  // namespace detail

}  // namespace brenvale
