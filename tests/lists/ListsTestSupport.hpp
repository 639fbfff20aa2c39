#pragma once
// Shared pieces of the list tests: a fresh session per test, a scripted request processor, and a
// collector of what the trace hook is given.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/TraceHook.hpp"
#include "brenvale/lists/Items.hpp"
#include "brenvale/model/ListRecord.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "support/RaisedBy.hpp"
#include "support/ScriptedProcessor.hpp"

namespace brenvale::testing {

class ListsTest : public ::testing::Test {
 protected:
  void SetUp() override { Reset(); }
  void TearDown() override {
    SetTraceObserver({});
    Reset();
  }
  static void Reset() {
    CurrentSession() = Session{};
    CurrentSession().qbxmlVersion = "13.0";
    CurrentSession().qbXMLVersionNumber = VersionNumberOf("13.0");
  }
};

// A scripted processor in this thread's session; it answers every request with `answer`.
inline std::shared_ptr<ScriptedProcessor> InstallProcessor(std::string answer = {}) {
  auto p = std::make_shared<ScriptedProcessor>();
  p->answer = [answer](const std::string&) { return answer; };
  CurrentSession().processor = p;
  CurrentSession().ticket = p->ticket;
  return p;
}

// A response document holding one response aggregate.
inline std::string Response(const std::string& rs) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>" + rs + "</QBXMLMsgsRs></QBXML>";
}

// A response document with one response aggregate `rs` of that status holding `body`.
inline std::string StatusResponse(const std::string& rs, int status, const std::string& body = {},
                                  const std::string& message = "Status OK") {
  return Response("<" + rs + " requestID=\"1\" statusCode=\"" + std::to_string(status) +
                  "\" statusSeverity=\"" + (status ? "Warn" : "Info") + "\" statusMessage=\"" + message +
                  "\">" + body + "</" + rs + ">");
}

// One broken field and what Validate must say about it; code 0: the record must still pass.
struct RuleCase {
  std::string what;
  std::function<void(ListRecord&)> change;
  int code = 0;
  std::string field;
  std::string message;
};

// The name rules of the lists whose names are at most 31 characters.
inline std::vector<RuleCase> NameRuleCases() {
  return {{"empty name", [](ListRecord& r) { r.Name(""); }, 1012, "Name", "Name cannot be null"},
          {"31 characters", [](ListRecord& r) { r.Name(std::string(31, 'n')); }},
          {"32 characters", [](ListRecord& r) { r.Name(std::string(32, 'n')); }, 1013, "Name",
           "Name cannot exceed 31 characters"}};
}

// The record holds one entry: of that code (0: a text of its own, without a number), field and text.
inline void ExpectOneError(ListRecord& r, int code, const std::string& field, const std::string& message) {
  ASSERT_EQ(r.Errors().Count(), 1);
  EXPECT_EQ(r.Errors()[1].Number(), code ? ErrorNumber(code) : 0);
  EXPECT_EQ(r.Errors()[1].Field(), field);
  EXPECT_EQ(r.Errors()[1].Description(), message);
}

// Breaks a valid new record as the rule says and checks what Validate makes of it: one entry with
// the rule's code, field and message (or none), the record still New.
inline void ExpectRule(ListRecord& r, const RuleCase& rule) {
  SCOPED_TRACE(rule.what);
  rule.change(r);
  // Twice: the second run replaces the first run's entries.
  r.Validate();
  const bool ok = r.Validate();
  if (rule.code == 0) {
    EXPECT_TRUE(ok);
    EXPECT_EQ(r.Errors().Count(), 0);
    return;
  }
  EXPECT_FALSE(ok);
  ExpectOneError(r, rule.code, rule.field, rule.message);
  EXPECT_EQ(r.ObjectState(), zqObjectStateNew);
}

// A new item breaking one rule, and the one error it must give (code 0: a text of its own, without a
// code; below 0: no error at all).
struct ItemRuleCase {
  std::string what;
  std::function<zkItem&(Items&)> make;
  int code;
  std::string field;
  std::string message;
};

// Collects (source, text) pairs given to the trace hook while alive.
class TraceCollector {
 public:
  TraceCollector() {
    SetTraceObserver([this](std::string_view source, std::string_view text) {
      seen.emplace_back(std::string(source), std::string(text));
    });
  }
  ~TraceCollector() { SetTraceObserver({}); }
  std::vector<std::pair<std::string, std::string>> seen;
};

}  // namespace brenvale::testing
