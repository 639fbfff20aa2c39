// The brenvale tool, run as a subprocess against a company file in a fresh folder: what each
// command prints, where, and with which exit status.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "support/ChildProcess.hpp"

namespace {

namespace fs = std::filesystem;

struct Result {
  int status = -1;
  std::string out;
  std::string err;
};

// Runs the tool with `args` in `dir`, feeding `input` to its standard input.
Result RunTool(const fs::path& dir, const std::vector<std::string>& args, const std::string& input = {}) {
  brenvale::testing::ChildProcess tool(BRENVALE_TOOL_PATH, dir, args, input);
  Result r;
  r.status = tool.Finish();
  r.out = std::move(tool.out);
  r.err = std::move(tool.err);
  return r;
}

std::string Lines(const Result& r) {
  return "exit " + std::to_string(r.status) + "\nstdout:\n" + r.out + "stderr:\n" + r.err;
}

// The value of "key": "value" in a line of JSON output.
std::string JsonText(const std::string& json, const std::string& key, std::size_t from = 0) {
  std::string k = "\"" + key + "\": \"";
  std::size_t at = json.find(k, from);
  if (at == std::string::npos) return {};
  at += k.size();
  return json.substr(at, json.find('"', at) - at);
}

class ToolTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::random_device rd;
    dir_ = fs::temp_directory_path() / ("brenvale-tool-" + std::to_string(rd()) + std::to_string(getpid()));
    fs::create_directories(dir_);
    company_ = (dir_ / "test.qbw").string();
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }

  // The tool on the test's company.
  Result Tool(std::vector<std::string> args, const std::string& input = {}) {
    args.insert(args.begin(), {"--company", company_});
    return RunTool(dir_, args, input);
  }

  std::string AddJobType(const std::string& name, const std::string& parent = {}) {
    std::vector<std::string> args{"--format", "json", "add", "JobType", "Name=" + name};
    if (!parent.empty()) args.push_back("Parent=" + parent);
    Result r = Tool(args);
    EXPECT_EQ(r.status, 0) << Lines(r);
    return JsonText(r.out, "ListID");
  }

  fs::path dir_;
  std::string company_;
};

TEST_F(ToolTest, HelpListsEveryCommandAndEachCommandHasItsOwn) {
  Result top = RunTool(dir_, {"--help"});
  EXPECT_EQ(top.status, 0) << Lines(top);
  for (const char* command : {"demo", "info", "list", "add", "modify", "delete", "request", "kinds",
                              "--company", "--processor", "--trace", "--format"})
    EXPECT_NE(top.out.find(command), std::string::npos) << command;
  for (const char* command : {"demo", "info", "list", "add", "modify", "delete", "request", "kinds"}) {
    Result r = RunTool(dir_, {command, "--help"});
    EXPECT_EQ(r.status, 0) << command;
    EXPECT_NE(r.out.find(command), std::string::npos) << Lines(r);
    EXPECT_EQ(r.err, "");
  }
  Result list = RunTool(dir_, {"list", "--help"});
  for (const char* option : {"--active", "--name-starts", "--name-contains", "--from-name", "--to-name",
                             "--modified-since", "--max"})
    EXPECT_NE(list.out.find(option), std::string::npos) << option;
  EXPECT_FALSE(fs::exists(dir_ / "brenvale-demo.qbw"));
}

TEST_F(ToolTest, BadUsageExitsWithTwoBeforeTouchingTheCompany) {
  struct Case {
    std::vector<std::string> args;
    std::string message;
  };
  const std::vector<Case> cases = {
      {{}, "a command is required; the commands are: demo"},
      {{"frobnicate"}, "unknown command 'frobnicate'; the commands are: demo, info"},
      {{"list"}, "KIND"},
      {{"list", "NoSuchKind"}, "unknown kind 'NoSuchKind'; the kinds are: "},
      {{"add", "Vendorr", "Name=x"}, "unknown kind 'Vendorr'"},
      {{"delete", "NoSuchKind", "80000001-1"}, "unknown kind"},
      {{"--format", "yaml", "info"}, "yaml"},
      {{"list", "JobType", "--active", "--name-starts", "A"},
       "--active and --name-starts cannot be combined"},
      {{"list", "JobType", "--to-name", "B", "--modified-since", "2020-01-01"}, "cannot be combined"},
      {{"list", "JobType", "--max", "0"}, "--max"},
      {{"list", "JobType", "--modified-since", "yesterday"}, "--modified-since expects a date"},
      {{"list", "JobType", "--fields", "Name,Colour"},
       "unknown field 'Colour' for JobType; its fields are: ListID"},
      {{"add", "JobType"}, "FIELD=VALUE"},
      {{"add", "JobType", "Name"}, "expected Field=Value, got 'Name'"},
      {{"add", "JobType", "Nmae=Install"},
       "JobType has no field 'Nmae' to set; its fields are: Name, IsActive, ParentRef"},
      {{"add", "JobType", "Name=A", "name=B"}, "field Name is given twice"},
      {{"add", "JobType", "Name=A", "IsActive=maybe"}, "field IsActive expects true or false, got 'maybe'"},
      {{"delete", "JobType"}, "delete needs either a LISTID or --name"},
      {{"--processor", "No.Such.Processor", "info"},
       "unknown request processor 'No.Such.Processor'; registered: "},
      {{"kinds", "Nope"}, "unknown kind 'Nope'"},
  };
  for (const Case& c : cases) {
    Result r = Tool(c.args);
    EXPECT_EQ(r.status, 2) << Lines(r);
    EXPECT_NE(r.err.find(c.message), std::string::npos) << Lines(r);
    EXPECT_EQ(r.err.rfind("brenvale: ", 0), 0u) << Lines(r);
    EXPECT_EQ(r.out, "") << Lines(r);
    EXPECT_FALSE(fs::exists(company_)) << "the company was opened for: " << Lines(r);
  }
}

TEST_F(ToolTest, FileProblemsExitWithThree) {
  const std::string missing = (dir_ / "no" / "such" / "folder" / "c.qbw").string();
  Result info = RunTool(dir_, {"--company", missing, "info"});
  EXPECT_EQ(info.status, 3) << Lines(info);
  EXPECT_NE(info.err.find("directory '" + (dir_ / "no" / "such" / "folder").string() + "' does not exist"),
            std::string::npos)
      << Lines(info);
  EXPECT_FALSE(fs::exists(dir_ / "no"));

  Result dirAsCompany = RunTool(dir_, {"--company", dir_.string(), "list", "JobType"});
  EXPECT_EQ(dirAsCompany.status, 3) << Lines(dirAsCompany);

  Result trace = Tool({"--trace", (dir_ / "missing" / "t.log").string(), "info"});
  EXPECT_EQ(trace.status, 3) << Lines(trace);

  Result request = Tool({"request", (dir_ / "absent.xml").string()});
  EXPECT_EQ(request.status, 3) << Lines(request);
  EXPECT_NE(request.err.find("absent.xml"), std::string::npos) << Lines(request);

  Result empty = Tool({"request", "-"}, "  \n");
  EXPECT_EQ(empty.status, 3) << Lines(empty);
  EXPECT_NE(empty.err.find("empty"), std::string::npos) << Lines(empty);

  // A file that is not a company.
  std::ofstream(dir_ / "junk.qbw") << "this is not a company file";
  Result junk = RunTool(dir_, {"--company", (dir_ / "junk.qbw").string(), "info"});
  EXPECT_EQ(junk.status, 3) << Lines(junk);
  // QuickBooks' own number, not one of the library's codes that happens to share it (1027).
  EXPECT_NE(junk.err.find("brenvale: error 0x80040403: "), std::string::npos) << Lines(junk);
  EXPECT_EQ(junk.err.find("1027"), std::string::npos) << Lines(junk);
  EXPECT_NE(junk.err.find("could not open the company file"), std::string::npos) << Lines(junk);
}

TEST_F(ToolTest, InfoShowsHostFactsVersionAndCompanyInEachFormat) {
  Result table = Tool({"info"});
  ASSERT_EQ(table.status, 0) << Lines(table);
  EXPECT_NE(table.out.find("qbXML version"), std::string::npos) << table.out;
  EXPECT_NE(table.out.find("13.0"), std::string::npos) << table.out;
  EXPECT_NE(table.out.find(company_), std::string::npos) << table.out;
  EXPECT_NE(table.out.find("BrenvaleRqP.RequestProcessor"), std::string::npos) << table.out;
  EXPECT_EQ(table.err, "");
  EXPECT_TRUE(fs::exists(company_));

  Result json = Tool({"info", "--format", "json"});
  ASSERT_EQ(json.status, 0) << Lines(json);
  EXPECT_EQ(JsonText(json.out, "qbxmlVersion"), "13.0") << json.out;
  EXPECT_EQ(JsonText(json.out, "companyFile"), company_) << json.out;
  EXPECT_NE(json.out.find("\"majorVersion\": "), std::string::npos) << json.out;

  Result xml = Tool({"--format", "xml", "info"});
  ASSERT_EQ(xml.status, 0) << Lines(xml);
  EXPECT_NE(xml.out.find("<HostRet>"), std::string::npos) << xml.out;
  EXPECT_NE(xml.out.find("<SupportedQBXMLVersion>13.0</SupportedQBXMLVersion>"), std::string::npos)
      << xml.out;
}

TEST_F(ToolTest, AddListAndDeleteJobTypes) {
  const std::string parentId = AddJobType("Installation");
  const std::string childId = AddJobType("Residential", "Installation");
  const std::string quoted = AddJobType("Say \"hi\" \\ there");
  ASSERT_FALSE(parentId.empty());
  ASSERT_FALSE(childId.empty());

  // The table: a header and one aligned row per record.
  Result table = Tool({"list", "JobType"});
  ASSERT_EQ(table.status, 0) << Lines(table);
  std::istringstream lines(table.out);
  std::vector<std::string> rows;
  for (std::string l; std::getline(lines, l);) rows.push_back(l);
  ASSERT_EQ(rows.size(), 4u) << table.out;
  const std::size_t column = rows[0].find("FullName");
  ASSERT_NE(column, std::string::npos) << table.out;
  EXPECT_EQ(rows[0].rfind("ListID", 0), 0u) << table.out;
  bool childSeen = false;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    EXPECT_NE(rows[i].find_first_not_of(' ', column), std::string::npos);
    EXPECT_EQ(rows[i][column - 1], ' ') << "row " << i << " is not aligned:\n" << table.out;
    EXPECT_NE(rows[i][column], ' ') << "row " << i << " is not aligned:\n" << table.out;
    if (rows[i].find("Installation:Residential") == column) childSeen = true;
  }
  EXPECT_TRUE(childSeen) << table.out;

  // JSON: every field, typed; text escaped.
  Result json = Tool({"list", "JobType", "--format", "json"});
  ASSERT_EQ(json.status, 0) << Lines(json);
  EXPECT_NE(json.out.find("\"FullName\": \"Installation:Residential\""), std::string::npos) << json.out;
  EXPECT_NE(json.out.find("\"Sublevel\": 1"), std::string::npos) << json.out;
  EXPECT_NE(json.out.find("\"IsActive\": true"), std::string::npos) << json.out;
  EXPECT_NE(
      json.out.find("\"ParentRef\": {\"ListID\": \"" + parentId + "\", \"FullName\": \"Installation\"}"),
      std::string::npos)
      << json.out;
  EXPECT_NE(json.out.find(R"("Name": "Say \"hi\" \\ there")"), std::string::npos) << json.out;

  // qbXML: the records in response form.
  Result xml = Tool({"list", "JobType", "--format", "xml", "--name-ends", "dential"});
  ASSERT_EQ(xml.status, 0) << Lines(xml);
  EXPECT_NE(xml.out.find("<JobTypeQueryRs"), std::string::npos) << xml.out;
  EXPECT_NE(xml.out.find("      <JobTypeRet>\n        <ListID>" + childId + "</ListID>"), std::string::npos)
      << xml.out;
  EXPECT_EQ(xml.out.find("<Name>Installation</Name>"), std::string::npos) << xml.out;

  // Chosen columns.
  Result columns = Tool({"list", "JobType", "--fields", "name,Sublevel", "--name-contains", "esident"});
  ASSERT_EQ(columns.status, 0) << Lines(columns);
  EXPECT_EQ(columns.out, "Name         Sublevel\nResidential  1\n");

  // Delete by ListID, then by name; deleting again is QuickBooks' refusal.
  Result del = Tool({"delete", "JobType", childId});
  EXPECT_EQ(del.status, 0) << Lines(del);
  EXPECT_EQ(del.out, "deleted JobType " + childId + "\n");
  Result byName = Tool({"delete", "JobType", "--name", "Say \"hi\" \\ there", "--format", "json"});
  EXPECT_EQ(byName.status, 0) << Lines(byName);
  EXPECT_EQ(JsonText(byName.out, "ListID"), quoted);
  Result again = Tool({"delete", "JobType", childId});
  EXPECT_EQ(again.status, 1) << Lines(again);
  EXPECT_NE(again.err.find("brenvale: error 1026 (0x80040402): "), std::string::npos) << Lines(again);
  Result noName = Tool({"delete", "JobType", "--name", "Nobody"});
  EXPECT_EQ(noName.status, 1) << Lines(noName);

  Result after = Tool({"list", "JobTypes", "--format", "json"});
  ASSERT_EQ(after.status, 0) << Lines(after);
  EXPECT_EQ(after.out.find("Residential"), std::string::npos) << after.out;
  EXPECT_NE(after.out.find("\"Name\": \"Installation\""), std::string::npos) << after.out;
}

TEST_F(ToolTest, ListFiltersChooseTheQuery) {
  for (const char* name : {"Alpha", "Bravo", "Charlie", "Delta"}) AddJobType(name);
  ASSERT_EQ(Tool({"add", "JobType", "Name=Echo", "IsActive=false"}).status, 0);

  struct Case {
    std::vector<std::string> filter;
    std::vector<std::string> expected;
  };
  const std::vector<Case> cases = {
      // QuickBooks answers a query with the active records unless it names another status.
      {{}, {"Alpha", "Bravo", "Charlie", "Delta"}},
      {{"--active"}, {"Alpha", "Bravo", "Charlie", "Delta"}},
      {{"--name-starts", "Ch"}, {"Charlie"}},
      {{"--name-contains", "lt"}, {"Delta"}},
      {{"--name-ends", "vo"}, {"Bravo"}},
      {{"--from-name", "Bravo", "--to-name", "Delta"}, {"Bravo", "Charlie", "Delta"}},
      {{"--from-name", "Charlie"}, {"Charlie", "Delta"}},
      {{"--to-name", "Bravo"}, {"Alpha", "Bravo"}},
      {{"--max", "2"}, {"Alpha", "Bravo"}},
      {{"--modified-since", "2000-01-01"}, {"Alpha", "Bravo", "Charlie", "Delta"}},
      {{"--modified-since", "2999-01-01"}, {}},
  };
  for (const Case& c : cases) {
    std::vector<std::string> args{"list", "JobType", "--fields", "Name"};
    args.insert(args.end(), c.filter.begin(), c.filter.end());
    Result r = Tool(args);
    ASSERT_EQ(r.status, 0) << Lines(r);
    std::string expected = "Name\n";
    for (const std::string& n : c.expected) expected += n + "\n";
    EXPECT_EQ(r.out, expected) << (c.filter.empty() ? std::string("(no filter)") : c.filter[0]);
  }
}

TEST_F(ToolTest, ValidationAndQuickBooksFailuresComeBackAsTheLibrarysErrors) {
  const std::string name32(32, 'x');
  Result tooLong = Tool({"add", "JobType", "Name=" + name32});
  EXPECT_EQ(tooLong.status, 1) << Lines(tooLong);
  EXPECT_EQ(tooLong.out, "");
  EXPECT_NE(tooLong.err.find("error 1013 (0x800403F5) in Name: Name cannot exceed 31 characters"),
            std::string::npos)
      << Lines(tooLong);
  EXPECT_NE(tooLong.err.find("brenvale: error 1023 (0x800403FF): Error(s) occurred during commit."),
            std::string::npos)
      << Lines(tooLong);
  // 31 characters pass.
  EXPECT_EQ(Tool({"add", "JobType", "Name=" + name32.substr(1)}).status, 0);

  Result empty = Tool({"add", "JobType", "Name="});
  EXPECT_EQ(empty.status, 1) << Lines(empty);
  EXPECT_NE(empty.err.find("error 1012 (0x800403F4) in Name: Name cannot be null"), std::string::npos)
      << Lines(empty);

  Result orphan = Tool({"add", "JobType", "Name=Child", "Parent=Nobody"});
  EXPECT_EQ(orphan.status, 1) << Lines(orphan);
  EXPECT_NE(orphan.err.find("error 1010 (0x800403F2)"), std::string::npos) << Lines(orphan);

  AddJobType("Twice");
  Result duplicate = Tool({"add", "JobType", "Name=Twice"});
  EXPECT_EQ(duplicate.status, 1) << Lines(duplicate);
  EXPECT_NE(duplicate.err.find("error 1017 (0x800403F9) in Name: Name specified already exists on file"),
            std::string::npos)
      << Lines(duplicate);

  Result list = Tool({"list", "JobType", "--fields", "Name"});
  EXPECT_EQ(list.out, "Name\nTwice\n" + name32.substr(1) + "\n") << Lines(list);
}

TEST_F(ToolTest, EveryKindAddsThroughItsOwnRecordAndRules) {
  struct Case {
    std::vector<std::string> fields;
    int status;
    std::string expected;  // in stdout on success, in stderr on failure
  };
  const std::vector<std::pair<std::string, Case>> cases = {
      {"ShipMethod", {{"Name=Courier"}, 0, "Courier"}},
      {"Class", {{"Name=West"}, 0, "West"}},
      {"VendorType", {{"Name=Supplies", "IsActive=false"}, 0, "false"}},
      {"ToDo", {{"Notes=Ring back", "ReminderDate=2026-12-01"}, 0, "2026-12-01"}},
      {"SalesTaxCode", {{"Name=Out", "Desc=Out of state", "IsTaxable=true"}, 0, "Out of state"}},
      {"CustomerMessage", {{"Name=" + std::string(102, 'm')}, 1, "error 2400 (0x80040960) in Name"}},
      {"SalesTaxCode", {{"Name=ABCD"}, 1, "error 1400 (0x80040578) in Name"}},
      {"ToDo", {{"IsDone=true"}, 1, "error 2500 (0x800409C4)"}},
      {"CustomerType", {{"Name=" + std::string(32, 'c')}, 1, "error 1013 (0x800403F5) in Name"}},
      {"PaymentMethod",
       {{"Parent=Cash"}, 2, "PaymentMethod has no field 'Parent' to set; its fields are: Name, IsActive"}},
      {"Template", {{"Name=Mine"}, 2, "Template records cannot be added"}},
      {"ToDo", {{"ReminderDate=soon"}, 2, "field ReminderDate expects a date (yyyy-mm-dd), got 'soon'"}},
      {"PayrollItemWage",
       {{"Name=Night", "WageType=Bogus"}, 1, "field WageType cannot take 'Bogus'; it takes one of: "}},
  };
  for (const auto& [kind, c] : cases) {
    std::vector<std::string> args{"add", kind};
    args.insert(args.end(), c.fields.begin(), c.fields.end());
    Result r = Tool(args);
    EXPECT_EQ(r.status, c.status) << kind << "\n" << Lines(r);
    EXPECT_NE((c.status == 0 ? r.out : r.err).find(c.expected), std::string::npos) << kind << "\n"
                                                                                   << Lines(r);
  }
}

TEST_F(ToolTest, ModifySendsTheChangeOrTheLibrarysRefusal) {
  Result todo = Tool({"--format", "json", "add", "ToDo", "Notes=Ring back"});
  ASSERT_EQ(todo.status, 0) << Lines(todo);
  const std::string id = JsonText(todo.out, "ListID");
  const std::string sequence = JsonText(todo.out, "EditSequence");

  Result changed = Tool(
      {"modify", "ToDo", id, "Notes=Ring back on Monday", "ReminderDate=2026-12-24", "--format", "json"});
  ASSERT_EQ(changed.status, 0) << Lines(changed);
  EXPECT_EQ(JsonText(changed.out, "Notes"), "Ring back on Monday") << changed.out;
  EXPECT_EQ(JsonText(changed.out, "ReminderDate"), "2026-12-24") << changed.out;
  EXPECT_NE(JsonText(changed.out, "EditSequence"), sequence) << changed.out;
  Result listed = Tool({"list", "ToDo", "--fields", "Notes"});
  EXPECT_EQ(listed.out, "Notes\nRing back on Monday\n") << Lines(listed);

  Result emptied = Tool({"modify", "ToDo", id, "Notes="});
  EXPECT_EQ(emptied.status, 1) << Lines(emptied);
  EXPECT_NE(emptied.err.find("error 2500 (0x800409C4) in Notes: Notes cannot be null"), std::string::npos)
      << Lines(emptied);

  const std::string jobType = AddJobType("Fixed");
  Result refused = Tool({"modify", "JobType", jobType, "IsActive=false"});
  EXPECT_EQ(refused.status, 1) << Lines(refused);
  EXPECT_NE(refused.err.find("brenvale: error 1003 (0x800403EB): XMLModify not allowed [Brenvale: JobType]"),
            std::string::npos)
      << Lines(refused);

  Result missing = Tool({"modify", "ToDo", "80000999-1", "IsDone=true"});
  EXPECT_EQ(missing.status, 1) << Lines(missing);
  EXPECT_NE(missing.err.find("brenvale: error "), std::string::npos) << Lines(missing);
}

// Every kind lists in every format; the one kind a US company has no list of (tax codes) is refused
// by the library with its own error, before anything is sent.
TEST_F(ToolTest, EveryKindListsInEveryFormat) {
  Result kinds = Tool({"kinds", "--format", "json"});
  ASSERT_EQ(kinds.status, 0) << Lines(kinds);
  int listed = 0;
  for (std::size_t at = kinds.out.find("\"kind\": "); at != std::string::npos;
       at = kinds.out.find("\"kind\": ", at + 1)) {
    const std::string kind = JsonText(kinds.out, "kind", at);
    for (const char* format : {"table", "json", "xml"}) {
      Result r = Tool({"list", kind, "--format", format});
      if (kind == "TaxCode") {
        EXPECT_EQ(r.status, 1) << format << "\n" << Lines(r);
        EXPECT_EQ(r.out, "") << format;
        EXPECT_EQ(r.err.rfind("brenvale: error 1005 (0x800403ED): ", 0), 0u) << format << "\n" << Lines(r);
        continue;
      }
      EXPECT_EQ(r.status, 0) << kind << " " << format << "\n" << Lines(r);
      EXPECT_EQ(r.err, "") << kind << " " << format;
      EXPECT_FALSE(r.out.empty()) << kind << " " << format;
    }
    ++listed;
  }
  EXPECT_EQ(listed, 38) << kinds.out;  // the item list and its twelve kinds among them
}

TEST_F(ToolTest, RequestSendsADocumentAndReportsFailedResponses) {
  AddJobType("Installation");
  const std::string query =
      "<?xml version=\"1.0\" ?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"continueOnError\">"
      "<JobTypeQueryRq requestID=\"7\"><FullName>Installation</FullName></JobTypeQueryRq>"
      "</QBXMLMsgsRq></QBXML>";
  std::ofstream(dir_ / "query.xml") << query;
  Result fromFile = Tool({"request", (dir_ / "query.xml").string()});
  ASSERT_EQ(fromFile.status, 0) << Lines(fromFile);
  EXPECT_NE(fromFile.out.find("<JobTypeQueryRs requestID=\"7\" statusCode=\"0\""), std::string::npos)
      << fromFile.out;
  EXPECT_NE(fromFile.out.find("      <Name>Installation</Name>\n"), std::string::npos) << fromFile.out;

  Result fromStdin = Tool({"request", "-"}, query);
  EXPECT_EQ(fromStdin.status, 0) << Lines(fromStdin);
  EXPECT_EQ(fromStdin.out, fromFile.out);

  const std::string failing =
      "<?xml version=\"1.0\" ?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"continueOnError\">"
      "<JobTypeAddRq requestID=\"1\"><JobTypeAdd><Name>Installation</Name></JobTypeAdd></JobTypeAddRq>"
      "<JobTypeQueryRq requestID=\"2\"/></QBXMLMsgsRq></QBXML>";
  Result failed = Tool({"request", "-"}, failing);
  EXPECT_EQ(failed.status, 1) << Lines(failed);
  EXPECT_NE(failed.out.find("<JobTypeQueryRs requestID=\"2\""), std::string::npos) << failed.out;
  EXPECT_NE(failed.err.find("JobTypeAddRs (requestID 1): status 3100: "), std::string::npos) << Lines(failed);

  // A long run of failures is summed up after the first ten.
  std::string many =
      "<?xml version=\"1.0\" ?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"continueOnError\">";
  for (int i = 0; i < 12; ++i)
    many += "<JobTypeAddRq requestID=\"" + std::to_string(i) +
            "\"><JobTypeAdd><Name></Name></JobTypeAdd></JobTypeAddRq>";
  many += "</QBXMLMsgsRq></QBXML>";
  Result manyFailed = Tool({"request", "-"}, many);
  EXPECT_EQ(manyFailed.status, 1) << Lines(manyFailed);
  EXPECT_NE(manyFailed.err.find("(requestID 9)"), std::string::npos) << Lines(manyFailed);
  EXPECT_EQ(manyFailed.err.find("(requestID 10)"), std::string::npos) << Lines(manyFailed);
  EXPECT_NE(manyFailed.err.find("brenvale: ... and 2 more responses with severity Error\n"),
            std::string::npos)
      << Lines(manyFailed);

  // A document the engine refuses whole: its reason first, the library's error beside it.
  Result garbage = Tool({"request", "-"}, "this is not qbXML");
  EXPECT_EQ(garbage.status, 1) << Lines(garbage);
  EXPECT_EQ(garbage.err.rfind("brenvale: the request processor refused the request (0x80040400): QuickBooks found "
                              "an error when parsing the provided XML text stream.", 0),
            0u)
      << Lines(garbage);
  EXPECT_NE(garbage.err.find("\nbrenvale: the library reports it as error 1999 (0x800407CF): Microsoft XML 4.0 "
                             "parser not installed. [Brenvale]\n"),
            std::string::npos)
      << Lines(garbage);
}

TEST_F(ToolTest, TraceRecordsEveryRequestAndResponse) {
  const fs::path trace = dir_ / "trace.log";
  Result r = Tool({"--trace", trace.string(), "add", "JobType", "Name=Traced"});
  ASSERT_EQ(r.status, 0) << Lines(r);
  std::ifstream in(trace);
  std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_NE(text.find("<HostQueryRq"), std::string::npos) << text;
  EXPECT_NE(text.find("<JobTypeAddRq"), std::string::npos) << text;
  EXPECT_NE(text.find("<RETURNS>"), std::string::npos) << text;
}

TEST_F(ToolTest, KindsListsTheKindsAndTheirFields) {
  Result kinds = Tool({"kinds"});
  ASSERT_EQ(kinds.status, 0) << Lines(kinds);
  EXPECT_NE(kinds.out.find("JobType"), std::string::npos) << kinds.out;
  Result fields = Tool({"kinds", "jobtypes", "--format", "json"});
  ASSERT_EQ(fields.status, 0) << Lines(fields);
  EXPECT_NE(fields.out.find("{\"field\": \"ParentRef\", \"type\": \"reference (full name)\", \"add\": true}"),
            std::string::npos)
      << fields.out;
  EXPECT_NE(fields.out.find("{\"field\": \"ListID\", \"type\": \"text\", \"add\": false}"), std::string::npos)
      << fields.out;
  EXPECT_FALSE(fs::exists(company_));
}

// Accounts, the two kinds of terms in their one collection, and price levels: added, listed and
// changed through the tool, with the library's rules and refusals.
TEST_F(ToolTest, AccountsTermsAndPriceLevelsAddListAndModify) {
  Result checking = Tool({"--format", "json", "add", "Account", "Name=Checking", "AccountType=Bank",
                          "OpenBalance=1000", "OpenBalanceDate=2024-01-01"});
  ASSERT_EQ(checking.status, 0) << Lines(checking);
  const std::string checkingId = JsonText(checking.out, "ListID");
  ASSERT_EQ(Tool({"add", "Account", "Name=Petty", "Parent=Checking", "AccountType=Bank", "OpenBalance=50"}).status, 0);

  struct Case {
    std::vector<std::string> args;
    int status;
    std::string expected;  // in stderr
  };
  const std::vector<Case> refused = {
      {{"add", "Account", "Name=Travel", "Parent=Checking", "AccountType=Expense"}, 1,
       "error 1303 (0x80040517) in Parent: Parent account type must be the same as childs"},
      {{"add", "Account", "Name=Misc", "AccountType=Bogus"}, 1, "field AccountType cannot take 'Bogus'"},
      {{"add", "Account", "Name=Misc", "AccountType=Bank", "AccountNumber=12345678"}, 1, "error 1300 (0x80040514) in Number"},
      {{"modify", "Account", checkingId, "OpenBalance=5"}, 2,
       "Account has no field 'OpenBalance' to set; its fields are: Name, IsActive, ParentRef, AccountType, "
       "AccountNumber, BankNumber, Desc, SalesTaxCodeRef"},
      {{"add", "DateDrivenTerms", "Name=Late", "DayOfMonthDue=40"}, 1, "error 1900 (0x8004076C) in DayOfMonthDue"},
      {{"add", "Terms", "Name=Either"}, 2, "Terms holds records of several kinds; add one of them: StandardTerms, "
                                           "DateDrivenTerms"},
  };
  for (const Case& c : refused) {
    Result r = Tool(c.args);
    EXPECT_EQ(r.status, c.status) << Lines(r);
    EXPECT_NE(r.err.find(c.expected), std::string::npos) << Lines(r);
  }

  Result accounts = Tool({"list", "Account", "--fields", "FullName,Balance", "--name-starts", "Checking"});
  ASSERT_EQ(accounts.status, 0) << Lines(accounts);
  EXPECT_EQ(accounts.out, "FullName        Balance\nChecking        1000.00\nChecking:Petty  50.00\n");
  Result described = Tool({"--format", "json", "modify", "Account", checkingId, "Desc=Main account"});
  ASSERT_EQ(described.status, 0) << Lines(described);
  EXPECT_EQ(JsonText(described.out, "Desc"), "Main account") << described.out;

  // Terms: each kind added as itself; the collection lists both, each kind its own.
  Result net = Tool({"--format", "json", "add", "StandardTerms", "Name=Net 45", "StdDueDays=45"});
  ASSERT_EQ(net.status, 0) << Lines(net);
  Result tenth = Tool({"--format", "json", "add", "DateDrivenTerms", "Name=10th", "DayOfMonthDue=10"});
  ASSERT_EQ(tenth.status, 0) << Lines(tenth);
  Result all = Tool({"list", "Terms", "--fields", "Name", "--name-contains", "t"});
  EXPECT_NE(all.out.find("\n10th\n"), std::string::npos) << Lines(all);
  EXPECT_NE(all.out.find("\nNet 45\n"), std::string::npos) << Lines(all);
  Result standard = Tool({"list", "StandardTerms", "--fields", "Name,StdDueDays", "--name-contains", "45"});
  EXPECT_EQ(standard.out, "Name    StdDueDays\nNet 45  45\n") << Lines(standard);
  Result dateDriven = Tool({"list", "DateDrivenTerms", "--format", "xml"});
  EXPECT_NE(dateDriven.out.find("<DateDrivenTermsRet>"), std::string::npos) << Lines(dateDriven);
  EXPECT_EQ(dateDriven.out.find("<StandardTermsRet>"), std::string::npos) << Lines(dateDriven);
  Result notModified = Tool({"modify", "StandardTerms", JsonText(net.out, "ListID"), "IsActive=false"});
  EXPECT_EQ(notModified.status, 1) << Lines(notModified);
  EXPECT_NE(notModified.err.find("error 1003 (0x800403EB): XMLModify not supported [Brenvale: StandardTerms]"),
            std::string::npos)
      << Lines(notModified);
  Result otherKind = Tool({"modify", "StandardTerms", JsonText(tenth.out, "ListID"), "Name=Tenth"});
  EXPECT_EQ(otherKind.status, 1) << Lines(otherKind);
  EXPECT_NE(otherKind.err.find("is a DateDrivenTerms, not a StandardTerms"), std::string::npos) << Lines(otherKind);

  // A price level of a fixed percentage, changed.
  Result staff = Tool({"--format", "json", "add", "PriceLevel", "Name=Staff", "PriceLevelFixedPercentage=-10"});
  ASSERT_EQ(staff.status, 0) << Lines(staff);
  EXPECT_EQ(JsonText(staff.out, "PriceLevelType"), "FixedPercentage") << staff.out;
  Result deeper = Tool({"--format", "json", "modify", "PriceLevel", JsonText(staff.out, "ListID"),
                        "PriceLevelFixedPercentage=-15.5"});
  ASSERT_EQ(deeper.status, 0) << Lines(deeper);
  EXPECT_NE(deeper.out.find("\"PriceLevelFixedPercentage\": -15.5"), std::string::npos) << deeper.out;
}

// Every item kind is added as itself; the item list shows them all, each kind only its own, and a
// change goes to the kind the record is.
TEST_F(ToolTest, EveryItemKindAddsListsAndModifies) {
  struct Case {
    std::vector<std::string> args;
    std::string field, value;  // what the added record shows in JSON
  };
  const std::vector<Case> kinds = {
      {{"ItemService", "Name=Labor", "SalesTaxCodeRef=Non"}, "Name", "Labor"},
      {{"ItemNonInventory", "Name=Gloves", "ManufacturerPartNumber=GL-9"}, "ManufacturerPartNumber", "GL-9"},
      {{"ItemOtherCharge", "Name=Delivery"}, "Name", "Delivery"},
      {{"ItemInventory", "Name=Bolt", "SalesDesc=Steel bolt"}, "SalesDesc", "Steel bolt"},
      {{"ItemInventoryAssembly", "Name=Bolt kit", "SalesDesc=Twelve bolts"}, "SalesDesc", "Twelve bolts"},
      {{"ItemFixedAsset", "Name=Truck", "PurchaseDesc=F150", "PurchaseDate=2024-02-01"}, "AcquiredAs", "New"},
      {{"ItemSubtotal", "Name=Subtotal", "ItemDesc=Sum above"}, "ItemDesc", "Sum above"},
      {{"ItemDiscount", "Name=Promo", "ItemDesc=Ten off"}, "ItemDesc", "Ten off"},
      {{"ItemPayment", "Name=Deposit", "ItemDesc=Paid ahead"}, "ItemDesc", "Paid ahead"},
      {{"ItemSalesTax", "Name=State", "ItemDesc=State tax"}, "ItemDesc", "State tax"},
      {{"ItemGroup", "Name=Starter", "ItemDesc=To begin"}, "ItemDesc", "To begin"},
  };
  std::string discountId;
  for (const Case& c : kinds) {
    std::vector<std::string> args = {"--format", "json", "add"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    Result added = Tool(args);
    ASSERT_EQ(added.status, 0) << c.args[0] << "\n" << Lines(added);
    EXPECT_EQ(JsonText(added.out, c.field), c.value) << added.out;
    if (c.args[0] == "ItemDiscount") discountId = JsonText(added.out, "ListID");
  }

  Result all = Tool({"--format", "xml", "list", "Item"});
  ASSERT_EQ(all.status, 0) << Lines(all);
  for (const Case& c : kinds)
    EXPECT_NE(all.out.find("<" + c.args[0] + "Ret>"), std::string::npos) << c.args[0] << "\n" << all.out;
  Result services = Tool({"list", "ItemService", "--fields", "Name"});
  EXPECT_EQ(services.out, "Name\nLabor\n") << Lines(services);
  Result json = Tool({"list", "Item", "--format", "json"});
  EXPECT_NE(json.out.find("\"AcquiredAs\": \"New\""), std::string::npos) << Lines(json);
  // A group's lines, added by a request of its own, are shown as an array.
  const std::string kit =
      "<?xml version=\"1.0\" ?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
      "<ItemGroupAddRq><ItemGroupAdd><Name>Kit</Name><ItemGroupLine><ItemRef><FullName>Labor</FullName></ItemRef>"
      "<Quantity>2</Quantity></ItemGroupLine><ItemGroupLine><ItemRef><FullName>Bolt</FullName></ItemRef>"
      "</ItemGroupLine></ItemGroupAdd></ItemGroupAddRq></QBXMLMsgsRq></QBXML>";
  ASSERT_EQ(Tool({"request", "-"}, kit).status, 0);
  Result groups = Tool({"list", "ItemGroup", "--format", "json", "--name-starts", "Kit"});
  EXPECT_NE(groups.out.find("\"ItemGroupLine\": [{\"ItemRef\": {\"ListID\": "), std::string::npos) << Lines(groups);
  EXPECT_NE(groups.out.find("\"FullName\": \"Bolt\"}}]"), std::string::npos) << Lines(groups);

  Result changed = Tool({"--format", "json", "modify", "ItemDiscount", discountId, "ItemDesc=Fifteen off"});
  ASSERT_EQ(changed.status, 0) << Lines(changed);
  EXPECT_EQ(JsonText(changed.out, "ItemDesc"), "Fifteen off") << changed.out;
  const std::vector<std::pair<std::vector<std::string>, std::string>> refused = {
      {{"add", "Item", "Name=Either"}, "Item holds records of several kinds; add one of them: ItemService, "},
      {{"modify", "ItemService", discountId, "Name=Other"}, "is a ItemDiscount, not a ItemService"},
      {{"add", "ItemFixedAsset", "Name=Van", "PurchaseDesc=Van"},
       "error 1105 (0x80040451) in PurchaseDate: Fixed Assets require a purchase date"},
      {{"add", "ItemSubtotal", "Name=" + std::string(32, 's')}, "Name length cannot exceed 31"},
      // A sales tax group needs a member, which the tool cannot give: QuickBooks refuses it.
      {{"add", "ItemSalesTaxGroup", "Name=Combined"}, "is missing its required element \"ItemSalesTaxRef\""},
  };
  for (const auto& [args, expected] : refused) {
    Result r = Tool(args);
    EXPECT_NE(r.status, 0) << Lines(r);
    EXPECT_NE(r.err.find(expected), std::string::npos) << Lines(r);
  }
}

TEST_F(ToolTest, CustomFieldsAreSetWithTheRecordListedAndChanged) {
  const std::string guid = "{0A1B2C3D-4E5F-4061-8293-A4B5C6D7E8F9}";
  Result defined = Tool({"--format", "json", "add", "DataExtensionDefinition", "OwnerID=" + guid,
                         "DataExtName=Budget", "DataExtType=INTTYPE", "AssignToObject=Account"});
  ASSERT_EQ(defined.status, 0) << Lines(defined);
  EXPECT_EQ(JsonText(defined.out, "OwnerID"), guid) << defined.out;

  Result travel = Tool({"--format", "json", "add", "Account", "Name=Travel", "AccountType=Expense", "--owner", guid,
                        "--field", "Budget=1200"});
  ASSERT_EQ(travel.status, 0) << Lines(travel);
  EXPECT_NE(travel.out.find("\"CustomFields\": {\"Budget\": \"1200\"}"), std::string::npos) << travel.out;
  const std::string travelId = JsonText(travel.out, "ListID");

  // Read back with the account, as a column of its own; without --owner they are not asked for.
  Result listed = Tool({"list", "Account", "--fields", "Name", "--owner", guid, "--name-starts", "Tr"});
  EXPECT_EQ(listed.out, "Name    Budget\nTravel  1200\n") << Lines(listed);
  EXPECT_EQ(Tool({"list", "Account", "--fields", "Name", "--name-starts", "Tr"}).out, "Name\nTravel\n");
  Result asXml = Tool({"list", "Account", "--owner", guid, "--name-starts", "Tr", "--format", "xml"});
  EXPECT_NE(asXml.out.find("<DataExtName>Budget</DataExtName>"), std::string::npos) << Lines(asXml);

  // Changed alone, without a field of the account's.
  Result changed = Tool({"--format", "json", "modify", "Account", travelId, "--owner", guid, "--field", "Budget=1500"});
  ASSERT_EQ(changed.status, 0) << Lines(changed);
  EXPECT_EQ(Tool({"list", "Account", "--fields", "Name", "--owner", guid, "--name-starts", "Tr"}).out,
            "Name    Budget\nTravel  1500\n");

  // QuickBooks' own custom fields, on a customer.
  ASSERT_EQ(Tool({"add", "DataExtensionDefinition", "DataExtName=Region", "AssignToObject=Customer"}).status, 0);
  Result ann = Tool({"add", "Customer", "Name=Ann", "--field", "Region=North"});
  ASSERT_EQ(ann.status, 0) << Lines(ann);
  EXPECT_EQ(Tool({"list", "Customer", "--fields", "Name", "--owner", "0"}).out, "Name  Region\nAnn   North\n");

  struct Case {
    std::vector<std::string> args;
    int status;
    std::string expected;  // in stderr
  };
  const std::vector<Case> refused = {
      {{"add", "JobType", "Name=Install", "--field", "Region=North"}, 2, "JobType records have no custom fields"},
      {{"add", "Account", "Name=Meals", "AccountType=Expense", "--field", "Budget"}, 2,
       "expected --field NAME=VALUE, got 'Budget'"},
      {{"add", "Account", "Name=Meals", "AccountType=Expense", "--owner", "me", "--field", "Budget=1"}, 2,
       "--owner expects 0 or an application's GUID"},
      {{"add", "Account", "Name=Meals", "AccountType=Expense", "--owner", guid, "--field", "Budget=1",
        "--field", "Budget=2"}, 2, "custom field Budget is given twice"},
      {{"modify", "Account", travelId}, 2, "modify needs a FIELD=VALUE or a --field NAME=VALUE"},
      {{"add", "Account", "Name=Meals", "AccountType=Expense", "--owner", guid, "--field", "Mileage=5"}, 1,
       "Specified data extension in not defined for this object type."},
      {{"add", "Account", "Name=Meals", "AccountType=Expense", "--owner", guid, "--field", "Budget=lots"}, 1,
       "Type mismatch"},
      {{"add", "Account", "Name=Meals", "AccountType=Expense", "--field", "Budget=1"}, 1,
       "Specified data extension in not defined for this object type."},
  };
  for (const Case& c : refused) {
    Result r = Tool(c.args);
    EXPECT_EQ(r.status, c.status) << Lines(r);
    EXPECT_NE(r.err.find(c.expected), std::string::npos) << Lines(r);
  }
  // None of the refused accounts was added.
  EXPECT_EQ(Tool({"list", "Account", "--fields", "Name", "--name-starts", "Meals"}).out, "Name\n");
}

TEST_F(ToolTest, DemoRunsOnAFreshCompanyAndAgainOnTheSameOne) {
  Result first = RunTool(dir_, {"demo"});
  ASSERT_EQ(first.status, 0) << Lines(first);
  EXPECT_TRUE(fs::exists(dir_ / "brenvale-demo.qbw"));
  for (const char* expected :
       {"Installation:Residential", "added, ListID", "qbXML version",
        "error 1013 (0x800403F5) in Name: Name cannot exceed 31 characters", "deleted",
        "SumSubAccountBalances(Operating) = 8250.00", "Jones Residence:Retrofit",
        "12 Harbor Road, Boston MA 02110", "Installation:Residential", "ItemService", "Install one roof panel",
        "Jones Residence           North East"})
    EXPECT_NE(first.out.find(expected), std::string::npos) << expected << "\n" << first.out;
  EXPECT_EQ(first.err, "");

  Result second = RunTool(dir_, {"demo"});
  ASSERT_EQ(second.status, 0) << Lines(second);
  EXPECT_NE(second.out.find("already in the company"), std::string::npos) << second.out;
  EXPECT_NE(second.out.find("deleted"), std::string::npos) << second.out;
}

// Every name list adds and modifies with nested fields written as "BillAddress.City=Boston"; the
// JSON shows the nested record, the entity list shows each name with its own kind's fields, and a
// nested part the kind lacks or a group set whole is refused before anything is opened.
TEST_F(ToolTest, NameListsAddAndModifyWithNestedFields) {
  struct Case {
    std::string kind;
    std::vector<std::string> add;
    std::string change;   // a modify of a nested part
    std::string changed;  // what the JSON shows after it
  };
  const std::vector<Case> cases = {
      {"Customer",
       {"Name=Acme", "billaddress.city=Boston", "BillAddress.Addr1=12 Harbor St", "ShipAddress.City=Quincy"},
       "ShipAddress.City=Braintree", R"("ShipAddress": {"City": "Braintree"})"},
      {"Vendor", {"Name=Pioneer", "VendorAddress.City=Salem"}, "VendorAddress.PostalCode=01970",
       R"("VendorAddress": {"City": "Salem", "PostalCode": "01970"})"},
      {"Employee", {"FirstName=Lee", "LastName=Park", "EmployeeAddress.City=Lynn"}, "EmployeeAddress.City=Nahant",
       R"("EmployeeAddress": {"City": "Nahant"})"},
      {"OtherName", {"Name=Town Clerk", "OtherNameAddress.State=MA"}, "OtherNameAddress.State=NH",
       R"("OtherNameAddress": {"State": "NH"})"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.kind);
    std::vector<std::string> args{"--format", "json", "add", c.kind};
    args.insert(args.end(), c.add.begin(), c.add.end());
    Result added = Tool(args);
    ASSERT_EQ(added.status, 0) << Lines(added);
    const std::string id = JsonText(added.out, "ListID");
    Result changed = Tool({"--format", "json", "modify", c.kind, id, c.change});
    ASSERT_EQ(changed.status, 0) << Lines(changed);
    EXPECT_NE(changed.out.find(c.changed), std::string::npos) << changed.out;
  }
  Result customer = Tool({"--format", "json", "list", "Customer"});
  EXPECT_NE(customer.out.find(R"("BillAddress": {"Addr1": "12 Harbor St", "City": "Boston"})"), std::string::npos)
      << customer.out;
  Result entities = Tool({"--format", "json", "list", "Entity"});
  ASSERT_EQ(entities.status, 0) << Lines(entities);
  for (const char* shown : {R"("Name": "Acme")", R"("Name": "Pioneer")", R"("Name": "Lee Park")",
                            R"("Name": "Town Clerk")", R"("NameOnCheck")", R"("EmployeeAddress")"})
    EXPECT_NE(entities.out.find(shown), std::string::npos) << shown << "\n" << entities.out;

  struct Refusal {
    std::vector<std::string> args;
    std::string message;
  };
  for (const Refusal& r : std::vector<Refusal>{
           {{"add", "Customer", "Name=A", "BillAddress.Colour=red"}, "Customer has no field 'BillAddress.Colour'"},
           {{"add", "Customer", "Name=A", "BillAddress=Boston"}, "Customer has no field 'BillAddress'"},
           {{"add", "Customer", "Name=A", "Phone.City=Boston"}, "Customer has no field 'Phone.City'"},
           {{"add", "Customer", "Name=A", "BillAddress.City=X", "billaddress.city=Y"},
            "field BillAddress.City is given twice"},
           {{"add", "Entity", "Name=A"}, "Entity holds records of several kinds; add one of them: "},
       }) {
    Result refused = Tool(r.args);
    EXPECT_EQ(refused.status, 2) << Lines(refused);
    EXPECT_NE(refused.err.find(r.message), std::string::npos) << Lines(refused);
  }
  // An address part over its limit is the library's refusal under the address's label; nothing is sent.
  Result tooLong = Tool({"add", "Vendor", "Name=Far", "VendorAddress.City=" + std::string(32, 'c')});
  EXPECT_EQ(tooLong.status, 1) << Lines(tooLong);
  EXPECT_NE(tooLong.err.find("error 1202"), std::string::npos) << Lines(tooLong);
  EXPECT_NE(tooLong.err.find("in Address: Address city cannot exceed 31 characters."), std::string::npos)
      << Lines(tooLong);
  EXPECT_EQ(Tool({"--format", "json", "list", "Vendor"}).out.find("Far"), std::string::npos);
}

}  // namespace
