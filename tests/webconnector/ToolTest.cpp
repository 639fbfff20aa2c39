// brenvale webconnector from the command line, as separate processes: the users file, the .QWC
// file, the service with a tool command as its host, and our own Web Connector relaying it to the
// company engine.
#include <signal.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "support/ChildProcess.hpp"
#include "webconnector/WebConnectorTestSupport.hpp"

namespace brenvale::webconnector::testing {
namespace {

// The tool as a child process in `dir`.
class Tool : public brenvale::testing::ChildProcess {
 public:
  Tool(const fs::path& dir, const std::vector<std::string>& args, const std::string& input = {})
      : ChildProcess(BRENVALE_TOOL_PATH, dir, args, input) {}
  std::string Lines() const { return "stdout:\n" + out + "stderr:\n" + err; }
};

std::string Slurp(const fs::path& file) {
  std::ifstream in(file);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

const std::regex kServing("serving the Web Connector at (https?://[0-9.]+:[0-9]+/)");

TEST_F(BridgeTest, TheReadmesPathFromTheCommandLine) {
  Tool user(dir_, {"webconnector", "user", "--users", "users.txt", "--user", "acme", "--company", "acme",
                   "--iterations", "1000"},
            "acme-secret\n");
  ASSERT_EQ(user.Finish(), 0) << user.Lines();
  const std::string users = Slurp(dir_ / "users.txt");
  EXPECT_NE(users.find("acme  acme  pbkdf2-sha256:1000:"), std::string::npos) << users;
  EXPECT_EQ(users.find("acme-secret"), std::string::npos);

  Tool qwc(dir_, {"webconnector", "qwc", "--url", "http://localhost:8080/qbwc", "--user", "acme", "--app-name",
                  "Acme sync", "--output", "acme.qwc"});
  ASSERT_EQ(qwc.Finish(), 0) << qwc.Lines();
  EXPECT_NE(Slurp(dir_ / "acme.qwc").find("<UserName>acme</UserName>"), std::string::npos);
  Tool again(dir_, {"webconnector", "qwc", "--url", "http://localhost:8080/qbwc", "--user", "acme", "--app-name",
                    "Acme sync", "--output", "acme.qwc"});
  EXPECT_EQ(again.Finish(), 3) << again.Lines();  // its FileID stays

  Tool serve(dir_, {"webconnector", "serve", "--listen", "127.0.0.1:0", "--users", "users.txt", "--hold", "1",
                    "--wait", "30", "--", "add", "JobType", "Name=Retrofit"});
  const std::string url = serve.WaitFor(kServing, 30s);
  ASSERT_FALSE(url.empty()) << serve.Lines();
  Tool client(dir_, {"--company", "acme.qbw", "webconnector", "client", "--url", url, "--user", "acme", "--wait", "30"},
              "acme-secret\n");
  EXPECT_EQ(client.Finish(), 0) << client.Lines();
  ASSERT_EQ(serve.Finish(), 0) << serve.Lines();
  EXPECT_NE(serve.out.find("Retrofit"), std::string::npos) << serve.Lines();
  EXPECT_EQ(serve.err.find("acme-secret"), std::string::npos);

  // The record is in the company file, once.
  Tool list(dir_, {"--company", "acme.qbw", "--format", "json", "list", "JobType"});
  EXPECT_EQ(list.Finish(), 0) << list.Lines();
  const std::string record = "\"Name\": \"Retrofit\"";
  EXPECT_NE(list.out.find(record), std::string::npos) << list.Lines();
  EXPECT_EQ(list.out.find(record), list.out.rfind(record)) << list.Lines();
}

TEST_F(BridgeTest, TheToolRefusesWhatCannotWork) {
  std::ofstream(dir_ / "users.txt") << "acme acme " << Users::HashPassword("acme-secret", kFastHash) << "\n";
  std::ofstream(dir_ / "empty.txt") << "# nobody yet\n";
  struct Case {
    std::vector<std::string> args;
    int status;
    std::string says;
  };
  const std::vector<Case> cases = {
      {{"webconnector", "serve", "--listen", "0.0.0.0:0", "--users", "users.txt"}, 2, "loopback address only"},
      {{"webconnector", "serve", "--listen", "localhost", "--users", "users.txt"}, 2, "ADDRESS:PORT"},
      {{"webconnector", "serve", "--listen", "127.0.0.1:0", "--users", "none.txt"}, 3, "cannot be read"},
      {{"webconnector", "serve", "--listen", "127.0.0.1:0", "--users", "empty.txt"}, 3, "lists no user"},
      {{"webconnector", "serve", "--listen", "127.0.0.1:0", "--users", "users.txt", "--", "frobnicate"}, 2,
       "the command after '--'"},
      {{"webconnector", "qwc", "--url", "http://192.168.1.2/", "--user", "u", "--app-name", "A"}, 2, "IP address"},
      {{"webconnector", "client", "--url", "http://sync.acme.example/", "--user", "acme"}, 1, "in the clear"},
  };
  for (const Case& c : cases) {
    Tool t(dir_, c.args, "acme-secret\n");
    EXPECT_EQ(t.Finish(), c.status) << t.Lines();
    EXPECT_NE(t.err.find(c.says), std::string::npos) << t.Lines();
  }

  // A service with no host: the Web Connector hears there is nothing to do, a wrong password is
  // refused, and the service stops when told to.
  Tool serve(dir_, {"webconnector", "serve", "--listen", "127.0.0.1:0", "--users", "users.txt"});
  const std::string url = serve.WaitFor(kServing, 30s);
  ASSERT_FALSE(url.empty()) << serve.Lines();
  Tool idle(dir_, {"--company", "acme.qbw", "webconnector", "client", "--url", url, "--user", "acme"}, "acme-secret\n");
  EXPECT_EQ(idle.Finish(), 0) << idle.Lines();
  EXPECT_NE(idle.err.find("no work"), std::string::npos) << idle.Lines();
  Tool wrong(dir_, {"--company", "acme.qbw", "webconnector", "client", "--url", url, "--user", "acme"}, "guess\n");
  EXPECT_EQ(wrong.Finish(), 1) << wrong.Lines();
  EXPECT_NE(wrong.err.find("not a valid user"), std::string::npos) << wrong.Lines();
  serve.Signal(SIGTERM);
  EXPECT_EQ(serve.Finish(), 0) << serve.Lines();
  EXPECT_EQ(serve.err.find("guess"), std::string::npos);
  EXPECT_FALSE(fs::exists(dir_ / "acme.qbw"));  // no session: the company was never opened
}

}  // namespace
}  // namespace brenvale::webconnector::testing
