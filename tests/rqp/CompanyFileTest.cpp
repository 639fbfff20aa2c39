// Company files on disk: made whole or not at all (also when the process making one is killed, or
// two processes make the same one), brought up from the first engine's format, locked without
// leaving lock files behind, and refused with the system's reason.
#include <sqlite3.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>

#include "brenvale/rqp/store/Store.hpp"
#include "rqp/EngineHarness.hpp"

namespace rqptest {
namespace {

namespace hr = brenvale::rqp::hresult;
using brenvale::qbOpenModeMultiUser;
using brenvale::qbOpenModeSingleUser;

std::string ReadFile(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// Opens `path` as a session of its own, asks for one of a new company's standard accounts and
// returns its status (-1 when the session could not begin).
int StandardAccountStatus(const std::string& path, brenvale::qbEnumFileOpenMode mode = qbOpenModeMultiUser) {
  try {
    CompanyEngine engine;
    engine.OpenConnection("", "company file tests");
    std::string ticket = engine.BeginSession(path, mode);
    std::string r = engine.ProcessRequest(
        ticket, "<?xml version=\"1.0\"?><?qbxml version=\"13.0\"?><QBXML><QBXMLMsgsRq onError=\"stopOnError\">"
                "<AccountQueryRq><FullName>Accounts Receivable</FullName></AccountQueryRq></QBXMLMsgsRq></QBXML>");
    pugi::xml_document doc;
    doc.load_string(r.c_str());
    int status = doc.select_node("//AccountQueryRs").node().attribute("statusCode").as_int(-1);
    if (status != 0) std::fprintf(stderr, "%s\n", r.c_str());  // shown with the failure
    return status;
  } catch (const BrenvaleError& e) {
    std::fprintf(stderr, "%s\n", e.Description().c_str());  // shown with the failure
    return -1;
  }
}

// The error BeginSession raises for `path`; a failure of the test when the file opens.
BrenvaleError OpenFailure(const std::string& path) {
  CompanyEngine engine;
  engine.OpenConnection("", "refusals");
  try {
    engine.BeginSession(path, qbOpenModeSingleUser);
  } catch (const BrenvaleError& e) {
    return e;
  }
  ADD_FAILURE() << path << " was opened";
  return BrenvaleError(0, "", "");
}

std::vector<std::string> Beside(const fs::path& dir, const std::string& start) {
  std::vector<std::string> out;
  for (auto& e : fs::directory_iterator(dir))
    if (e.path().filename().string().rfind(start, 0) == 0) out.push_back(e.path().filename().string());
  return out;
}

using CompanyFileTest = TempFolderTest;

TEST_F(CompanyFileTest, ALockFileLivesAsLongAsItsSessions) {
  const std::string company = (dir_ / "shared.qbw").string(), lock = company + ".lck";
  CompanyEngine a, b;
  a.OpenConnection("", "a");
  b.OpenConnection("", "b");
  std::string ta = a.BeginSession(company, qbOpenModeMultiUser);
  EXPECT_TRUE(fs::exists(lock));
  std::string tb = b.BeginSession(company, qbOpenModeMultiUser);
  a.EndSession(ta);
  EXPECT_TRUE(fs::exists(lock)) << "another session still holds it";
  b.EndSession(tb);
  EXPECT_FALSE(fs::exists(lock));
  ta = a.BeginSession(company, qbOpenModeSingleUser);  // and it is taken again as before
  EXPECT_EQ(StandardAccountStatus(company), -1);
  a.EndSession(ta);
  EXPECT_EQ(StandardAccountStatus(company), 0);
}

TEST_F(CompanyFileTest, WhatIsNotACompanyIsLeftAsItWas) {
  const fs::path junk = dir_ / "notes.txt";
  { std::ofstream(junk) << "not a company file at all, not even SQLite"; }
  const fs::path empty = dir_ / "empty.qbw";
  { std::ofstream touch(empty); }
  const fs::path other = dir_ / "other.db";
  {
    sqlite3* db = nullptr;
    sqlite3_open(other.c_str(), &db);
    sqlite3_exec(db, "CREATE TABLE t (x); INSERT INTO t VALUES (1);", nullptr, nullptr, nullptr);
    sqlite3_close(db);
  }
  for (const fs::path& file : {junk, empty, other}) {
    std::string before = ReadFile(file);
    BrenvaleError e = OpenFailure(file.string());
    EXPECT_EQ(e.Number(), hr::kCouldNotOpenFile);
    EXPECT_NE(e.Description().find("not a company file"), std::string::npos) << e.Description();
    EXPECT_EQ(ReadFile(file), before) << file;
    for (const char* beside : {".lck", "-wal", "-shm", "-journal"})
      EXPECT_FALSE(fs::exists(file.string() + beside)) << file << beside;
  }
}

TEST_F(CompanyFileTest, AFileThatCannotBeOpenedSaysWhy) {
  const std::string company = (dir_ / "locked.qbw").string();
  ASSERT_EQ(StandardAccountStatus(company), 0);
  fs::create_directory(company + ".lck");  // the lock file cannot be made
  BrenvaleError e = OpenFailure(company);
  EXPECT_EQ(e.Number(), hr::kCouldNotOpenFile);
  EXPECT_NE(e.Description().find(company + ".lck: Is a directory"), std::string::npos) << e.Description();
}

// A company file as the first engine wrote it: its tables (the first step of the migrations), a
// class and a customer that refers to it by ListID and name, the reference row, the company and
// the preferences of that engine.
void WriteFirstEngineCompany(const std::string& path) {
  brenvale::rqp::detail::Store::Create(path, 1);
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
  const char* rows = R"SQL(
    INSERT INTO records (list_id, kind, name_group, full_name, name_key, parent_id, sublevel, is_active,
      time_created, time_modified, edit_sequence, sort_group, balance, ret) VALUES
    ('80000001-1700000000', 6, 106, 'West', 'west', '', 0, 1, 1700000000, 1700000000, '1700000000', 0, 0,
     '<ClassRet><ListID>80000001-1700000000</ListID><TimeCreated>2023-11-14T22:13:20+00:00</TimeCreated><TimeModified>2023-11-14T22:13:20+00:00</TimeModified><EditSequence>1700000000</EditSequence><Name>West</Name><FullName>West</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel></ClassRet>'),
    ('80000002-1700000000', 2, 1, 'Old', 'old', '', 0, 1, 1700000000, 1700000000, '1700000000', 0, 0,
     '<CustomerRet><ListID>80000002-1700000000</ListID><TimeCreated>2023-11-14T22:13:20+00:00</TimeCreated><TimeModified>2023-11-14T22:13:20+00:00</TimeModified><EditSequence>1700000000</EditSequence><Name>Old</Name><FullName>Old</FullName><IsActive>true</IsActive><ClassRef><ListID>80000001-1700000000</ListID><FullName>West</FullName></ClassRef><Sublevel>0</Sublevel><Balance>0.00</Balance><TotalBalance>0.00</TotalBalance><JobStatus>None</JobStatus><PreferredDeliveryMethod>None</PreferredDeliveryMethod></CustomerRet>'),
    ('80000003-1700000000', 1, 101, 'Savings', 'savings', '', 0, 1, 1700000000, 1700000000, '1700000000', 0, 0,
     '<AccountRet><ListID>80000003-1700000000</ListID><TimeCreated>2023-11-14T22:13:20+00:00</TimeCreated><TimeModified>2023-11-14T22:13:20+00:00</TimeModified><EditSequence>1700000000</EditSequence><Name>Savings</Name><FullName>Savings</FullName><IsActive>true</IsActive><Sublevel>0</Sublevel><AccountType>Bank</AccountType><Balance>0.00</Balance><TotalBalance>0.00</TotalBalance></AccountRet>');
    INSERT INTO refs (source, target) VALUES ('80000002-1700000000', '80000001-1700000000');
    INSERT INTO meta (key, value) VALUES ('counter.listid', '3'), ('created', '1700000000'),
      ('CompanyRet', '<CompanyRet><IsSampleCompany>false</IsSampleCompany><CompanyName>first</CompanyName></CompanyRet>'),
      ('PreferencesRet', '<PreferencesRet><MultiCurrencyPreferences><IsMultiCurrencyOn>false</IsMultiCurrencyOn><HomeCurrencyRef><ListID>80000009-1700000000</ListID><FullName>US Dollar</FullName></HomeCurrencyRef></MultiCurrencyPreferences></PreferencesRet>');
  )SQL";
  char* error = nullptr;
  EXPECT_EQ(sqlite3_exec(db, rows, nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
  sqlite3_free(error);
  sqlite3_close(db);
}

int UserVersion(const std::string& path) {
  sqlite3* db = nullptr;
  sqlite3_open(path.c_str(), &db);
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(db, "PRAGMA user_version", -1, &s, nullptr);
  int v = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int(s, 0) : -1;
  sqlite3_finalize(s);
  sqlite3_close(db);
  return v;
}

class FirstEngineFileTest : public EngineTest {
 protected:
  void SetUp() override {
    if (!QbxmlSchema()) GTEST_SKIP() << "no qbXML schema in " << SchemaFolder() << ": responses cannot be checked";
    TempFolderTest::SetUp();
    WriteFirstEngineCompany(Company());
    Open();
  }
};

TEST_F(FirstEngineFileTest, OpensAndIsBroughtUpToDate) {
  EXPECT_EQ(UserVersion(Company()), brenvale::rqp::detail::Store::kSchemaVersion);
  Status old = One("<CustomerQueryRq><FullName>Old</FullName></CustomerQueryRq>");
  ASSERT_EQ(old.code, 0);
  EXPECT_EQ(Text(old.node, "CustomerRet/ClassRef/FullName"), "West");
  // Its references are index rows now: filters find them, deletes see them, renames reach them.
  Status byClass = One("<CustomerQueryRq><ClassFilter><FullName>West</FullName></ClassFilter></CustomerQueryRq>");
  EXPECT_EQ(Text(byClass.node, "CustomerRet/Name"), "Old");
  Status west = One("<ClassQueryRq><FullName>West</FullName></ClassQueryRq>");
  EXPECT_EQ(One("<ListDelRq><ListDelType>Class</ListDelType><ListID>" + Text(west.node, "ClassRet/ListID") +
                "</ListID></ListDelRq>").code, 3170);
  ASSERT_EQ(Mod("Class", west.node.first_child(), "<Name>East</Name>").code, 0);
  EXPECT_EQ(Text(One("<CustomerQueryRq><FullName>Old</FullName></CustomerQueryRq>").node, "CustomerRet/ClassRef/FullName"),
            "East");
  // What accounts and the company report now is there; new records continue the file's numbering.
  Status savings = One("<AccountQueryRq><AccountType>Bank</AccountType></AccountQueryRq>");
  EXPECT_EQ(Text(savings.node, "AccountRet/CashFlowClassification"), "NotApplicable");
  EXPECT_TRUE(One("<CompanyQueryRq/>").node.first_element_by_path("CompanyRet/SubscribedServices"));
  EXPECT_TRUE(One("<PreferencesQueryRq/>").node.first_element_by_path("PreferencesRet/ItemsAndInventoryPreferences"));
  EXPECT_EQ(Text(Add("Class", "<Name>New</Name>"), "ListID").substr(0, 8), "80000004");
  // And it opens again as it is.
  engine_->EndSession(ticket_);
  Open();
  EXPECT_EQ(Text(One("<CustomerQueryRq><FullName>Old</FullName></CustomerQueryRq>").node, "CustomerRet/ClassRef/FullName"),
            "East");
}

TEST_F(CompanyFileTest, AFileOfANewerEngineIsRefused) {
  const std::string company = (dir_ / "newer.qbw").string();
  ASSERT_EQ(StandardAccountStatus(company), 0);
  sqlite3* db = nullptr;
  sqlite3_open(company.c_str(), &db);
  sqlite3_exec(db, "PRAGMA user_version = 99", nullptr, nullptr, nullptr);
  sqlite3_close(db);
  BrenvaleError e = OpenFailure(company);
  EXPECT_EQ(e.Number(), hr::kCouldNotOpenFile);
  EXPECT_NE(e.Description().find("newer company engine"), std::string::npos) << e.Description();
  EXPECT_EQ(UserVersion(company), 99);
}

// Runs `child` in a child process; its exit status is what `child` returns.
template <class F>
pid_t Spawn(F child) {
  pid_t pid = ::fork();
  if (pid == 0) ::_exit(child());
  return pid;
}

int ExitStatus(pid_t pid) {
  int status = 0;
  ::waitpid(pid, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

TEST_F(CompanyFileTest, TwoProcessesMakingTheSameCompanyBothOpenIt) {
  for (int trial = 0; trial < 20; ++trial) {
    const fs::path dir = dir_ / ("trial" + std::to_string(trial));
    fs::create_directory(dir);
    const std::string company = (dir / "race.qbw").string();
    int go[2];
    ASSERT_EQ(::pipe(go), 0);
    auto racer = [&] {
      char c;
      ::close(go[1]);
      if (::read(go[0], &c, 1) != 1) return 2;
      return StandardAccountStatus(company) == 0 ? 0 : 1;
    };
    pid_t a = Spawn(racer), b = Spawn(racer);
    ::close(go[0]);
    ASSERT_EQ(::write(go[1], "go", 2), 2);  // both start at once
    ::close(go[1]);
    EXPECT_EQ(ExitStatus(a), 0) << "trial " << trial;
    EXPECT_EQ(ExitStatus(b), 0) << "trial " << trial;
    EXPECT_EQ(Beside(dir, ".race.qbw.creating-"), std::vector<std::string>{}) << "trial " << trial;
  }
}

TEST_F(CompanyFileTest, AKillWhileMakingACompanyLeavesNoneOrAWholeOne) {
  // Each trial kills the process making a new company at a later point of the making: after the
  // n-th change in the folder that a making process causes.
  int killedWhileMaking = 0;
  for (int trial = 1; trial <= 16; ++trial) {
    const fs::path dir = dir_ / ("trial" + std::to_string(trial));
    fs::create_directory(dir);
    const std::string company = (dir / "killed.qbw").string();
    int watch = ::inotify_init1(IN_CLOEXEC);
    ASSERT_GE(watch, 0);
    ASSERT_GE(::inotify_add_watch(watch, dir.c_str(), IN_CREATE | IN_MODIFY | IN_CLOSE_WRITE | IN_MOVED_TO), 0);
    pid_t maker = Spawn([&] { return StandardAccountStatus(company) == 0 ? 0 : 1; });
    int seen = 0;
    alignas(inotify_event) char buffer[4096];
    while (seen < trial) {
      ssize_t n = ::read(watch, buffer, sizeof buffer);
      if (n <= 0) break;
      for (char* p = buffer; p < buffer + n; p += sizeof(inotify_event) + reinterpret_cast<inotify_event*>(p)->len) ++seen;
    }
    ::kill(maker, SIGKILL);
    int status = ExitStatus(maker);
    ::close(watch);
    if (status == 128 + SIGKILL && !fs::exists(company)) ++killedWhileMaking;
    // There is no company, or a whole one that opens with a new company's records.
    if (fs::exists(company)) {
      EXPECT_EQ(StandardAccountStatus(company), 0) << "trial " << trial;
    }
    // Making it again works, and clears what the killed process left beside it.
    EXPECT_EQ(StandardAccountStatus(company), 0) << "trial " << trial;
    EXPECT_EQ(Beside(dir, ".killed.qbw.creating-"), std::vector<std::string>{}) << "trial " << trial;
  }
  RecordProperty("killed while making", killedWhileMaking);
  EXPECT_GT(killedWhileMaking, 0) << "no trial killed the process while it was making the company";
}

}  // namespace
}  // namespace rqptest
