// Event subscriptions (ProcessSubscription). QuickBooks keeps them per machine, not per company:
// here in a SQLite file named by HostFacts::SubscriptionStore, or in memory for the process.
#include "brenvale/rqp/subscriptions/Subscriptions.hpp"

#include <ctime>
#include <map>
#include <memory>
#include <mutex>

#include "brenvale/rqp/protocol/RequestDocument.hpp"
#include "brenvale/rqp/protocol/Response.hpp"
#include "brenvale/rqp/protocol/Status.hpp"
#include "brenvale/rqp/protocol/Text.hpp"
#include "brenvale/rqp/protocol/Times.hpp"
#include "brenvale/rqp/store/Sqlite.hpp"

namespace brenvale::rqp::detail {
namespace {

struct Stores {
  std::mutex mutex;
  std::map<std::string, std::unique_ptr<Database>> open;
};

Stores& TheStores() {
  static Stores s;
  return s;
}

Database& StoreFor(const std::string& path) {
  auto& stores = TheStores();
  auto& db = stores.open[path];
  if (!db) {
    db = std::make_unique<Database>(path.empty() ? ":memory:" : path, true);
    db->Exec(
        "CREATE TABLE IF NOT EXISTS subscriptions (subscriber_id TEXT NOT NULL, type TEXT NOT NULL, ret TEXT NOT NULL, "
        "PRIMARY KEY (subscriber_id, type))");
  }
  return *db;
}

// "DataEventSubscriptionAddRq" -> "Data"; the SubscriptionDelRq type names.
std::string TypeOf(std::string_view request) {
  if (request.starts_with("DataEvent")) return "Data";
  if (request.starts_with("UIExtension")) return "UIExtension";
  return "UI";
}

std::string Answer(Database& db, std::string_view name, pugi::xml_node rq, int& code, std::string& message) {
  std::string type = TypeOf(name);
  std::string prefix(name.substr(0, name.find("Subscription") + 12));  // "DataEventSubscription"
  std::string body;
  if (name.ends_with("AddRq")) {
    auto in = rq.child((prefix + "Add").c_str());
    std::string id = in.child("SubscriberID").text().get();
    pugi::xml_document doc;
    auto ret = doc.append_child((prefix + "Ret").c_str());
    for (auto c : in.children())
      if (c.type() == pugi::node_element) ret.append_copy(c);
    ret.append_child("TimeCreated").text().set(DateTimeText(std::time(nullptr)).c_str());
    if (type == "Data" && !ret.child("TrackLostEvents")) ret.append_child("TrackLostEvents").text().set("None");
    OrderChildren(*Declarations::Get().Named(prefix + "Ret"), ret);
    std::string text;
    Serialize(ret, text);
    auto& s = db.Prepare("INSERT OR IGNORE INTO subscriptions(subscriber_id, type, ret) VALUES(?,?,?)");
    s.Bind(1, id).Bind(2, type).Bind(3, text).Run();
    if (db.Changes() == 0) {
      code = 3100;
      message = "The subscriber ID \"" + id + "\" is already in use for " + type + " events.";
      return {};
    }
    AppendResponseText(body, text);
  } else if (name.ends_with("QueryRq")) {
    std::string id = rq.child("SubscriberID").text().get();
    auto& s = db.Prepare("SELECT ret FROM subscriptions WHERE subscriber_id=? AND type=?");
    s.Bind(1, id).Bind(2, type);
    if (s.Step()) AppendResponseText(body, s.Text(0));
    s.Reset();
    if (body.empty()) {
      code = 500;
      message = NotFullyCompletedText(id);
    }
  } else {  // SubscriptionDelRq
    std::string id = rq.child("SubscriberID").text().get();
    std::string delType = rq.child("SubscriptionType").text().get();
    db.Prepare("DELETE FROM subscriptions WHERE subscriber_id=? AND type=?").Bind(1, id).Bind(2, delType).Run();
    if (db.Changes() == 0) {
      StatusError e = NotFound(id);
      code = e.code;
      message = e.message;
    }
  }
  return body;
}

}  // namespace

void DeclareSubscriptions(DeclBuilder& b) {
  b.Aggregate("COMCallbackInfo", "AppName!:s128 (ProgID!:s128 | CLSID!:guid)!");
  b.Enumeration("Condition",
                "AccountantCopyExists|AssemblyItemsEnabled|ClassesEnabled|EstimatesEnabled|HasCustomers|HasVendors|"
                "InventoryEnabled|IsAccountantCopy|MultiUserMode|PayrollEnabled|PriceLevelsEnabled|SalesOrdersEnabled|"
                "SalesTaxEnabled|TimeTrackingEnabled");
  b.Aggregate("DisplayCondition",
              "VisibleIf*:E.Condition VisibleIfNot*:E.Condition EnabledIf*:E.Condition EnabledIfNot*:E.Condition");
  b.Aggregate("MenuItem", "MenuText!:s50 EventTag!:s50 DisplayCondition=DisplayCondition");
  const std::string head =
      "SubscriberID!:guid TimeCreated[r]!:dt TimeLastProcessed[r]:dt COMCallbackInfo!=COMCallbackInfo ";
  const std::string delivery = "DeliveryPolicy!:e(DeliverAlways|DeliverOnlyIfRunning) ";
  const std::string data =
      head + delivery +
      "TrackLostEvents:e(All|None) DeliverOwnEvents^4.0:b "
      "ListEventSubscription*{ListEventType+:e(Account|Class|Customer|CustomerMsg|CustomerType|DateDrivenTerms|"
      "Employee|ItemDiscount|ItemFixedAsset|ItemGroup|ItemInventory|ItemInventoryAssembly|ItemNonInventory|"
      "ItemOtherCharge|ItemPayment|ItemSalesTax|ItemSalesTaxGroup|ItemService|ItemSubtotal|JobType|OtherName|"
      "PaymentMethod|PriceLevel|SalesRep|SalesTaxCode|ShipMethod|StandardTerms|ToDo|Vendor|VendorType) "
      "ListEventOperation+:e(Add|Modify|Delete|Merge)} "
      "TxnEventSubscription*{TxnEventType+:e(ARRefundCreditCard|Bill|BillPaymentCheck|BillPaymentCreditCard|Charge|"
      "Check|CreditCardCharge|CreditCardCredit|CreditMemo|Deposit|Estimate|InventoryAdjustment|Invoice|ItemReceipt|"
      "JournalEntry|PurchaseOrder|ReceivePayment|SalesOrder|SalesReceipt|SalesTaxPaymentCheck|TimeTracking|"
      "VendorCredit) TxnEventOperation+:e(Add|Modify|Delete)}";
  const std::string ui = head + delivery + "CompanyFileEventSubscription!{CompanyFileEventOperation+:e(Close|Open)}";
  const std::string extension =
      head +
      "MenuExtensionSubscription!{AddToMenu!:e(File|Company|Customers|Vendors|Employees|Banking) "
      "(Submenu{DisplayCondition=DisplayCondition MenuItem+=MenuItem} | MenuItem=MenuItem)!}";
  for (auto [prefix, fields] : {std::pair{std::string("DataEventSubscription"), data},
                                std::pair{std::string("UIEventSubscription"), ui},
                                std::pair{std::string("UIExtensionSubscription"), extension}}) {
    b.Element(prefix + "Ret", fields, 'r');
    b.Element(prefix + "Add", fields, 'a');
    b.SubscriptionRequest(prefix + "AddRq", "@" + prefix + "Add!", "3.0");
    b.SubscriptionRequest(prefix + "QueryRq", "SubscriberID!:guid", "3.0");
  }
  b.SubscriptionRequest("SubscriptionDelRq", "SubscriberID!:guid SubscriptionType!:e(Data|UI|UIExtension)", "3.0");
}

std::string ProcessSubscriptions(std::string_view text, const HostFacts& facts) {
  RequestDocument doc(text, facts);
  pugi::xml_node msgs = doc.Messages();
  auto refuse = [](const std::string& why) { throw ProcessError{hresult::kParseError, ParseFailureText(why)}; };
  if (std::string_view(msgs.name()) != "QBXMLSubscriptionMsgsRq")
    refuse("Element \"QBXML\" must hold \"QBXMLSubscriptionMsgsRq\".");
  std::vector<std::pair<pugi::xml_node, Problem>> requests;
  for (auto child : msgs.children()) {
    if (child.type() != pugi::node_element) continue;
    const Decl* decl = Declarations::Get().SubscriptionRequest(child.name());
    if (!decl) refuse("Unknown request \"" + std::string(child.name()) + "\".");
    Problem p = CheckRequest(*decl, child, doc.Version(), EditionOf(facts.Country), facts.RelaxElementOrder);
    if (p.kind == Problem::Kind::Structure) refuse(p.message);
    requests.emplace_back(child, std::move(p));
  }
  auto& stores = TheStores();
  std::lock_guard lock(stores.mutex);
  Database& db = StoreFor(facts.SubscriptionStore);
  ResponseWriter out("QBXMLSubscriptionMsgsRs");
  for (auto& [rq, problem] : requests) {
    int code = 0;
    std::string message = "Status OK";
    Reply reply;
    if (problem) {
      code = problem.status;
      message = problem.message;
    } else {
      reply.body = Answer(db, rq.name(), rq, code, message);
      if (!reply.body.empty()) reply.body += '\n';
    }
    out.Add(rq, code, message, reply);
  }
  return out.Finish();
}

}  // namespace brenvale::rqp::detail
