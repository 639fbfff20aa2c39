// brenvale webconnector from the command line, as separate processes: the users file, the .QWC
// file, the service with a tool command as its host, and our own Web Connector relaying it to the
// company engine.
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "webconnector/WebConnectorTestSupport.hpp"

namespace brenvale::webconnector::testing {
namespace {

// The tool as a child process in `dir`; every wait on it has a time limit, after which it is killed.
class Tool {
 public:
  Tool(const fs::path& dir, const std::vector<std::string>& args, const std::string& input = {}) {
    int in[2], toOut[2], toErr[2];
    if (pipe(in) != 0 || pipe(toOut) != 0 || pipe(toErr) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      dup2(in[0], 0);
      dup2(toOut[1], 1);
      dup2(toErr[1], 2);
      for (int fd : {in[0], in[1], toOut[0], toOut[1], toErr[0], toErr[1]}) close(fd);
      if (chdir(dir.c_str()) != 0) _exit(127);
      std::vector<char*> argv{const_cast<char*>(BRENVALE_TOOL_PATH)};
      for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
      argv.push_back(nullptr);
      execv(BRENVALE_TOOL_PATH, argv.data());
      _exit(127);
    }
    close(in[0]);
    close(toOut[1]);
    close(toErr[1]);
    if (!input.empty() && write(in[1], input.data(), input.size()) < 0) {
      // The tool may have ended without reading; its output says why.
    }
    close(in[1]);
    fds_[0] = toOut[0];
    fds_[1] = toErr[0];
  }
  ~Tool() {
    if (pid_ > 0 && status_ < 0) {
      kill(pid_, SIGKILL);
      waitpid(pid_, nullptr, 0);
    }
    for (int fd : fds_)
      if (fd >= 0) close(fd);
  }

  // Reads until stderr holds a match of `pattern`; the first group, or empty after `limit`.
  std::string WaitFor(const std::regex& pattern, std::chrono::seconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    std::smatch m;
    while (!std::regex_search(err, m, pattern)) {
      if (!Read(deadline)) return {};
    }
    return m.size() > 1 ? m[1].str() : m[0].str();
  }
  // The exit status (128 + signal when killed); the child is killed after `limit`.
  int Finish(std::chrono::seconds limit = 60s) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (Read(deadline)) {
    }
    int status = 0;
    if (std::chrono::steady_clock::now() >= deadline) kill(pid_, SIGKILL);
    waitpid(pid_, &status, 0);
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return status_;
  }
  void Signal(int signal) { kill(pid_, signal); }
  std::string Lines() const { return "stdout:\n" + out + "stderr:\n" + err; }

  std::string out, err;

 private:
  // Reads what is there; false when both outputs are closed or the deadline passed.
  bool Read(std::chrono::steady_clock::time_point deadline) {
    pollfd p[2] = {{fds_[0], POLLIN, 0}, {fds_[1], POLLIN, 0}};
    if (fds_[0] < 0 && fds_[1] < 0) return false;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0 || poll(p, 2, static_cast<int>(left.count())) <= 0) return false;
    std::string* sinks[2] = {&out, &err};
    for (int i = 0; i < 2; ++i) {
      if (fds_[i] < 0 || !(p[i].revents & (POLLIN | POLLHUP))) continue;
      char buffer[4096];
      const ssize_t n = read(fds_[i], buffer, sizeof buffer);
      if (n > 0) {
        sinks[i]->append(buffer, static_cast<std::size_t>(n));
      } else {
        close(fds_[i]);
        fds_[i] = -1;
      }
    }
    return true;
  }

  pid_t pid_ = -1;
  int status_ = -1;
  int fds_[2] = {-1, -1};
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
