#include "Progress.hpp"

#include <unistd.h>

#include <cstdio>

namespace brenvale::tool {

Progress::Progress(std::string what) : what_(std::move(what)) {
  if (isatty(STDERR_FILENO)) thread_ = std::thread([this] { Run(); });
}

Progress::~Progress() {
  if (!thread_.joinable()) return;
  {
    std::lock_guard lock(mutex_);
    done_ = true;
  }
  wake_.notify_all();
  thread_.join();
}

void Progress::Run() {
  using namespace std::chrono_literals;
  static constexpr char kSpinner[] = {'|', '/', '-', '\\'};
  const auto start = std::chrono::steady_clock::now();
  std::unique_lock lock(mutex_);
  if (wake_.wait_for(lock, 500ms, [this] { return done_; })) return;
  for (unsigned tick = 0;; ++tick) {
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::fprintf(stderr, "\r%c %s %.1fs", kSpinner[tick % 4], what_.c_str(), seconds);
    std::fflush(stderr);
    if (wake_.wait_for(lock, 100ms, [this] { return done_; })) break;
  }
  std::fputs("\r\033[K", stderr);
  std::fflush(stderr);
}

}  // namespace brenvale::tool
