#pragma once
// A program run as a child process in a folder, its standard input fed and its output collected.
// Every wait on it has a time limit, after which the child is killed: a test never hangs on it.
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

namespace brenvale::testing {

// A child process; its output is read into `out` and `err` while it is waited for.
class ChildProcess {
 public:
  ChildProcess(const std::string& program, const std::filesystem::path& dir, const std::vector<std::string>& args,
               const std::string& input = {}) {
    int in[2], toOut[2], toErr[2];
    if (pipe(in) != 0 || pipe(toOut) != 0 || pipe(toErr) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
      dup2(in[0], 0);
      dup2(toOut[1], 1);
      dup2(toErr[1], 2);
      for (int fd : {in[0], in[1], toOut[0], toOut[1], toErr[0], toErr[1]}) close(fd);
      if (chdir(dir.c_str()) != 0) _exit(127);
      std::vector<char*> argv{const_cast<char*>(program.c_str())};
      for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
      argv.push_back(nullptr);
      execv(program.c_str(), argv.data());
      _exit(127);
    }
    close(in[0]);
    close(toOut[1]);
    close(toErr[1]);
    if (!input.empty() && write(in[1], input.data(), input.size()) < 0) {
      // The program may have ended without reading; its output says why.
    }
    close(in[1]);
    fds_[0] = toOut[0];
    fds_[1] = toErr[0];
  }
  ~ChildProcess() {
    if (pid_ <= 0) return;
    if (status_ < 0) {
      kill(pid_, SIGKILL);
      waitpid(pid_, nullptr, 0);
    }
    for (int fd : fds_)
      if (fd >= 0) close(fd);
  }

  // Reads until stderr holds a match of `pattern`; the first group, or empty after `limit`.
  std::string WaitFor(const std::regex& pattern, std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    std::smatch m;
    while (!std::regex_search(err, m, pattern)) {
      if (!Read(deadline)) return {};
    }
    return m.size() > 1 ? m[1].str() : m[0].str();
  }
  // The exit status (128 + signal when killed); the child is killed after `limit`.
  int Finish(std::chrono::milliseconds limit = std::chrono::seconds(60)) {
    if (pid_ <= 0) return 127;  // it never started
    if (status_ >= 0) return status_;
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

}  // namespace brenvale::testing
