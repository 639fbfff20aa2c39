// Data extension values on records, through the kinds declared for the tests (a customer, items, an
// invoice and its lines, each carrying data extensions by one line of its declaration): the text of
// each data type, the reference form of each kind of object, Add/Mod/Del by the value's state, the
// raised and collected errors, the OwnerID elements of queries, reading DataExtRet, and saving with
// a commit. Every request goes through the scripted processor, which checks it against the schema.
#include <map>
#include <tuple>

#include "brenvale/core/TraceHook.hpp"
#include "brenvale/lists/JobType.hpp"
#include "brenvale/model/DataExtensions.hpp"
#include "model/ModelTestSupport.hpp"
#include "model/TestKinds.hpp"

namespace brenvale::testing {
namespace {

constexpr const char* kGuid = "{6B063959-81B0-4DA8-8BD4-3AA0A1D6C6E1}";

// The messages of a request document: what stands between the envelope's tags.
std::string Messages(const std::string& request) {
  const std::string open = "<QBXMLMsgsRq onError = \"continueOnError\">";
  const std::size_t from = request.find(open);
  if (from == std::string::npos) return request;
  return request.substr(from + open.size(), request.find("</QBXMLMsgsRq>") - from - open.size());
}

std::string DefRet(const std::string& owner, const std::string& name, const std::string& type) {
  return "<DataExtDefRet><OwnerID>" + owner + "</OwnerID><DataExtID>1</DataExtID><DataExtName>" + name +
         "</DataExtName><DataExtType>" + type +
         "</DataExtType><DataExtListRequire>false</DataExtListRequire><DataExtTxnRequire>false</DataExtTxnRequire>"
         "<DataExtFormatString></DataExtFormatString></DataExtDefRet>";
}

// A company as far as data extensions go: definitions by the object they are assigned to, and the
// answers to value requests (each saved as asked, unless its name is refused).
struct Company {
  std::map<std::string, std::vector<std::tuple<std::string, std::string, std::string>>> defs;  // owner, name, type
  std::string refused;  // a value of this name is refused
  std::vector<std::string> requests;
  std::string other;    // the answer to any other request

  std::string operator()(const std::string& rq) {
    requests.push_back(rq);
    const DomDocument doc = DomDocument::Load(rq);
    const DomNode msgs = doc.DocumentElement().ChildNamed("QBXMLMsgsRq");
    std::string out;
    for (DomNode r : msgs.Children()) {
      if (!r.IsElement()) continue;
      const std::string name(r.BaseName()), id = r.Attribute("requestID").value_or("");
      if (name == "DataExtDefQueryRq") {
        std::string rets;
        for (const auto& [owner, def, type] : defs[r.ChildText("AssignToObject")]) rets += DefRet(owner, def, type);
        out += Rs("DataExtDefQueryRs", id, rets.empty() ? 1 : 0, rets);
      } else if (name.rfind("DataExt", 0) == 0) {
        const std::string verb = name.substr(7, 3);
        const DomNode body = r.ChildNamed("DataExt" + verb);
        const std::string value = body.ChildText("DataExtName");
        if (value == refused) {
          out += Rs("DataExt" + verb + "Rs", id, 3180, {},
                    "There was an error when saving a data extension.  QuickBooks error message: Refused");
        } else if (verb == "Del") {
          out += Rs("DataExtDelRs", id, 0,
                    "<DataExtDelRet><OwnerID>" + body.ChildText("OwnerID") + "</OwnerID><DataExtName>" + value +
                        "</DataExtName><TimeDeleted>2024-03-01T10:00:00</TimeDeleted></DataExtDelRet>");
        } else {
          out += Rs("DataExt" + verb + "Rs", id, 0,
                    "<DataExtRet><OwnerID>" + body.ChildText("OwnerID") + "</OwnerID><DataExtName>" + value +
                        "</DataExtName><DataExtType>STR255TYPE</DataExtType><DataExtValue>" +
                        EscapeXmlText(body.ChildText("DataExtValue")) + "</DataExtValue></DataExtRet>");
        }
      }
    }
    return out.empty() ? other : Responses(out);
  }
};

// Collects (source, text) pairs given to the trace hook while alive.
struct TraceCollector {
  TraceCollector() {
    SetTraceObserver([this](std::string_view source, std::string_view text) {
      seen.emplace_back(std::string(source), std::string(text));
    });
  }
  ~TraceCollector() { SetTraceObserver({}); }
  std::vector<std::pair<std::string, std::string>> seen;
};

class DataExt : public ModelTest {
 protected:
  std::shared_ptr<ScriptedProcessor> Connect(Company& company) {
    return Install([&company](const std::string& rq) { return company(rq); });
  }
};

template <class T>
void ReadInto(T& record, const std::string& ret) {
  record.FromDom(Parse(ret).DocumentElement());
}

const std::string kCustomerRet =
    "<CustomerRet><ListID>80000001-1</ListID><EditSequence>1</EditSequence><Name>Ann</Name><FullName>Ann</FullName>"
    "<DataExtRet><OwnerID>0</OwnerID><DataExtName>Color</DataExtName><DataExtType>STR255TYPE</DataExtType>"
    "<DataExtValue>Red</DataExtValue></DataExtRet>"
    "<DataExtRet><OwnerID>{6B063959-81B0-4DA8-8BD4-3AA0A1D6C6E1}</OwnerID><DataExtName>Score</DataExtName>"
    "<DataExtType>INTTYPE</DataExtType><DataExtValue>42</DataExtValue><Colour>x</Colour></DataExtRet></CustomerRet>";

// --- values by type -----------------------------------------------------------------------------

TEST_F(DataExt, EachDataTypeWritesItsOwnText) {
  struct Case {
    qbEnumDataExtDataType type;
    Variant in;
    std::string text;
  };
  const std::vector<Case> cases = {
      {qbDataExtTypeINTTYPE, 42, "42"},
      {qbDataExtTypeINTTYPE, std::string(" +7 "), "7"},
      {qbDataExtTypeINTTYPE, 3.0, "3"},
      {qbDataExtTypeAMTTYPE, 1234.5, "1234.50"},
      {qbDataExtTypeAMTTYPE, *Currency::Parse("0.125"), "0.12"},
      {qbDataExtTypeAMTTYPE, std::string("19.99"), "19.99"},
      {qbDataExtTypePRICETYPE, 12.5, "0000012.50000"},
      {qbDataExtTypePRICETYPE, 12.34567, "0000012.34567"},
      {qbDataExtTypePERCENTTYPE, 12.345678, "0000012.34570"},  // kept to four decimals
      {qbDataExtTypeQUANTYPE, 2.5, "2.50000"},
      {qbDataExtTypeQUANTYPE, std::string("1.123456"), "1.12346"},
      {qbDataExtTypeDATETIMETYPE, Date::FromParts(2024, 3, 1, 10, 5, 9), "2024-03-01T10:05:09"},
      {qbDataExtTypeDATETIMETYPE, std::string("2024-03-01"), "2024-03-01T00:00:00"},
      {qbDataExtTypeSTR255TYPE, std::string("Red & <Blue>"), "Red & <Blue>"},
      {qbDataExtTypeSTR1024TYPE, 12, "12"},
      {qbDataExtTypeSTR255TYPE, "", ""},
  };
  Company company;
  auto p = Connect(company);
  CurrentSession().commitRaises = false;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    DataExtensions values;
    values.OwnerType(zqObjectTypeCustomer);
    values.ListOrTxnId("80000001-1");
    DataExtension& v = values.Add("Field");
    v.DataType(c.type);
    v.Value(c.in);
    EXPECT_EQ(v.ValueText(), c.text);
    EXPECT_EQ(v.HasValue(), !c.text.empty());
    p->requests.clear();
    values.Commit();
    for (const zkError& e : v.Errors()) ADD_FAILURE() << e.Description();
    if (c.text.empty()) {
      EXPECT_TRUE(p->requests.empty()) << "an empty new value is not sent";
      continue;
    }
    ASSERT_EQ(p->requests.size(), 1u);
    EXPECT_NE(Messages(p->requests[0]).find("<DataExtValue>" + EscapeXmlText(c.text) + "</DataExtValue>"),
              std::string::npos)
        << p->requests[0];
  }
}

TEST_F(DataExt, ValuesReadBackAsTheirTypeAndRefuseWhatTheTypeCannotHold) {
  auto read = [](const std::string& type, const std::string& text) {
    DataExtension v("F", "0", qbDataExtTypeSTR255TYPE);
    v.FromDom(Parse("<DataExtRet><OwnerID>0</OwnerID><DataExtName>F</DataExtName><DataExtType>" + type +
                    "</DataExtType><DataExtValue>" + text + "</DataExtValue></DataExtRet>")
                  .DocumentElement());
    EXPECT_EQ(v.ObjectState(), zqObjectStateClean);
    return v.Value();
  };
  EXPECT_EQ(std::any_cast<Long>(read("INTTYPE", "-12")), -12);
  EXPECT_EQ(std::any_cast<Currency>(read("AMTTYPE", "19.99")), *Currency::Parse("19.99"));
  EXPECT_EQ(std::any_cast<double>(read("PRICETYPE", "12.34567")), 12.34567);
  EXPECT_EQ(std::any_cast<double>(read("QUANTYPE", "3")), 3.0);
  EXPECT_EQ(std::any_cast<Date>(read("DATETIMETYPE", "2024-03-01T10:05:09")), Date::FromParts(2024, 3, 1, 10, 5, 9));
  EXPECT_EQ(std::any_cast<std::string>(read("STR1024TYPE", "a &amp; b")), "a & b");
  // Text QuickBooks sent that the type cannot take is kept as it came.
  EXPECT_EQ(std::any_cast<std::string>(read("INTTYPE", "n/a")), "n/a");

  struct Bad {
    qbEnumDataExtDataType type;
    Variant in;
  };
  for (const Bad& b : std::vector<Bad>{{qbDataExtTypeINTTYPE, std::string("abc")},
                                       {qbDataExtTypeINTTYPE, 1.5},
                                       {qbDataExtTypeAMTTYPE, std::string("12,50")},
                                       {qbDataExtTypePRICETYPE, std::string("cheap")},
                                       {qbDataExtTypeDATETIMETYPE, 5},
                                       {qbDataExtTypeDATETIMETYPE, std::string("soon")},
                                       {qbDataExtTypeSTR255TYPE, true}}) {
    DataExtension v("F", "0", b.type);
    if (b.type == qbDataExtTypeDATETIMETYPE)
      v.Value(Date::Serial(2024, 1, 2));
    else
      v.Value(7);
    const std::string before = v.ValueText();
    EXPECT_EQ(RaisedBy([&] { v.Value(b.in); }).Number(), 13) << before;
    EXPECT_EQ(v.ValueText(), before) << "the value stays as it was";
  }
}

// --- where a value is kept ------------------------------------------------------------------------

TEST_F(DataExt, EachKindOfObjectIsNamedInItsOwnForm) {
  Company company;
  company.defs["Customer"] = {{"0", "Color", "STR255TYPE"}};
  company.defs["Item"] = {{"0", "Grade", "STR255TYPE"}};
  company.defs["Invoice"] = {{kGuid, "Carrier", "STR255TYPE"}};
  company.defs["Company"] = {{kGuid, "Region", "STR255TYPE"}};
  auto p = Connect(company);
  CurrentSession().dataExtOwnerID = kGuid;

  TestCustomer customer;
  ReadInto(customer, "<CustomerRet><ListID>80000001-1</ListID><Name>Ann</Name></CustomerRet>");
  customer.CustomFields()["Color"].Value(std::string("Red"));
  TestItem item;
  ReadInto(item, "<ItemServiceRet><ListID>80000002-1</ListID><Name>Repair</Name></ItemServiceRet>");
  item.CustomFields()["Grade"].Value(std::string("A"));
  TestInvoice invoice;
  ReadInto(invoice, "<InvoiceRet><TxnID>100-1</TxnID><InvoiceLineRet><TxnLineID>101-1</TxnLineID></InvoiceLineRet>"
                    "</InvoiceRet>");
  invoice.ApplicationFields()["Carrier"].Value(std::string("Post"));
  invoice.ItemLines()[1].ApplicationFields()["carrier"].Value(std::string("Van"));
  DataExtensions companyFields;
  companyFields.OwnerType(zqObjectTypeCompany);
  companyFields.OwnerId(kGuid);
  companyFields["Region"].Value(std::string("North"));

  p->requests.clear();
  EXPECT_EQ(customer.SaveDataExtensions(), 1);
  EXPECT_EQ(item.SaveDataExtensions(), 1);
  EXPECT_EQ(invoice.SaveDataExtensions(), 2);  // the invoice's value and its line's, in one message
  EXPECT_EQ(companyFields.Commit(), 1);
  ASSERT_EQ(p->requests.size(), 4u);
  EXPECT_EQ(Messages(p->requests[0]),
            "<DataExtAddRq requestID = \"1\"><DataExtAdd><OwnerID>0</OwnerID><DataExtName>Color</DataExtName>"
            "<ListDataExtType>Customer</ListDataExtType><ListObjRef><ListID>80000001-1</ListID></ListObjRef>"
            "<DataExtValue>Red</DataExtValue></DataExtAdd></DataExtAddRq>");
  // Every kind of item is kept as an item.
  EXPECT_EQ(Messages(p->requests[1]),
            "<DataExtAddRq requestID = \"1\"><DataExtAdd><OwnerID>0</OwnerID><DataExtName>Grade</DataExtName>"
            "<ListDataExtType>Item</ListDataExtType><ListObjRef><ListID>80000002-1</ListID></ListObjRef>"
            "<DataExtValue>A</DataExtValue></DataExtAdd></DataExtAddRq>");
  const std::string owner = std::string("<OwnerID>") + kGuid + "</OwnerID>";
  EXPECT_EQ(Messages(p->requests[2]),
            "<DataExtAddRq requestID = \"1\"><DataExtAdd>" + owner +
                "<DataExtName>Carrier</DataExtName><TxnDataExtType>Invoice</TxnDataExtType><TxnID>100-1</TxnID>"
                "<DataExtValue>Post</DataExtValue></DataExtAdd></DataExtAddRq>"
                "<DataExtAddRq requestID = \"2\"><DataExtAdd>" +
                owner +
                "<DataExtName>Carrier</DataExtName><TxnDataExtType>Invoice</TxnDataExtType><TxnID>100-1</TxnID>"
                "<TxnLineID>101-1</TxnLineID><DataExtValue>Van</DataExtValue></DataExtAdd></DataExtAddRq>");
  EXPECT_EQ(Messages(p->requests[3]),
            "<DataExtAddRq requestID = \"1\"><DataExtAdd>" + owner +
                "<DataExtName>Region</DataExtName><OtherDataExtType>Company</OtherDataExtType>"
                "<DataExtValue>North</DataExtValue></DataExtAdd></DataExtAddRq>");
  EXPECT_EQ(customer.CustomFields()["Color"].ObjectState(), zqObjectStateClean);
  EXPECT_EQ(invoice.ItemLines()[1].ApplicationFields().ObjectState(), zqObjectStateClean);
  // Definitions were asked once per kind of object, and the name takes the definition's spelling.
  EXPECT_EQ(std::count_if(company.requests.begin(), company.requests.end(),
                          [](const std::string& r) { return r.find("<AssignToObject>Invoice<") != std::string::npos; }),
            1);
}

TEST_F(DataExt, AValueIsAddedModifiedOrDeletedByItsState) {
  Company company;
  company.defs["Customer"] = {{"0", "Color", "STR255TYPE"}, {"0", "Size", "STR255TYPE"}};
  auto p = Connect(company);
  TestCustomer customer;
  ReadInto(customer, kCustomerRet);
  EXPECT_EQ(customer.ObjectState(), zqObjectStateClean);
  DataExtensions& fields = customer.CustomFields();
  EXPECT_EQ(fields.ObjectState(), zqObjectStateClean);
  EXPECT_EQ(customer.SaveDataExtensions(), 0);
  EXPECT_TRUE(p->requests.empty()) << "nothing waits: nothing is sent";

  fields["Color"].Value(std::string("Blue"));
  EXPECT_EQ(fields["Color"].ObjectState(), zqObjectStateDirty);
  EXPECT_EQ(customer.ObjectState(), zqObjectStateClean) << "a value is not a field of the record";
  fields["Size"].Value(std::string("L"));
  EXPECT_EQ(fields["Size"].ObjectState(), zqObjectStateNew);
  EXPECT_EQ(fields.ObjectState(), zqObjectStateDirty);
  p->requests.clear();
  EXPECT_EQ(customer.SaveDataExtensions(), 2);
  const std::string first = Messages(p->requests.back());
  EXPECT_NE(first.find("<DataExtModRq requestID = \"1\"><DataExtMod><OwnerID>0</OwnerID><DataExtName>Color"),
            std::string::npos)
      << first;
  EXPECT_NE(first.find("<DataExtAddRq requestID = \"2\"><DataExtAdd><OwnerID>0</OwnerID><DataExtName>Size"),
            std::string::npos)
      << first;

  // Cleared: deleted from QuickBooks, and a value set again is added anew.
  fields["Color"].Value(Variant());
  EXPECT_EQ(customer.SaveDataExtensions(), 1);
  EXPECT_EQ(Messages(p->requests.back()),
            "<DataExtDelRq requestID = \"1\"><DataExtDel><OwnerID>0</OwnerID><DataExtName>Color</DataExtName>"
            "<ListDataExtType>Customer</ListDataExtType><ListObjRef><ListID>80000001-1</ListID></ListObjRef>"
            "</DataExtDel></DataExtDelRq>");
  EXPECT_EQ(fields["Color"].ObjectState(), zqObjectStateNew);
  EXPECT_FALSE(fields["Color"].HasValue());
  fields["Color"].ValueAsString("Green");
  customer.SaveDataExtensions();
  EXPECT_NE(Messages(p->requests.back()).find("<DataExtAdd><OwnerID>0</OwnerID><DataExtName>Color"), std::string::npos);
}

// --- errors -------------------------------------------------------------------------------------

TEST_F(DataExt, RaisedErrors) {
  Company company;
  company.defs["Customer"] = {{"0", "Color", "STR255TYPE"}, {kGuid, "Score", "INTTYPE"}};
  TestCustomer customer;
  ReadInto(customer, "<CustomerRet><ListID>80000001-1</ListID><Name>Ann</Name></CustomerRet>");
  // Asking for a field not held needs the definitions: without a connection, 1000.
  EXPECT_EQ(RaisedBy([&] { customer.CustomFields()["Color"]; }).Number(), ErrorNumber(1000));
  Connect(company);
  // An index that is not a name: 2800.
  const BrenvaleError index = RaisedBy([&] { customer.CustomFields().Item(1); });
  EXPECT_EQ(index.Number(), ErrorNumber(2800));
  EXPECT_EQ(index.Source(), "DataExt");
  EXPECT_EQ(index.Description(), "Invalid data extension index specified.");
  // A name not defined for customers, or defined by another owner: 2804.
  for (const char* name : {"Colour", "Score"}) {
    const BrenvaleError undefined = RaisedBy([&] { customer.CustomFields()[name]; });
    EXPECT_EQ(undefined.Number(), ErrorNumber(2804)) << name;
    EXPECT_EQ(undefined.Source(), "DataExtensions");
    EXPECT_EQ(undefined.Description(), "Specified data extension in not defined for this object type.");
  }
  EXPECT_EQ(customer.CustomFields().Item(std::string("color")).Name(), "Color");
  // The application's fields without a registered GUID: 2802.
  const BrenvaleError noGuid = RaisedBy([&] { customer.ApplicationFields(); });
  EXPECT_EQ(noGuid.Number(), ErrorNumber(2802));
  EXPECT_EQ(noGuid.Description(), "No GUID has been registered for application defined fields.");
  CurrentSession().dataExtOwnerID = kGuid;
  EXPECT_EQ(customer.ApplicationFields()["Score"].DataType(), qbDataExtTypeINTTYPE);
  // A kind that carries no data extensions: 1030.
  JobType job;
  EXPECT_EQ(RaisedBy([&] { job.CustomFields(); }).Number(), ErrorNumber(1030));
  EXPECT_EQ(RaisedBy([&] { job.SaveDataExtensions(); }).Number(), ErrorNumber(1030));
}

TEST_F(DataExt, CollectedErrors) {
  Company company;
  company.refused = "Refused";
  auto p = Connect(company);
  DataExtensions values;
  values.OwnerType(zqObjectTypeCustomer);
  values.ListOrTxnId("80000001-1");
  DataExtension& kept = values.Add("Kept");
  kept.FromDom(Parse("<DataExtRet><DataExtName>Kept</DataExtName><DataExtType>INTTYPE</DataExtType>"
                     "<DataExtValue>1</DataExtValue></DataExtRet>")
                   .DocumentElement());
  // What QuickBooks keeps cannot move or change type.
  kept.DataType(qbDataExtTypeAMTTYPE);
  kept.ListOrTxnId("80000009-1");
  ASSERT_EQ(kept.Errors().Count(), 2);
  EXPECT_EQ(kept.Errors()[1].Number(), ErrorNumber(1002));
  EXPECT_EQ(kept.Errors()[1].Field(), "DataExt");
  EXPECT_EQ(kept.DataType(), qbDataExtTypeINTTYPE);
  EXPECT_EQ(kept.ListOrTxnId(), "80000001-1");

  values.Add("Odd").DataType(static_cast<qbEnumDataExtDataType>(9));
  values["Odd"].ValueAsString("x");
  values.Add("Refused").ValueAsString("no");
  values.Add("Fine").ValueAsString("yes");
  CurrentSession().commitRaises = false;
  EXPECT_EQ(values.Commit(), 1);
  std::vector<std::pair<int, std::string>> entries;
  for (const zkError& e : values.Errors()) entries.emplace_back(e.Number() - ErrorNumber(0), e.Field());
  EXPECT_EQ(entries, (std::vector<std::pair<int, std::string>>{{1011, "Odd"}, {1018, "Refused"}}));
  EXPECT_EQ(values["Odd"].Errors()[1].Description(), "Unknown Data Type: 9");
  EXPECT_EQ(values["Refused"].Errors()[1].Description(), "QuickBooks: Refused");
  EXPECT_EQ(values["Refused"].ObjectState(), zqObjectStateNew);
  EXPECT_EQ(values["Fine"].ObjectState(), zqObjectStateClean);
  EXPECT_EQ(Messages(p->requests.back()).find("Odd"), std::string::npos) << "a value that fails is not sent";
  CurrentSession().commitRaises = true;
  EXPECT_EQ(RaisedBy([&] { values.Commit(); }).Number(), ErrorNumber(1023));

  // Where a value is kept must be known, and QuickBooks must keep values there.
  DataExtensions nowhere;
  nowhere.OwnerType(zqObjectTypeCustomer);
  nowhere.Add("F").ValueAsString("x");
  DataExtensions jobs;
  jobs.OwnerType(zqObjectTypeJobType);
  jobs.ListOrTxnId("80000001-1");
  jobs.Add("F").ValueAsString("x");
  EXPECT_FALSE(nowhere.Validate());
  EXPECT_EQ(nowhere["F"].Errors()[1].Number(), ErrorNumber(1031));
  EXPECT_FALSE(jobs.Validate());
  EXPECT_EQ(jobs["F"].Errors()[1].Number(), ErrorNumber(1030));

  // QuickBooks before qbXML 2.0 keeps no data extensions; before 3.0 none on transaction lines.
  values["Odd"].Value(Variant());  // no longer waits
  CurrentSession().qbXMLVersionNumber = VersionNumberOf("1.1");
  EXPECT_FALSE(values.Validate());
  EXPECT_EQ(values["Refused"].Errors()[1].Number(), ErrorNumber(1005));
  EXPECT_EQ(values["Refused"].Errors()[1].Description(),
            "The version of QuickBooks you are running does not support this feature.");
  CurrentSession().qbXMLVersionNumber = VersionNumberOf("2.1");
  values.TxnLineId("101-1");
  values.OwnerType(zqObjectTypeInvoice);
  EXPECT_FALSE(values.Validate());
  CurrentSession().qbXMLVersionNumber = VersionNumberOf("3.0");
  EXPECT_TRUE(values.Validate());
}

// --- queries ------------------------------------------------------------------------------------

TEST_F(DataExt, QueriesAskForThePublicFieldsAndTheRegisteredOwnersWhenItHasSome) {
  Company company;
  company.defs["Customer"] = {{kGuid, "Score", "INTTYPE"}};
  company.defs["Vendor"] = {{kGuid, "Rating", "INTTYPE"}};
  company.other = Responses(Rs("CustomerQueryRs", "1", 1, {}, "No match"));
  auto p = Connect(company);
  auto owners = [&] {
    std::vector<std::string> out;
    const std::string& rq = p->requests.back();
    for (std::size_t at = rq.find("<OwnerID>"); at != std::string::npos; at = rq.find("<OwnerID>", at + 1))
      out.push_back(rq.substr(at + 9, rq.find('<', at + 9) - at - 9));
    return out;
  };
  TestCustomers customers;
  customers.GetAll();
  EXPECT_TRUE(owners().empty());
  customers.IncludeDataExtensions(true);
  customers.GetByFullName("Ann");
  EXPECT_EQ(owners(), std::vector<std::string>{"0"});
  EXPECT_NE(p->requests.back().find("<FullName>Ann</FullName><OwnerID>0</OwnerID></CustomerQueryRq>"),
            std::string::npos);
  // The registered owner has a customer field: its OwnerID comes second, also without the public ones.
  CurrentSession().dataExtOwnerID = kGuid;
  customers.GetAll();
  EXPECT_EQ(owners(), (std::vector<std::string>{"0", kGuid}));
  customers.IncludeDataExtensions(false);
  customers.GetAll();
  EXPECT_EQ(owners(), std::vector<std::string>{kGuid});
  EXPECT_EQ(std::count_if(p->requests.begin(), p->requests.end(),
                          [](const std::string& r) { return r.find("DataExtDefQueryRq") != std::string::npos; }),
            1)
      << "the definitions are asked once per session";
  // It has none for items: the item query carries the public OwnerID only.
  TestAnyItems items;
  items.IncludeDataExtensions(true);
  items.GetAll();
  EXPECT_EQ(owners(), std::vector<std::string>{"0"});
  // A kind that carries none takes no data extensions.
  TestBills bills;
  EXPECT_EQ(RaisedBy([&] { bills.IncludeDataExtensions(true); }).Number(), ErrorNumber(1030));
  // Transactions ask after their other elements.
  TestInvoices invoices;
  invoices.IncludeDataExtensions(true);
  invoices.GetAll(true);
  EXPECT_NE(p->requests.back().find("<IncludeLineItems>true</IncludeLineItems><OwnerID>0</OwnerID></InvoiceQueryRq>"),
            std::string::npos)
      << p->requests.back();
}

TEST_F(DataExt, GetAllGivesEveryFieldDefinedWithTheObjectsValues) {
  Company company;
  company.defs["Invoice"] = {{"0", "Carrier", "STR255TYPE"}, {"0", "Weight", "QUANTYPE"}, {kGuid, "Own", "INTTYPE"}};
  company.other = Responses(Rs(
      "InvoiceQueryRs", "1", 0,
      "<InvoiceRet><TxnID>100-1</TxnID><InvoiceLineRet><TxnLineID>101-1</TxnLineID>"
      "<DataExtRet><OwnerID>0</OwnerID><DataExtName>Weight</DataExtName><DataExtType>QUANTYPE</DataExtType>"
      "<DataExtValue>2.5</DataExtValue></DataExtRet></InvoiceLineRet>"
      "<InvoiceLineRet><TxnLineID>102-1</TxnLineID><DataExtRet><OwnerID>0</OwnerID><DataExtName>Weight</DataExtName>"
      "<DataExtType>QUANTYPE</DataExtType><DataExtValue>9</DataExtValue></DataExtRet></InvoiceLineRet></InvoiceRet>"));
  auto p = Connect(company);
  DataExtensions line;
  line.OwnerType(zqObjectTypeInvoice);
  line.ListOrTxnId("100-1");
  line.TxnLineId("102-1");
  EXPECT_EQ(line.GetAll(), 2);
  EXPECT_EQ(Messages(p->requests.back()),
            "<InvoiceQueryRq requestID = \"1\"><TxnID>100-1</TxnID><IncludeLineItems>true</IncludeLineItems>"
            "<OwnerID>0</OwnerID></InvoiceQueryRq>");
  EXPECT_EQ(std::any_cast<double>(line["Weight"].Value()), 9.0);
  EXPECT_EQ(line["Weight"].ObjectState(), zqObjectStateClean);
  EXPECT_FALSE(line["Carrier"].HasValue());
  EXPECT_EQ(line["Carrier"].ObjectState(), zqObjectStateNew);
  EXPECT_EQ(line.ObjectState(), zqObjectStateClean);
}

// --- reading and committing ---------------------------------------------------------------------

TEST_F(DataExt, RecordsReadTheirValuesByOwner) {
  TraceCollector trace;
  TestCustomer customer;
  ReadInto(customer, kCustomerRet);
  ASSERT_NE(customer.FindCustomFields(), nullptr);
  EXPECT_EQ(customer.FindCustomFields()->Count(), 1);
  EXPECT_EQ(std::any_cast<std::string>(customer.CustomFields()["Color"].Value()), "Red");
  ASSERT_NE(customer.FindApplicationFields(), nullptr);
  EXPECT_EQ(customer.ApplicationFields().OwnerId(), kGuid);
  EXPECT_EQ(std::any_cast<Long>(customer.ApplicationFields()["Score"].Value()), 42);
  EXPECT_EQ(trace.seen, (std::vector<std::pair<std::string, std::string>>{{"DataExt", "Unknown Field: Colour"}}));

  // Written in response form, the values come last and read back as they were.
  xmlBldr b;
  customer.XMLQueryRs(b);
  EXPECT_EQ(b.GetXML().substr(b.GetXML().find("<DataExtRet>")),
            "<DataExtRet><OwnerID>0</OwnerID><DataExtName>Color</DataExtName><DataExtType>STR255TYPE</DataExtType>"
            "<DataExtValue>Red</DataExtValue></DataExtRet><DataExtRet><OwnerID>" +
                std::string(kGuid) +
                "</OwnerID><DataExtName>Score</DataExtName><DataExtType>INTTYPE</DataExtType>"
                "<DataExtValue>42</DataExtValue></DataExtRet>");
  TestCustomer copy;
  ReadInto(copy, "<CustomerRet>" + b.GetXML() + "</CustomerRet>");
  EXPECT_EQ(copy.CustomFields()["Color"].ValueText(), "Red");
  EXPECT_EQ(copy.ApplicationFields()["Score"].ValueText(), "42");

  // Read again, a value QuickBooks answers replaces the one held; one it does not answer stays.
  customer.CustomFields()["Color"].ValueAsString("Blue");
  ReadInto(customer, "<CustomerRet><ListID>80000001-1</ListID><Name>Ann</Name></CustomerRet>");
  EXPECT_EQ(customer.CustomFields()["Color"].ValueText(), "Blue");
  ReadInto(customer, kCustomerRet);
  EXPECT_EQ(customer.CustomFields()["Color"].ValueText(), "Red");

  // A kind that carries none skips the element as unknown, and holds nothing.
  trace.seen.clear();
  JobType job;
  job.FromDom(Parse("<JobTypeRet><Name>Install</Name><DataExtRet><DataExtName>X</DataExtName></DataExtRet>"
                    "</JobTypeRet>")
                  .DocumentElement());
  EXPECT_EQ(trace.seen, (std::vector<std::pair<std::string, std::string>>{{"JobType", "Unknown Field: DataExtRet"}}));
  EXPECT_EQ(job.FindCustomFields(), nullptr);
}

TEST_F(DataExt, ACommitSavesTheValuesOfEveryRecordItHolds) {
  Company company;
  company.defs["Customer"] = {{"0", "Color", "STR255TYPE"}, {"0", "Refused", "STR255TYPE"}};
  company.refused = "Refused";
  auto p = Install([&](const std::string& rq) {
    if (rq.find("CustomerAddRq") != std::string::npos)
      return Responses(Rs("CustomerAddRs", "1", 0,
                          "<CustomerRet><ListID>80000007-1</ListID><EditSequence>1</EditSequence><Name>Ann</Name>"
                          "<FullName>Ann</FullName></CustomerRet>"));
    return company(rq);
  });
  TestCustomers customers(true);
  TestCustomer& ann = customers.Add("Ann");
  ann.CustomFields()["Color"].ValueAsString("Red");
  TestCustomer& bob = customers.Add("");  // fails validation: neither it nor its value is sent
  bob.CustomFields()["Color"].ValueAsString("Blue");
  CurrentSession().commitRaises = false;
  p->requests.clear();
  EXPECT_EQ(customers.Commit(), 1);
  ASSERT_EQ(p->requests.size(), 2u);
  // The new customer's value goes after it, under the ListID QuickBooks gave it.
  EXPECT_NE(Messages(p->requests[1]).find("<ListObjRef><ListID>80000007-1</ListID></ListObjRef><DataExtValue>Red<"),
            std::string::npos)
      << p->requests[1];
  EXPECT_EQ(ann.CustomFields()["Color"].ObjectState(), zqObjectStateClean);
  EXPECT_EQ(bob.CustomFields()["Color"].ObjectState(), zqObjectStateNew);

  // A value QuickBooks refuses is reported on its record and in the collection.
  ann.CustomFields()["Refused"].ValueAsString("x");
  EXPECT_EQ(customers.Commit(&ann), 0);
  ASSERT_EQ(ann.Errors().Count(), 1);
  EXPECT_EQ(ann.Errors()[1].Field(), "Refused");
  EXPECT_EQ(ann.Errors()[1].Description(), "QuickBooks: Refused");
  EXPECT_EQ(customers.Errors()[1].Number(), ErrorNumber(1018));
}

}  // namespace
}  // namespace brenvale::testing
