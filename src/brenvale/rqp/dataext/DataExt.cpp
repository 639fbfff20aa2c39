// Data extensions: definitions (DataExtDefAdd/Mod/Del/Query, keyed by owner and name rather than
// ListID) and the values stored on records and on the company (DataExtAdd/Mod/Del), returned by
// queries that name their OwnerID.
#include "brenvale/rqp/dataext/DataExt.hpp"

#include <algorithm>

#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/records/Records.hpp"
#include "brenvale/rqp/records/RecordWriter.hpp"

namespace brenvale::rqp::detail {
namespace {

std::string Text(pugi::xml_node n) { return n.text().get(); }

struct Def {
  std::string ownerId;
  std::int64_t id = 0;
  std::string ret;
};

std::optional<Def> FindDef(Context& co, std::string_view owner, std::string_view name) {
  auto& s = co.Data().Db().Prepare("SELECT data_ext_id, ret FROM data_ext_defs WHERE owner_id=? AND name_key=?");
  s.Bind(1, owner).Bind(2, NameKey(name));
  std::optional<Def> out;
  if (s.Step()) out = Def{std::string(owner), s.Int(0), std::string(s.Text(1))};
  s.Reset();
  return out;
}

void SaveDef(Context& co, std::string_view owner, std::string_view name, std::int64_t id, pugi::xml_node ret) {
  std::string text;
  Serialize(ret, text);
  co.Data()
      .Db()
      .Prepare("INSERT OR REPLACE INTO data_ext_defs(owner_id, name_key, data_ext_id, ret) VALUES(?,?,?,?)")
      .Bind(1, owner)
      .Bind(2, NameKey(name))
      .Bind(3, id)
      .Bind(4, text)
      .Run();
}

// QuickBooks' own custom fields (owner "0", the ones its windows show) hold text, on customers and
// jobs, vendors, employees and items; applications' fields may hold any type, on any object.
constexpr std::string_view kPublicOwner = "0";
constexpr std::string_view kPublicObjects[] = {"Customer", "Vendor", "Employee", "Item"};

// QuickBooks' refusal of a definition (`value` false) or of a value it cannot save.
StatusError Refused(bool value, bool adding, std::string_view name, std::string_view why) {
  return StatusError{3180, std::string("There was an error when ") + (adding ? "saving" : "modifying") + " a data extension" +
                               (value ? "" : " definition") + ", element " + Quote(name) +
                               ".  QuickBooks error message: " + std::string(why)};
}

// Refuses a public field assigned to an object QuickBooks shows no custom fields on.
void CheckPublicObjects(std::string_view owner, std::string_view name, pugi::xml_node in, bool adding) {
  if (owner != kPublicOwner) return;
  for (auto a : in.children("AssignToObject"))
    if (std::find(std::begin(kPublicObjects), std::end(kPublicObjects), std::string_view(a.text().get())) ==
        std::end(kPublicObjects))
      throw Refused(false, adding, name,
                    "Custom fields of QuickBooks can be assigned to customers, vendors, employees and items only.");
}

void Order(pugi::xml_node ret) { OrderChildren(*Declarations::Get().Named("DataExtDefRet"), ret); }

void Set(pugi::xml_node parent, const char* name, const std::string& value) {
  auto e = parent.child(name);
  if (!e) e = parent.append_child(name);
  e.text().set(value.c_str());
}

void HandleDefAdd(Context& co, const Request& rq, Reply& reply) {
  auto in = rq.node.child("DataExtDefAdd");
  std::string owner = Text(in.child("OwnerID")), name = Text(in.child("DataExtName"));
  if (Trim(name).empty()) throw Refused(false, true, name, "The name cannot be blank.");
  if (FindDef(co, owner, name)) throw NameInUse(name);
  if (owner == kPublicOwner) {
    if (Text(in.child("DataExtType")) != "STR255TYPE")
      throw Refused(false, true, name, "Custom fields of QuickBooks hold text (STR255TYPE) only.");
    if (!in.child("AssignToObject"))
      throw Refused(false, true, name, "Custom fields of QuickBooks must be assigned to at least one kind of object.");
    CheckPublicObjects(owner, name, in, true);
  }
  pugi::xml_document doc;
  auto ret = doc.append_child("DataExtDefRet");
  std::int64_t id = co.Data().NextNumber("dataext");
  Set(ret, "OwnerID", owner);
  Set(ret, "DataExtID", std::to_string(id));
  for (auto c : in.children()) {
    std::string_view n = c.name();
    if (n == "OwnerID") continue;
    ret.append_child(c.name()).text().set(c.text().get());
  }
  if (!ret.child("DataExtListRequire")) Set(ret, "DataExtListRequire", "false");
  if (!ret.child("DataExtTxnRequire")) Set(ret, "DataExtTxnRequire", "false");
  if (!ret.child("DataExtFormatString")) ret.append_child("DataExtFormatString");
  Order(ret);
  SaveDef(co, owner, name, id, ret);
  std::string text;
  Serialize(ret, text);
  WriteRecord(co, {}, text, OptionsOf(rq.node, rq.version), reply.body);
}

void HandleDefMod(Context& co, const Request& rq, Reply& reply) {
  auto in = rq.node.child("DataExtDefMod");
  std::string owner = Text(in.child("OwnerID")), name = Text(in.child("DataExtName"));
  auto def = FindDef(co, owner, name);
  if (!def) throw NotFound(name);
  CheckPublicObjects(owner, name, in, false);
  pugi::xml_document doc;
  doc.load_string(def->ret.c_str());
  auto ret = doc.first_child();
  std::string newName = name;
  for (auto c : in.children()) {
    std::string_view n = c.name();
    std::string v = Text(c);
    if (n == "DataExtNewName") {
      if (Trim(v).empty()) throw Refused(false, false, name, "The name cannot be blank.");
      if (NameKey(v) != NameKey(name) && FindDef(co, owner, v)) throw NameInUse(v);
      newName = v;
      Set(ret, "DataExtName", v);
    } else if (n == "AssignToObject") {
      bool has = false;
      for (auto a : ret.children("AssignToObject")) has = has || v == a.text().get();
      if (!has) ret.append_child("AssignToObject").text().set(v.c_str());
    } else if (n == "RemoveFromObject") {
      for (auto a : ret.children("AssignToObject"))
        if (v == a.text().get()) {
          ret.remove_child(a);
          break;
        }
    } else if (n == "DataExtListRequire" || n == "DataExtTxnRequire" || n == "DataExtFormatString") {
      Set(ret, c.name(), v);
    }
  }
  Order(ret);
  if (NameKey(newName) != NameKey(name)) {
    co.Data().Db().Prepare("DELETE FROM data_ext_defs WHERE owner_id=? AND name_key=?").Bind(1, owner).Bind(2, NameKey(name)).Run();
    co.Data()
        .Db()
        .Prepare("UPDATE data_ext_values SET name_key=? WHERE owner_id=? AND name_key=?")
        .Bind(1, NameKey(newName))
        .Bind(2, owner)
        .Bind(3, NameKey(name))
        .Run();
  }
  SaveDef(co, owner, newName, def->id, ret);
  std::string s;
  Serialize(ret, s);
  WriteRecord(co, {}, s, OptionsOf(rq.node, rq.version), reply.body);
}

void HandleDefDel(Context& co, const Request& rq, Reply& reply) {
  std::string owner = Text(rq.node.child("OwnerID")), name = Text(rq.node.child("DataExtName"));
  auto def = FindDef(co, owner, name);
  if (!def) throw NotFound(name);
  auto& db = co.Data().Db();
  db.Prepare("DELETE FROM data_ext_defs WHERE owner_id=? AND name_key=?").Bind(1, owner).Bind(2, NameKey(name)).Run();
  db.Prepare("DELETE FROM data_ext_values WHERE owner_id=? AND name_key=?").Bind(1, owner).Bind(2, NameKey(name)).Run();
  pugi::xml_document doc;
  doc.load_string(def->ret.c_str());
  reply.body += "<DataExtDefDelRet>";
  AppendElement(reply.body, "OwnerID", owner);
  AppendElement(reply.body, "DataExtName", doc.first_child().child("DataExtName").text().get());
  AppendElement(reply.body, "TimeDeleted", co.NowText());
  reply.body += "</DataExtDefDelRet>\n";
}

void HandleDefQuery(Context& co, const Request& rq, Reply& reply) {
  auto owners = ChildTexts(rq.node, "OwnerID");
  auto objects = ChildTexts(rq.node, "AssignToObject");
  RetOptions options = OptionsOf(rq.node, rq.version);
  options.owners.clear();
  std::vector<std::pair<std::string, std::string>> defs;
  auto& s = co.Data().Db().Prepare("SELECT owner_id, ret FROM data_ext_defs ORDER BY data_ext_id");
  while (s.Step()) defs.emplace_back(std::string(s.Text(0)), std::string(s.Text(1)));
  s.Reset();
  std::vector<const std::string*> found;
  for (auto& [owner, ret] : defs) {
    if (!owners.empty() && std::find(owners.begin(), owners.end(), owner) == owners.end()) continue;
    if (!objects.empty()) {
      pugi::xml_document doc;
      doc.load_string(ret.c_str());
      auto assigned = ChildTexts(doc.first_child(), "AssignToObject");
      if (std::none_of(objects.begin(), objects.end(),
                       [&](auto& o) { return std::find(assigned.begin(), assigned.end(), o) != assigned.end(); }))
        continue;
    }
    found.push_back(&ret);
  }
  Found(rq, reply, found.size());
  if (!CountOnly(rq))
    for (auto* ret : found) WriteRecord(co, {}, *ret, options, reply.body);
}

// The object a DataExtAdd/Mod/Del names: a list record's ListID or "COMPANY".
std::string ObjectOf(Context& co, pugi::xml_node in) {
  if (in.child("OtherDataExtType")) return "COMPANY";
  if (auto txn = in.child("TxnID"))
    throw NotFound(Text(txn));
  std::string type = Text(in.child("ListDataExtType"));
  std::vector<const ListKind*> kinds = type == "Item" ? KindsOf(Family::Item) : std::vector<const ListKind*>{KindByBase(type)};
  auto ref = in.child("ListObjRef");
  std::string id = Text(ref.child("ListID")), name = Text(ref.child("FullName"));
  auto r = id.empty() ? FindByName(co, kinds, name) : FindById(co, kinds, id);
  if (!r)
    throw InvalidReference(type, id.empty() ? name : id, "DataExt");
  return r->listId;
}

// Checks a value against the definition's type; returns the canonical text.
std::string CheckedValue(const std::string& type, std::string value, const std::string& name) {
  Decl d;
  d.name = name;
  if (type == "AMTTYPE") d.type = VType::Amt;
  else if (type == "PRICETYPE") d.type = VType::Price;
  else if (type == "QUANTYPE") d.type = VType::Quan;
  else if (type == "PERCENTTYPE") d.type = VType::Pct;
  else if (type == "INTTYPE") d.type = VType::Int;
  else if (type == "DATETIMETYPE") d.type = VType::DateTime;
  else {
    d.type = VType::Str;
    d.maxLength = type == "STR1024TYPE" ? 1024 : 255;
  }
  Problem p = CheckValue(d, value);
  if (p) throw StatusError{p.status, p.message};
  return value;
}

void HandleValue(Context& co, const Request& rq, Reply& reply, bool add) {
  auto in = rq.node.child(add ? "DataExtAdd" : "DataExtMod");
  std::string owner = Text(in.child("OwnerID")), name = Text(in.child("DataExtName"));
  auto def = FindDef(co, owner, name);
  if (!def) throw NotFound(name);
  std::string object = ObjectOf(co, in);
  pugi::xml_document doc;
  doc.load_string(def->ret.c_str());
  std::string type = doc.first_child().child("DataExtType").text().get();
  std::string realName = doc.first_child().child("DataExtName").text().get();
  if (owner == kPublicOwner) {
    std::string kind = in.child("OtherDataExtType") ? "Company" : Text(in.child("ListDataExtType"));
    auto assigned = ChildTexts(doc.first_child(), "AssignToObject");
    if (std::find(assigned.begin(), assigned.end(), kind) == assigned.end())
      throw Refused(true, add, realName, "The custom field is not assigned to this kind of object.");
  }
  std::string value = CheckedValue(type, Text(in.child("DataExtValue")), "DataExtValue");
  auto& db = co.Data().Db();
  if (!add) {
    auto& s = db.Prepare("SELECT 1 FROM data_ext_values WHERE object_id=? AND owner_id=? AND name_key=?");
    s.Bind(1, object).Bind(2, owner).Bind(3, NameKey(name));
    bool exists = s.Step();
    s.Reset();
    if (!exists) throw NotFound(name);
  }
  db.Prepare("INSERT OR REPLACE INTO data_ext_values(owner_id, name_key, object_id, value) VALUES(?,?,?,?)")
      .Bind(1, owner)
      .Bind(2, NameKey(name))
      .Bind(3, object)
      .Bind(4, value)
      .Run();
  AppendDataExtRet(reply.body, owner, realName, type, value);
  reply.body += '\n';
}

void HandleValueDel(Context& co, const Request& rq, Reply& reply) {
  auto in = rq.node.child("DataExtDel");
  std::string owner = Text(in.child("OwnerID")), name = Text(in.child("DataExtName"));
  auto def = FindDef(co, owner, name);
  if (!def) throw NotFound(name);
  std::string object = ObjectOf(co, in);
  auto& db = co.Data().Db();
  db.Prepare("DELETE FROM data_ext_values WHERE object_id=? AND owner_id=? AND name_key=?")
      .Bind(1, object)
      .Bind(2, owner)
      .Bind(3, NameKey(name))
      .Run();
  if (db.Changes() == 0) throw NotFound(name);
  reply.body += "<DataExtDelRet>";
  AppendElement(reply.body, "OwnerID", owner);
  AppendElement(reply.body, "DataExtName", name);
  for (auto c : in.children()) {
    std::string_view n = c.name();
    if (n == "OwnerID" || n == "DataExtName") continue;
    std::string part;
    Serialize(c, part);
    AppendResponseText(reply.body, part);
  }
  AppendElement(reply.body, "TimeDeleted", co.NowText());
  reply.body += "</DataExtDelRet>\n";
}

}  // namespace

void DeclareDataExt(DeclBuilder& b) {
  b.Enumeration("AssignToObject",
                "Account|ARRefundCreditCard|Bill|BillPaymentCheck|BillPaymentCreditCard|BuildAssembly|Charge|Check|"
                "Company|CreditCardCharge|CreditCardCredit|CreditMemo|Customer|Deposit|Employee|Estimate|"
                "InventoryAdjustment|Invoice|Item|ItemReceipt|JournalEntry|OtherName|PurchaseOrder|ReceivePayment|"
                "SalesOrder|SalesReceipt|SalesTaxPaymentCheck|Vendor|VendorCredit");
  b.Enumeration("TxnDataExtType",
                "ARRefundCreditCard|Bill|BillPaymentCheck|BillPaymentCreditCard|BuildAssembly|Charge|Check|"
                "CreditCardCharge|CreditCardCredit|CreditMemo|Deposit|Estimate|InventoryAdjustment|Invoice|"
                "ItemReceipt|JournalEntry|PurchaseOrder|ReceivePayment|SalesOrder|SalesReceipt|SalesTaxPaymentCheck|"
                "VendorCredit");
  b.Aggregate("DataExtObject",
              "(ListDataExtType!:e(Account|Customer|Employee|Item|OtherName|Vendor) ListObjRef!:ref159 | "
              "TxnDataExtType!:E.TxnDataExtType TxnID!:id TxnLineID^3.0:id | OtherDataExtType!:e(Company))!");
  b.Element("DataExtDefRet",
            "OwnerID:guid DataExtID^11.0!:int DataExtName:s31 DataExtType:E.DataExtType "
            "AssignToObject*:E.AssignToObject DataExtListRequire^11.0!:b DataExtTxnRequire^11.0!:b "
            "DataExtFormatString^11.0!:s");
  b.Request("DataExtDefAddRq",
            "DataExtDefAdd!{OwnerID!:guid DataExtName!:s31 DataExtType!:E.DataExtType "
            "AssignToObject*:E.AssignToObject DataExtListRequire^12.0:b DataExtTxnRequire^12.0:b "
            "DataExtFormatString^12.0:s} "
            "IncludeRetElement^4.0*:s50",
            "requestID", "2.0");
  b.Request("DataExtDefModRq",
            "DataExtDefMod!{OwnerID!:guid DataExtName!:s31 DataExtNewName:s31 AssignToObject*:E.AssignToObject "
            "RemoveFromObject*:E.AssignToObject DataExtListRequire^12.0:b DataExtTxnRequire^12.0:b "
            "DataExtFormatString^12.0:s} "
            "IncludeRetElement^4.0*:s50",
            "requestID", "2.0");
  b.Request("DataExtDefDelRq", "OwnerID!:guid DataExtName!:s31", "requestID", "2.0");
  b.Request("DataExtDefQueryRq", "(OwnerID*:guid | AssignToObject*:E.AssignToObject) IncludeRetElement^4.0*:s50",
            "requestID,metaData", "2.0");
  std::string object = b.AggregateText("DataExtObject");
  b.Request("DataExtAddRq", "DataExtAdd!{OwnerID!:guid DataExtName!:s31 " + object + " DataExtValue!:s}",
            "requestID", "2.0");
  b.Request("DataExtModRq", "DataExtMod!{OwnerID!:guid DataExtName!:s31 " + object + " DataExtValue!:s}",
            "requestID", "2.0");
  b.Request("DataExtDelRq", "DataExtDel!{OwnerID!:guid DataExtName!:s31 " + object + "}", "requestID", "2.0");
}

void AddDataExtHandlers(HandlerTable& table) {
  table["DataExtDefAddRq"] = HandleDefAdd;
  table["DataExtDefModRq"] = HandleDefMod;
  table["DataExtDefDelRq"] = HandleDefDel;
  table["DataExtDefQueryRq"] = HandleDefQuery;
  table["DataExtAddRq"] = [](Context& co, const Request& rq, Reply& r) { HandleValue(co, rq, r, true); };
  table["DataExtModRq"] = [](Context& co, const Request& rq, Reply& r) { HandleValue(co, rq, r, false); };
  table["DataExtDelRq"] = HandleValueDel;
}

}  // namespace brenvale::rqp::detail
