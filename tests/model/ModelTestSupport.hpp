#pragma once
// Shared pieces of the model tests: a fresh 13.0 session of a US company per test, the scripted
// processor in it, response documents, and the text a record writes.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/model/RecordCore.hpp"
#include "brenvale/qbxml/Dom.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "brenvale/qbxml/xmlBldr.hpp"
#include "support/RaisedBy.hpp"
#include "support/ScriptedProcessor.hpp"

namespace brenvale::testing {

class ModelTest : public ::testing::Test {
 protected:
  void SetUp() override { Reset(); }
  void TearDown() override {
    Reset();
    CurrentSession() = Session{};
  }
  static void Reset() {
    CurrentSession() = Session{};
    CurrentSession().qbxmlVersion = "13.0";
    CurrentSession().qbXMLVersionNumber = VersionNumberOf("13.0");
    CurrentSession().country = "US";
  }
  // A scripted processor in this thread's session that answers with `answer`.
  static std::shared_ptr<ScriptedProcessor> Install(std::function<std::string(const std::string&)> answer) {
    auto p = std::make_shared<ScriptedProcessor>();
    p->answer = std::move(answer);
    CurrentSession().processor = p;
    CurrentSession().ticket = p->ticket;
    return p;
  }
};

// A response document holding the given response aggregates.
inline std::string Responses(const std::string& rs) {
  return "<?xml version=\"1.0\" ?><QBXML><QBXMLMsgsRs>" + rs + "</QBXMLMsgsRs></QBXML>";
}

// One response aggregate.
inline std::string Rs(const std::string& name, const std::string& requestID, int status, const std::string& body = {},
                      const std::string& message = "Status OK") {
  return "<" + name + " requestID=\"" + requestID + "\" statusCode=\"" + std::to_string(status) +
         "\" statusSeverity=\"" + (status == 0 ? "Info" : status < 1000 ? "Warn" : "Error") + "\" statusMessage=\"" +
         message + "\">" + body + "</" + name + ">";
}

// The body a record writes in a form.
inline std::string Body(const RecordCore& r, Form form) {
  xmlBldr b;
  r.WriteBody(b, WriteContext::OfSession(form));
  return b.GetXML();
}

inline DomDocument Parse(const std::string& xml) { return DomDocument::Load(xml); }

}  // namespace brenvale::testing
