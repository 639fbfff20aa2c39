#include "Commands.hpp"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <sstream>

#include "Kinds.hpp"
#include "Output.hpp"
#include "Progress.hpp"
#include "WebConnector.hpp"
#include "brenvale/company/BrenvaleGlobals.hpp"
#include "brenvale/core/Enumerations.hpp"
#include "brenvale/model/DataExtensions.hpp"
#include "brenvale/qbxml/Conversions.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/ResponseView.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"

namespace brenvale::tool {
namespace {

const char* const kGlobalsNote =
    "The global options (--company, --processor, --trace, --format) may come before or after the command.";

// --- checking arguments before anything is opened ----------------------------------------------

bool IsDateText(std::string_view s) {
  auto digits = [&](std::size_t at, std::size_t n) {
    if (s.size() < at + n) return false;
    for (std::size_t i = at; i < at + n; ++i)
      if (!std::isdigit(static_cast<unsigned char>(s[i]))) return false;
    return true;
  };
  bool date = digits(0, 4) && s.size() >= 10 && s[4] == '-' && digits(5, 2) && s[7] == '-' && digits(8, 2);
  if (!date) return false;
  if (s.size() == 10) return true;
  return s.size() == 19 && s[10] == 'T' && digits(11, 2) && s[13] == ':' && digits(14, 2) && s[16] == ':' &&
         digits(17, 2);
}

bool IsNumberText(std::string_view s, bool fraction) {
  std::size_t i = (!s.empty() && (s[0] == '-' || s[0] == '+')) ? 1 : 0;
  bool digit = false, point = false;
  for (; i < s.size(); ++i) {
    if (std::isdigit(static_cast<unsigned char>(s[i]))) {
      digit = true;
    } else if (s[i] == '.' && fraction && !point) {
      point = true;
    } else {
      return false;
    }
  }
  return digit;
}

bool IsBoolText(std::string_view s) {
  std::string l;
  for (char c : s) l += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return l == "true" || l == "false" || l == "1" || l == "0";
}

// A value a field of that kind can take, or a usage error saying what it expects.
void CheckValueText(const FieldDef& f, const std::string& value) {
  auto fail = [&](const std::string& expected) {
    throw UsageError("field " + std::string(f.tag) + " expects " + expected + ", got '" + value + "'");
  };
  switch (f.kind) {
    case ValueKind::Bool:
      if (!IsBoolText(value)) fail("true or false");
      break;
    case ValueKind::Int:
      if (!IsNumberText(value, false)) fail("a whole number");
      break;
    case ValueKind::Amount:
    case ValueKind::Price:
    case ValueKind::Quantity:
      if (!IsNumberText(value, true)) fail("a number");
      break;
    case ValueKind::Date:
    case ValueKind::DateTime:
      if (!value.empty() && !IsDateText(value)) fail("a date (yyyy-mm-dd)");
      break;
    default: break;
  }
}

// The records of the collection that are of the kind.
std::vector<ListRecord*> RecordsOf(ListCollectionBase& c, const Kind& kind) {
  std::vector<ListRecord*> out;
  for (Long i = 1; i <= c.Count(); ++i)
    if (ListRecord& r = c.Item(static_cast<std::size_t>(i)); kind.Holds(r)) out.push_back(&r);
  return out;
}

// --- kinds -----------------------------------------------------------------------------------

const char* FieldKindName(ValueKind k) {
  switch (k) {
    case ValueKind::Text: return "text";
    case ValueKind::Bool: return "true/false";
    case ValueKind::Int: return "whole number";
    case ValueKind::Amount: return "amount";
    case ValueKind::Price: return "rate";
    case ValueKind::Quantity: return "quantity";
    case ValueKind::Date: return "date";
    case ValueKind::DateTime: return "date and time";
    case ValueKind::Ref: return "reference (full name)";
    case ValueKind::Enum: return "one of a list of values";
    case ValueKind::Aggregate: return "a group of fields";
    case ValueKind::Children: return "a list of records";
    case ValueKind::Own: return "text of its own form";
  }
  return "";
}

int RunKinds(const GlobalOptions& g, const std::string& name) {
  const Format format = g.OutputFormat();
  if (format == Format::Xml) throw UsageError("kinds has no qbXML form; use --format table or json");
  if (name.empty()) {
    if (format == Format::Json) {
      std::cout << "[";
      bool first = true;
      for (const Kind& k : Kinds()) {
        std::cout << (first ? "\n  " : ",\n  ") << "{\"kind\": " << JsonString(k.name)
                  << ", \"collection\": " << JsonString(k.plural) << ", \"addFields\": [";
        std::string sep;
        for (FieldId id : k.decl().add) {
          std::cout << sep << JsonString(k.decl().Field(id).tag);
          sep = ", ";
        }
        std::cout << "]}";
        first = false;
      }
      std::cout << "\n]\n";
      return kExitOk;
    }
    std::vector<std::vector<std::string>> rows{{"KIND", "COLLECTION", "FIELDS FOR ADD"}};
    for (const Kind& k : Kinds())
      rows.push_back({k.name, k.plural, FieldNames(k.decl(), k.decl().add)});
    PrintTable(std::cout, rows);
    return kExitOk;
  }
  const Kind& kind = RequireKind(name);
  const RecordDecl& schema = kind.decl();
  const auto& add = schema.add;
  std::vector<std::vector<std::string>> rows{{"FIELD", "TYPE", "ADD"}};
  if (format == Format::Json) std::cout << "[";
  bool first = true;
  for (FieldId id : KindFields(schema)) {
    const FieldDef& f = schema.Field(id);
    const bool settable = std::find(add.begin(), add.end(), id) != add.end();
    if (format == Format::Json) {
      std::cout << (first ? "\n  " : ",\n  ") << "{\"field\": " << JsonString(f.tag)
                << ", \"type\": " << JsonString(FieldKindName(f.kind))
                << ", \"add\": " << (settable ? "true" : "false") << "}";
      first = false;
    } else {
      rows.push_back({std::string(f.tag), FieldKindName(f.kind), settable ? "yes" : ""});
    }
  }
  if (format == Format::Json)
    std::cout << "\n]\n";
  else
    PrintTable(std::cout, rows);
  return kExitOk;
}

// --- info ------------------------------------------------------------------------------------

int RunInfo(const GlobalOptions& g) {
  OpenCompany(g);
  const brenvale::QBConnection& c = BrenvaleGlobals::QBConnection();
  const Format format = g.OutputFormat();
  if (format == Format::Xml) {
    // The host's own answer, as QuickBooks sends it.
    xmlBldr b;
    b.NewClear();
    b.OpenAggregate("HostQueryRq", "requestID", "1");
    b.EndAggregate("HostQueryRq");
    DomDocument doc = b.NewSendRequest();
    std::cout << IndentXml(doc.Root().Xml());
    return kExitOk;
  }
  std::string versions;
  for (const std::string& v : c.SupportedQBXMLVersions()) versions += (versions.empty() ? "" : ", ") + v;
  const std::string qbVersion = std::to_string(c.QBMajorVersion()) + "." + std::to_string(c.QBMinorVersion());
  if (format == Format::Json) {
    std::cout << "{\"companyFile\": " << JsonString(c.CompanyPath())
              << ", \"processor\": " << JsonString(c.RequestProcessorProgId())
              << ", \"productName\": " << JsonString(c.ProductName())
              << ", \"majorVersion\": " << c.QBMajorVersion() << ", \"minorVersion\": " << c.QBMinorVersion()
              << ", \"country\": " << JsonString(c.Country())
              << ", \"qbxmlVersion\": " << JsonString(c.qbxmlVersion()) << ", \"supportedQBXMLVersions\": [";
    std::string sep;
    for (const std::string& v : c.SupportedQBXMLVersions()) {
      std::cout << sep << JsonString(v);
      sep = ", ";
    }
    std::cout << "], \"fileMode\": " << JsonString(c.QBFileMode())
              << ", \"isAutomaticLogin\": " << (c.IsAutomaticLogin() ? "true" : "false")
              << ", \"isOnline\": " << (c.IsOnline() ? "true" : "false") << "}\n";
    return kExitOk;
  }
  PrintTable(std::cout, {{"Company file", c.CompanyPath()},
                         {"Request processor", c.RequestProcessorProgId()},
                         {"Product", c.ProductName()},
                         {"QuickBooks version", qbVersion},
                         {"Country", c.Country()},
                         {"qbXML version", c.qbxmlVersion()},
                         {"Supported qbXML", versions},
                         {"File mode", c.QBFileMode()},
                         {"Automatic login", c.IsAutomaticLogin() ? "true" : "false"}});
  return kExitOk;
}

// --- custom fields -------------------------------------------------------------------------

using CustomValues = std::vector<std::pair<std::string, std::string>>;

// "0" (QuickBooks' own custom fields) or an application's GUID, {8-4-4-4-12 hex digits}.
void CheckOwner(const std::string& owner) {
  if (owner == "0") return;
  static constexpr std::string_view kShape = "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}";
  bool fits = owner.size() == kShape.size();
  for (std::size_t i = 0; fits && i < owner.size(); ++i)
    fits = kShape[i] == 'X' ? std::isxdigit(static_cast<unsigned char>(owner[i])) != 0 : owner[i] == kShape[i];
  if (!fits) throw UsageError("--owner expects 0 or an application's GUID like " + std::string(kShape) + ", got '" + owner + "'");
}

// The `--field NAME=VALUE` arguments, checked before anything is opened.
CustomValues ParseCustomFields(const Kind& kind, const std::string& owner, const std::vector<std::string>& fields) {
  CheckOwner(owner);
  CustomValues values;
  if (!fields.empty() && !kind.decl().dataExt) throw UsageError(kind.name + " records have no custom fields");
  for (const std::string& a : fields) {
    const std::size_t eq = a.find('=');
    if (eq == std::string::npos || eq == 0) throw UsageError("expected --field NAME=VALUE, got '" + a + "'");
    std::string name = a.substr(0, eq);
    if (TextLength(name) > 31) throw UsageError("custom field name '" + name + "' is longer than 31 characters");
    for (const auto& [seen, v] : values)
      if (seen == name) throw UsageError("custom field " + name + " is given twice");
    values.emplace_back(std::move(name), a.substr(eq + 1));
  }
  return values;
}

// Makes `owner` the application whose fields the session reads and writes (QuickBooks' own need none).
void UseOwner(const std::string& owner) {
  if (owner != "0") BrenvaleGlobals::QBConnection().RegisterDataExtensionsGUID(owner);
}

// Sets the record's custom fields of `owner`; they are saved with the record's commit. A name not
// defined for the kind raises the library's error.
void SetCustomFields(ListRecord& record, const std::string& owner, const CustomValues& values) {
  if (values.empty()) return;
  DataExtensions& fields = owner == "0" ? record.CustomFields() : record.ApplicationFields();
  for (const auto& [name, value] : values) fields[name].ValueAsString(value);
}

// --- list ------------------------------------------------------------------------------------

struct ListOptions {
  std::string kind;
  std::string startsWith, contains, endsWith, fromName, toName, modifiedSince;
  Long max = 0;
  bool activeOnly = false;
  std::vector<std::string> fields;
  std::string owner;  // with --owner, the records come with that owner's custom fields
  CLI::Option* active = nullptr;
  CLI::Option* starts = nullptr;
  CLI::Option* contain = nullptr;
  CLI::Option* ends = nullptr;
  CLI::Option* from = nullptr;
  CLI::Option* to = nullptr;
  CLI::Option* since = nullptr;
};

int RunList(const GlobalOptions& g, const ListOptions& o) {
  const Kind& kind = RequireKind(o.kind);
  const RecordDecl& schema = kind.decl();
  const std::vector<FieldId> columns = TableColumns(schema, o.fields);
  // The library runs one query per call, so the filters exclude each other.
  std::vector<std::string> chosen;
  for (const CLI::Option* f : {o.active, o.starts, o.contain, o.ends, o.from, o.to, o.since})
    if (*f && !(f == o.to && *o.from)) chosen.push_back(f->get_name());
  if (chosen.size() > 1)
    throw UsageError("one filter per query: " + chosen[0] + " and " + chosen[1] + " cannot be combined");
  if (*o.since && !IsDateText(o.modifiedSince))
    throw UsageError("--modified-since expects a date (yyyy-mm-dd or yyyy-mm-ddThh:mm:ss), got '" +
                     o.modifiedSince + "'");
  if (!o.owner.empty()) {
    CheckOwner(o.owner);
    if (!schema.dataExt) throw UsageError(kind.name + " records have no custom fields");
  }
  OpenCompany(g);
  ListCollectionBase& c = kind.master();
  if (!o.owner.empty()) {
    UseOwner(o.owner);
    c.IncludeDataExtensions(o.owner == "0");
  }
  {
    Progress progress("reading " + kind.plural);
    if (*o.active)
      c.GetActive(o.max);
    else if (*o.starts)
      c.GetByNameMatch(o.startsWith, qbMatchStartsWith, o.max);
    else if (*o.contain)
      c.GetByNameMatch(o.contains, qbMatchContains, o.max);
    else if (*o.ends)
      c.GetByNameMatch(o.endsWith, qbMatchEndsWith, o.max);
    else if (*o.from || *o.to)
      c.GetByNameRange(o.fromName, o.toName, o.max);
    else if (*o.since)
      c.GetByDateSpan(TextToDate(o.modifiedSince), Date(), o.max);
    else
      c.GetAll(o.max);
  }
  PrintRecords(std::cout, g.OutputFormat(), schema, RecordsOf(c, kind), columns);
  return kExitOk;
}

// --- add -------------------------------------------------------------------------------------

struct AddOptions {
  std::string kind;
  std::vector<std::string> assignments;
  std::vector<std::string> fields;
  std::vector<std::string> customFields;  // --field NAME=VALUE
  std::string owner = "0";
};

void PrintRecordErrors(std::ostream& err, const Kind& kind, ListRecord& record, ListCollectionBase& c,
                       const char* what) {
  const std::string name = record.Name().empty() ? std::string() : " '" + record.FullName() + "'";
  const zkErrors& errors = record.Errors().Empty() ? c.Errors() : record.Errors();
  err << "brenvale: " << kind.name << name << " was not " << what << (errors.Empty() ? "\n" : ":\n");
  for (const zkError& e : errors) {
    err << "brenvale:   error " << ErrorNumberText(e.Number());
    if (!e.Field().empty()) err << " in " << e.Field();
    err << ": " << e.Description() << "\n";
  }
}

// One `Field=Value` argument: the field (maybe inside nested records) and its text.
struct Assignment {
  FieldPath path;
  std::string value;
};

// Sets each assignment on `record`, through the record's own setter rules.
void Assign(RecordCore& record, const std::vector<Assignment>& values) {
  for (const Assignment& a : values) HolderOf(record, a.path).SetFromText(a.path.ids.back(), a.value);
}

// The `Field=Value` arguments as fields and texts, checked against the fields a request of `form`
// writes and against what the library accepts, before anything is opened.
std::vector<Assignment> ParseAssignments(const Kind& kind, Form form, const std::vector<std::string>& assignments) {
  const RecordDecl& schema = kind.decl();
  std::vector<Assignment> values;
  std::shared_ptr<ListRecord> scratch = kind.scratch ? kind.scratch() : nullptr;
  for (const std::string& a : assignments) {
    const std::size_t eq = a.find('=');
    if (eq == std::string::npos || eq == 0) throw UsageError("expected Field=Value, got '" + a + "'");
    const std::string field = a.substr(0, eq), value = a.substr(eq + 1);
    Assignment assignment{FindFieldPath(schema, form, field), value};
    if (assignment.path.ids.empty())
      throw UsageError(kind.name + " has no field '" + field +
                       "' to set; its fields are: " + FieldNames(schema, schema.Order(form)));
    for (const Assignment& seen : values)
      if (seen.path.ids == assignment.path.ids)
        throw UsageError("field " + assignment.path.name + " is given twice");
    const FieldDef& f = *assignment.path.field;
    CheckValueText(f, value);
    // Values the library itself refuses (an unknown enumeration value) fail here, before connecting.
    try {
      if (scratch) Assign(*scratch, {assignment});
    } catch (const BrenvaleError& e) {
      PrintError(std::cerr, e);
      std::string message = "field " + assignment.path.name + " cannot take '" + value + "'";
      if (f.kind == ValueKind::Enum) {
        std::string known;
        for (const zkEnumValue& v : EnumCatalogue(f.enumType))
          known += (known.empty() ? "" : ", ") + v.XMLTag();
        message += "; it takes one of: " + known;
      }
      throw ToolFailure(kExitLibrary, message);
    }
    values.push_back(std::move(assignment));
  }
  return values;
}

// Commits one record of the master collection; on failure prints the record's errors.
bool CommitRecord(const Kind& kind, ListCollectionBase& c, ListRecord& record, const char* what) {
  try {
    Progress progress("sending the " + kind.name);
    c.Commit(&record);
  } catch (const BrenvaleError&) {
    PrintRecordErrors(std::cerr, kind, record, c, what);
    throw;
  }
  if (record.ObjectState() == zqObjectStateClean) return true;
  PrintRecordErrors(std::cerr, kind, record, c, what);
  return false;
}

int RunAdd(const GlobalOptions& g, const AddOptions& o) {
  const Kind& kind = RequireKind(o.kind);
  const RecordDecl& schema = kind.decl();
  if (!kind.addNew && !kind.members.empty())
    throw UsageError(kind.name + " holds records of several kinds; add one of them: " + kind.members);
  if (!kind.addNew) throw UsageError(kind.name + " records cannot be added: QuickBooks only reads them");
  const std::vector<FieldId> columns = TableColumns(schema, o.fields);
  const auto values = ParseAssignments(kind, Form::Add, o.assignments);
  const CustomValues custom = ParseCustomFields(kind, o.owner, o.customFields);
  OpenCompany(g);
  UseOwner(o.owner);
  ListCollectionBase& c = kind.master();
  ListRecord& record = kind.addNew();
  Assign(record, values);
  SetCustomFields(record, o.owner, custom);
  if (!CommitRecord(kind, c, record, "added")) return kExitLibrary;
  PrintRecords(std::cout, g.OutputFormat(), schema, {&record}, columns);
  return kExitOk;
}

// --- modify --------------------------------------------------------------------------------

struct ModifyOptions {
  std::string kind;
  std::string listId;
  std::vector<std::string> assignments;
  std::vector<std::string> fields;
  std::vector<std::string> customFields;  // --field NAME=VALUE
  std::string owner = "0";
};

int RunModify(const GlobalOptions& g, const ModifyOptions& o) {
  const Kind& kind = RequireKind(o.kind);
  const RecordDecl& schema = kind.decl();
  const std::vector<FieldId> columns = TableColumns(schema, o.fields);
  // A kind QuickBooks cannot modify takes its add fields, so that the library answers with its refusal.
  const auto values = ParseAssignments(kind, schema.mod.empty() ? Form::Add : Form::Mod, o.assignments);
  const CustomValues custom = ParseCustomFields(kind, o.owner, o.customFields);
  if (values.empty() && custom.empty()) throw UsageError("modify needs a FIELD=VALUE or a --field NAME=VALUE");
  OpenCompany(g);
  UseOwner(o.owner);
  ListCollectionBase& c = kind.master();
  ListRecord* record = nullptr;
  {
    Progress progress("reading the " + kind.name);
    record = c.GetByListID(o.listId);
  }
  if (!record)
    throw ToolFailure(kExitLibrary, "there is no " + kind.name + " with ListID '" + o.listId + "'");
  if (!kind.Holds(*record))
    throw ToolFailure(kExitLibrary, "the record with ListID '" + o.listId + "' is a " +
                                        std::string(record->Decl().xmlName) + ", not a " + kind.name);
  Assign(*record, values);
  SetCustomFields(*record, o.owner, custom);
  if (!CommitRecord(kind, c, *record, "changed")) return kExitLibrary;
  PrintRecords(std::cout, g.OutputFormat(), schema, {record}, columns);
  return kExitOk;
}

// --- delete --------------------------------------------------------------------------------

struct DeleteOptions {
  std::string kind;
  std::string listId;
  std::string name;
};

int RunDelete(const GlobalOptions& g, const DeleteOptions& o) {
  const Kind& kind = RequireKind(o.kind);
  if (o.listId.empty() == o.name.empty()) throw UsageError("delete needs either a LISTID or --name FULLNAME");
  OpenCompany(g);
  ListCollectionBase& c = kind.master();
  std::string listId = o.listId;
  if (listId.empty()) {
    ListRecord* found = c.GetByFullName(o.name);
    if (!found) throw ToolFailure(kExitLibrary, "there is no " + kind.name + " named '" + o.name + "'");
    listId = found->ListID();
  }
  try {
    Progress progress("deleting a " + kind.name);
    c.Delete(listId);
  } catch (const BrenvaleError&) {
    // The library's refusal has no words of its own; QuickBooks' reason is in the collection's errors.
    for (const zkError& e : c.Errors())
      std::cerr << "brenvale: " << kind.name << " " << listId << " was not deleted: " << e.Description() << "\n";
    throw;
  }
  switch (g.OutputFormat()) {
    case Format::Json:
      std::cout << "{\"deleted\": true, \"kind\": " << JsonString(kind.name)
                << ", \"ListID\": " << JsonString(listId) << "}\n";
      break;
    case Format::Xml: {
      xmlBldr b;
      b.Clear();
      b.OpenAggregateOnly("ListDelRet");
      b.CreateElement("ListDelType", kind.decl().xmlName);
      b.CreateElement("ListID", listId);
      b.EndAggregate("ListDelRet");
      std::cout << IndentXml(b.GetXML());
      break;
    }
    case Format::Table: std::cout << "deleted " << kind.name << " " << listId << "\n"; break;
  }
  return kExitOk;
}

// --- request -------------------------------------------------------------------------------

std::string ReadRequest(const std::string& file) {
  std::string text;
  if (file == "-") {
    text.assign(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
  } else {
    std::ifstream in(file, std::ios::binary);
    if (!in) throw FileError("cannot read request file '" + file + "': no such file or not readable");
    text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  if (text.find_first_not_of(" \t\r\n") == std::string::npos)
    throw FileError("the request " +
                    (file == "-" ? std::string("on standard input") : "file '" + file + "'") + " is empty");
  return text;
}

// Reports the responses of the document whose severity is Error (the first ten, then how many
// more); true when there was none.
bool ReportFailedResponses(const DomDocument& doc) {
  constexpr int kShown = 10;
  int failed = 0;
  for (ResponseView::Response rs : ResponseView(doc)) {
    if (rs.Severity() != "Error") continue;
    if (++failed > kShown) continue;
    std::cerr << "brenvale: " << rs.Name();
    if (auto id = rs.RequestID()) std::cerr << " (requestID " << *id << ")";
    std::cerr << ": status " << rs.Node().Attribute("statusCode").value_or("?") << ": " << rs.StatusMessage() << "\n";
  }
  if (failed > kShown)
    std::cerr << "brenvale: ... and " << failed - kShown << " more responses with severity Error\n";
  return failed == 0;
}

int RunRequest(const GlobalOptions& g, const std::string& file) {
  const std::string request = ReadRequest(file);
  OpenCompany(g);
  xmlBldr b;
  b.Clear();
  b.InsertRawXML(request);
  DomDocument doc;
  {
    Progress progress("waiting for the response");
    doc = b.SendToQB();
  }
  if (doc.Empty()) {
    throw ToolFailure(kExitLibrary, "the response is not well-formed XML" +
                                        (doc.ParseError().empty() ? std::string() : ": " + doc.ParseError()));
  }
  std::cout << IndentXml(doc.Root().Xml());
  return ReportFailedResponses(doc) ? kExitOk : kExitLibrary;
}

// `--field NAME=VALUE` (repeated) and `--owner ID` of add and modify.
void AddCustomFieldOptions(CLI::App* command, std::vector<std::string>& fields, std::string& owner) {
  command->add_option("--field", fields, "A custom field's value (the field defined for the kind)")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  command->add_option("--owner", owner, "The custom fields' owner: 0, QuickBooks' own (the default), or an "
                                        "application's GUID")
      ->type_name("ID");
}

}  // namespace

void AddCommands(CLI::App& app, const GlobalOptions& g, Runner& run) {
  // demo
  CLI::App* demo =
      app.add_subcommand("demo", "Walk through a host's session on a demo company, step by step");
  demo->footer(kGlobalsNote);
  demo->callback([&g, &run] { run = [&g] { return RunDemo(g); }; });

  // info
  CLI::App* info =
      app.add_subcommand("info", "Show the host facts, the negotiated qbXML version and the company file");
  info->footer(std::string(kGlobalsNote) +
               "\nWith --format xml, prints the host query response as QuickBooks sends it.");
  info->callback([&g, &run] { run = [&g] { return RunInfo(g); }; });

  // kinds
  auto kindName = std::make_shared<std::string>();
  CLI::App* kinds = app.add_subcommand("kinds", "List the record kinds, or the fields of one kind");
  kinds->add_option("KIND", *kindName, "A kind, to show its fields");
  kinds->footer(kGlobalsNote);
  kinds->callback([&g, &run, kindName] { run = [&g, kindName] { return RunKinds(g, *kindName); }; });

  // list
  auto lo = std::make_shared<ListOptions>();
  CLI::App* list = app.add_subcommand("list", "Query the records of a kind");
  list->add_option("KIND", lo->kind, "The kind of record (see 'brenvale kinds')")->required();
  lo->active = list->add_flag("--active", lo->activeOnly,
                              "Active records only (QuickBooks' own default when no filter names a status)");
  lo->starts =
      list->add_option("--name-starts", lo->startsWith, "Full names that start with TEXT")->type_name("TEXT");
  lo->contain =
      list->add_option("--name-contains", lo->contains, "Full names that contain TEXT")->type_name("TEXT");
  lo->ends =
      list->add_option("--name-ends", lo->endsWith, "Full names that end with TEXT")->type_name("TEXT");
  lo->from = list->add_option("--from-name", lo->fromName, "Names from NAME on (with --to-name: a range)")
                 ->type_name("NAME");
  lo->to = list->add_option("--to-name", lo->toName, "Names up to NAME")->type_name("NAME");
  lo->since =
      list->add_option("--modified-since", lo->modifiedSince, "Records modified since DATE (yyyy-mm-dd)")
          ->type_name("DATE");
  list->add_option("--owner", lo->owner, "Show the custom fields of this owner: 0, QuickBooks' own, or an "
                                         "application's GUID")
      ->type_name("ID");
  list->add_option("--max", lo->max, "At most N records")->type_name("N")->check(CLI::PositiveNumber);
  list->add_option("--fields", lo->fields, "Table columns, comma-separated ('all' for every field)")
      ->delimiter(',')
      ->type_name("FIELD,...");
  list->footer(std::string(kGlobalsNote) +
               "\nOne filter per query; --from-name and --to-name together are one (a name range)."
               "\nExample: brenvale list JobType --name-starts Inst --format json");
  list->callback([&g, &run, lo] { run = [&g, lo] { return RunList(g, *lo); }; });

  // add
  auto ao = std::make_shared<AddOptions>();
  CLI::App* add = app.add_subcommand("add", "Add a record: brenvale add KIND Field=Value...");
  add->add_option("KIND", ao->kind, "The kind of record (see 'brenvale kinds')")->required();
  add->add_option("FIELD=VALUE", ao->assignments, "Field values, by qbXML tag (see 'brenvale kinds KIND')")
      ->required();
  add->add_option("--fields", ao->fields, "Table columns of the added record, comma-separated")
      ->delimiter(',')
      ->type_name("FIELD,...");
  AddCustomFieldOptions(add, ao->customFields, ao->owner);
  add->footer(
      std::string(kGlobalsNote) +
      "\nThe record is validated by the library first; failures print each error's number and message."
      "\nExample: brenvale add JobType Name=Retrofit Parent=Installation"
      "\nExample: brenvale add Account Name=Travel AccountType=Expense --owner GUID --field Budget=1200");
  add->callback([&g, &run, ao] { run = [&g, ao] { return RunAdd(g, *ao); }; });

  // modify
  auto mo = std::make_shared<ModifyOptions>();
  CLI::App* modify =
      app.add_subcommand("modify", "Change a record: brenvale modify KIND LISTID Field=Value...");
  modify->add_option("KIND", mo->kind, "The kind of record (see 'brenvale kinds')")->required();
  modify->add_option("LISTID", mo->listId, "The record's ListID")->required();
  modify->add_option("FIELD=VALUE", mo->assignments, "New field values, by qbXML tag");
  AddCustomFieldOptions(modify, mo->customFields, mo->owner);
  modify->add_option("--fields", mo->fields, "Table columns of the changed record, comma-separated")
      ->delimiter(',')
      ->type_name("FIELD,...");
  modify->footer(std::string(kGlobalsNote) +
                 "\nThe record is read, changed and sent with its EditSequence; some kinds cannot be modified"
                 "\nthrough qbXML, and the library says so with its error.");
  modify->callback([&g, &run, mo] { run = [&g, mo] { return RunModify(g, *mo); }; });

  // delete
  auto dopt = std::make_shared<DeleteOptions>();
  CLI::App* del = app.add_subcommand("delete", "Delete a record by its ListID (or --name)");
  del->add_option("KIND", dopt->kind, "The kind of record")->required();
  CLI::Option* id = del->add_option("LISTID", dopt->listId, "The record's ListID");
  CLI::Option* name = del->add_option("--name", dopt->name, "The record's full name instead of its ListID")
                          ->type_name("FULLNAME");
  id->excludes(name);
  del->footer(kGlobalsNote);
  del->callback([&g, &run, dopt] { run = [&g, dopt] { return RunDelete(g, *dopt); }; });

  // request
  auto file = std::make_shared<std::string>();
  CLI::App* req = app.add_subcommand("request", "Send a qbXML request document and print the response");
  req->add_option("FILE", *file, "The request document, or - for standard input")->required();
  req->footer(std::string(kGlobalsNote) +
              "\nThe response document is printed as qbXML whatever --format says; the exit status is 1 when "
              "any response has severity Error.");
  req->callback([&g, &run, file] { run = [&g, file] { return RunRequest(g, *file); }; });

  AddWebConnectorCommand(app, g, run);
}

}  // namespace brenvale::tool
