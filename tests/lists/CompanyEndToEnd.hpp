#pragma once
// A test against the company engine, the way a host works: a new company file in a temporary
// folder, connected at the start and closed and removed at the end, with empty master collections.
#include <chrono>
#include <filesystem>
#include <string>

#include "brenvale/Brenvale.hpp"
#include "brenvale/model/Lists.hpp"
#include "brenvale/rqp/CompanyEngine.hpp"
#include "lists/ListsTestSupport.hpp"

namespace brenvale::testing {

class CompanyEndToEnd : public ListsTest {
 protected:
  void SetUp() override {
    CurrentSession() = Session{};
    dir_ = std::filesystem::temp_directory_path() /
           ("brenvale-lists-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    std::filesystem::create_directories(dir_);
    rqp::RegisterCompanyEngine();
    BrenvaleGlobals::QBConnection().RequestProcessorProgId("BrenvaleRqP.RequestProcessor");
    BrenvaleGlobals::QBConnect("", "Brenvale tests", qbOpenModeDontCare, (dir_ / "company.qbw").string());
    // The company object lives as long as the thread: start every test with empty masters.
    for (auto& entry : TheLists()) entry->Clear();
  }
  void TearDown() override {
    BrenvaleGlobals::QBConnection().CloseConnection();
    for (auto& entry : TheLists()) entry->Clear();
    CurrentSession() = Session{};
    std::error_code ec;
    std::filesystem::remove_all(dir_, ec);
  }

  // Sends one request written by hand (for records of kinds outside these lists).
  static void Send(const std::string& rq) {
    xmlBldr b;
    b.NewClear();
    b.InsertRawXML(rq);
    DomDocument doc = b.NewSendRequest();
    ASSERT_NE(doc.Xml().find("statusCode=\"0\""), std::string::npos) << doc.Xml();
  }

  std::filesystem::path dir_;
};

}  // namespace brenvale::testing
