#pragma once
// Shared pieces of the qbxml tests: a fixture that gives each test a fresh session, the scripted
// request processor in it, and a temporary folder.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "brenvale/core/BrenvaleError.hpp"
#include "brenvale/core/RequestProcessor.hpp"
#include "brenvale/qbxml/Session.hpp"
#include "support/ScriptedProcessor.hpp"

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

// Installs a scripted processor in this thread's session and returns it.
inline std::shared_ptr<ScriptedProcessor> InstallProcessor(std::string ticket = "TICKET-1") {
  auto processor = std::make_shared<ScriptedProcessor>();
  processor->ticket = ticket;
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
