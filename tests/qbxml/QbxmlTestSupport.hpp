#pragma once
// Shared pieces of the qbxml tests: a fixture that gives each test a fresh session, a scripted
// request processor that records its calls, and a temporary folder.
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/RequestProcessor.hpp"
#include "brenvale/qbxml/Session.hpp"

namespace brenvale::testing {

// Each test starts and ends with an empty session of this thread.
class SessionTest : public ::testing::Test {
 protected:
  void SetUp() override { CurrentSession() = Session{}; }
  void TearDown() override { CurrentSession() = Session{}; }

  static void SetVersion(const std::string& version, bool online = false) {
    Session& s = CurrentSession();
    s.qbxmlVersion = version;
    s.qbXMLVersionNumber = VersionNumberOf(version);
    s.isOnline = online;
  }
};

// A request processor that answers from a script and records every call it is given.
class ScriptedProcessor : public IRequestProcessor {
 public:
  struct Call {
    std::string member;
    std::string ticket;
    std::string request;
  };

  std::vector<Call> calls;
  std::deque<std::string> responses;  // answered in order; the last one repeats
  bool fail = false;                  // when set, ProcessRequest/ProcessSubscription throw
  std::string failureText = "The request processor failed.";

  std::string ProcessRequest(const std::string& ticket, const std::string& request) override {
    calls.push_back({"ProcessRequest", ticket, request});
    return Answer();
  }
  std::string ProcessSubscription(const std::string& request) override {
    calls.push_back({"ProcessSubscription", {}, request});
    return Answer();
  }

  void OpenConnection(const std::string&, const std::string&) override { Unexpected("OpenConnection"); }
  void OpenConnection2(const std::string&, const std::string&, qbConnectionType) override {
    Unexpected("OpenConnection2");
  }
  std::string BeginSession(const std::string&, qbEnumFileOpenMode) override {
    Unexpected("BeginSession");
    return {};
  }
  std::vector<std::string> QBXMLVersionsForSession(const std::string&) override {
    Unexpected("QBXMLVersionsForSession");
    return {};
  }
  std::string GetCurrentCompanyFileName(const std::string&) override {
    Unexpected("GetCurrentCompanyFileName");
    return {};
  }
  void EndSession(const std::string&) override { Unexpected("EndSession"); }
  void CloseConnection() override { Unexpected("CloseConnection"); }
  ProcessorAuthPreferences& AuthPreferences() override { return prefs_; }

 private:
  std::string Answer() {
    if (fail) throw BrenvaleError(-2147220000, "QBXMLRP2", failureText);
    if (responses.empty()) return {};
    std::string r = responses.front();
    if (responses.size() > 1) responses.pop_front();
    return r;
  }
  void Unexpected(const char* member) { calls.push_back({member, {}, {}}); }

  ProcessorAuthPreferences prefs_;
};

// Installs a scripted processor in this thread's session and returns it.
inline std::shared_ptr<ScriptedProcessor> InstallProcessor(std::string ticket = "TICKET-1") {
  auto processor = std::make_shared<ScriptedProcessor>();
  CurrentSession().processor = processor;
  CurrentSession().ticket = std::move(ticket);
  return processor;
}

// A fresh folder under the system's temporary folder, removed with its content afterwards.
class TempDir {
 public:
  TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "brenvale-qbxml-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
    path_ = pattern;
  }
  ~TempDir() {
    std::error_code ec;
    std::filesystem::remove_all(path_, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  std::string File(const std::string& name) const { return (path_ / name).string(); }

 private:
  std::filesystem::path path_;
};

inline std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << bytes;
}

}  // namespace brenvale::testing
