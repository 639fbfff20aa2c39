#pragma once
// Drives the company engine with raw qbXML as a host would, on a company file in a fresh temporary
// folder, and checks every response against Intuit's qbXML 13.0 schema. Without the schema folder
// the engine tests are skipped, visibly: their responses could not be checked. After every test the
// company's ledger is checked: the postings of each transaction sum to zero, and go to accounts.
#include <gtest/gtest.h>

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <pugixml.hpp>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"
#include "support/QbxmlSchema.hpp"

namespace rqptest {

namespace fs = std::filesystem;
using brenvale::BrenvaleError;
using brenvale::rqp::CompanyEngine;

// Whether the qbXML schema folder is there to check responses against.
inline bool QbxmlSchema() { return !brenvale::testing::SchemaDir().empty(); }

inline std::string SchemaFolder() { return BRENVALE_SCHEMA_DIR; }

// The qbXML version a request document asks for ("13.0"); 13.0 when it names none.
inline std::string VersionOf(const std::string& request) {
  for (const char* mark : {"QBD ", "QBXML QBOE ", "<?qbxml version=\""}) {
    std::size_t at = request.find(mark);
    if (at == std::string::npos) continue;
    at += std::string(mark).size();
    std::size_t end = request.find_first_not_of("0123456789.", at);
    if (end > at) return request.substr(at, end - at);
  }
  return "13.0";
}

// Empty when `response` validates against the schema and holds only what a US desktop of the
// request's version writes; the problems found otherwise. Call only with the schema there.
inline std::string SchemaErrors(const std::string& response, const std::string& version = "13.0") {
  std::string problems = brenvale::testing::SchemaProblems(response);
  if (problems.empty() && response.find("<QBXMLMsgsRs") != std::string::npos)
    problems = brenvale::testing::DesktopProblems(response, version);
  return problems;
}

struct Status {
  std::string name;
  int code = -1;
  std::string severity, message;
  pugi::xml_node node;
};

inline std::string Text(pugi::xml_node n, const char* path);

// A fresh temporary folder per test.
class TempFolderTest : public ::testing::Test {
 protected:
  void SetUp() override {
    std::random_device rd;
    dir_ = fs::temp_directory_path() / ("rqp-test-" + std::to_string(rd()) + std::to_string(rd()));
    fs::create_directories(dir_);
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(dir_, ec);
  }
  fs::path dir_;
};

class EngineTest : public TempFolderTest {
 protected:
  void SetUp() override {
    if (!QbxmlSchema()) GTEST_SKIP() << "no qbXML schema in " << SchemaFolder() << ": responses cannot be checked";
    TempFolderTest::SetUp();
    Open();
  }

  void TearDown() override {
    engine_.reset();
    if (fs::exists(Company())) {
      EXPECT_EQ(LedgerFaults(Company()), std::vector<std::string>{});
    }
    TempFolderTest::TearDown();
  }

  // What is wrong with the ledger of the company file at `path`: a transaction whose postings do not
  // sum to zero, or a posting to something that is not an account. Read with SQL of its own.
  static std::vector<std::string> LedgerFaults(const std::string& path) {
    std::vector<std::string> faults;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
      sqlite3_close(db);
      return {"cannot open " + path};
    }
    const char* checks[] = {
        "SELECT 'unbalanced ' || txn_type || ' ' || txn_id || ': ' || sum(amount) FROM postings "
        "GROUP BY txn_type, txn_id HAVING sum(amount) <> 0",
        "SELECT 'posted to ' || p.account || ', not an account' FROM postings p LEFT JOIN records r "
        "ON r.list_id = p.account AND r.ret LIKE '<AccountRet>%' WHERE r.id IS NULL"};
    for (const char* sql : checks) {
      sqlite3_stmt* s = nullptr;
      if (sqlite3_prepare_v2(db, sql, -1, &s, nullptr) != SQLITE_OK) {
        faults.push_back(sqlite3_errmsg(db));
        continue;
      }
      while (sqlite3_step(s) == SQLITE_ROW) faults.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(s, 0)));
      sqlite3_finalize(s);
    }
    sqlite3_close(db);
    return faults;
  }

  void Open(brenvale::rqp::HostFacts facts = {}) {
    engine_ = std::make_unique<CompanyEngine>(std::move(facts));
    engine_->OpenConnection("", "rqp tests");
    ticket_ = engine_->BeginSession(Company(), brenvale::qbOpenModeSingleUser);
  }

  std::string Company() const { return (dir_ / "company.qbw").string(); }

  // The request text of a message holding `requests`, as the library writes it.
  static std::string Message(const std::string& requests, const std::string& onError = "continueOnError",
                             const std::string& version = "13.0") {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><!DOCTYPE QBXML PUBLIC '-//INTUIT//DTD QBXML QBD " +
           version + "//EN' ><QBXML><QBXMLMsgsRq onError = \"" + onError + "\">" + requests +
           "</QBXMLMsgsRq></QBXML>";
  }

  // Sends a whole document and returns the response text, checked against the schema.
  std::string Document(const std::string& text) {
    std::string response = engine_->ProcessRequest(ticket_, text);
    EXPECT_EQ(SchemaErrors(response, VersionOf(text)), "") << response;
    return response;
  }

  // Sends a message and returns the response text, checked against the schema.
  std::string Raw(const std::string& requests, const std::string& onError = "continueOnError",
                  const std::string& version = "13.0") {
    return Document(Message(requests, onError, version));
  }

  // The statuses of the responses in a response document.
  std::vector<Status> Statuses(const std::string& text) {
    docs_.push_back(std::make_unique<pugi::xml_document>());
    auto& doc = *docs_.back();
    EXPECT_TRUE(doc.load_string(text.c_str())) << text;
    std::vector<Status> out;
    for (auto rs : doc.child("QBXML").child("QBXMLMsgsRs").children()) {
      Status s{rs.name(), rs.attribute("statusCode").as_int(), rs.attribute("statusSeverity").value(),
               rs.attribute("statusMessage").value(), rs};
      out.push_back(s);
    }
    return out;
  }

  // Sends a message and returns the status of each response.
  std::vector<Status> Send(const std::string& requests, const std::string& onError = "continueOnError",
                           const std::string& version = "13.0") {
    return Statuses(Raw(requests, onError, version));
  }

  // One request; its status.
  Status One(const std::string& request) {
    auto all = Send(request);
    EXPECT_EQ(all.size(), 1u);
    return all.empty() ? Status{} : all.front();
  }

  // A modify request of `kind` for the record `ret`, carrying its ListID and EditSequence.
  Status Mod(const std::string& kind, pugi::xml_node ret, const std::string& body) {
    return One("<" + kind + "ModRq><" + kind + "Mod><ListID>" + Text(ret, "ListID") + "</ListID><EditSequence>" +
               Text(ret, "EditSequence") + "</EditSequence>" + body + "</" + kind + "Mod></" + kind + "ModRq>");
  }


  // The stored record of `kind` that `ret` is a Ret element of, as a query reads it now.
  pugi::xml_node Read(const std::string& kind, pugi::xml_node ret) {
    return One("<" + kind + "QueryRq><ListID>" + Text(ret, "ListID") + "</ListID></" + kind + "QueryRq>").node.first_child();
  }

  // Adds a record of `kind` from the children of its Add body; returns its Ret element.
  pugi::xml_node Add(const std::string& kind, const std::string& body) {
    Status s = One("<" + kind + "AddRq><" + kind + "Add>" + body + "</" + kind + "Add></" + kind + "AddRq>");
    EXPECT_EQ(s.code, 0) << s.message;
    return s.node.first_child();
  }

  // The error thrown by ProcessRequest for the text.
  BrenvaleError Failure(const std::string& text) {
    try {
      engine_->ProcessRequest(ticket_, text);
    } catch (const BrenvaleError& e) {
      return e;
    }
    ADD_FAILURE() << "no error raised";
    return BrenvaleError(0, "", "");
  }

  std::unique_ptr<CompanyEngine> engine_;
  std::string ticket_;
  std::vector<std::unique_ptr<pugi::xml_document>> docs_;
};

inline std::string Text(pugi::xml_node n, const char* path) { return n.first_element_by_path(path).text().get(); }

// The text of `path` in every Ret element of a response, in order.
inline std::vector<std::string> RetTexts(const Status& s, const char* path = "FullName") {
  std::vector<std::string> out;
  for (auto ret : s.node.children()) out.push_back(Text(ret, path));
  return out;
}

}  // namespace rqptest
