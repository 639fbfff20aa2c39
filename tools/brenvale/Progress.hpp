#pragma once
// A progress indicator on stderr for work that takes a while: nothing when stderr is not a
// terminal or the work ends within half a second; otherwise a spinner with the elapsed time,
// erased when the work ends.
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace brenvale::tool {

class Progress {
 public:
  explicit Progress(std::string what);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

 private:
  void Run();

  std::string what_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool done_ = false;
  std::thread thread_;
};

}  // namespace brenvale::tool
