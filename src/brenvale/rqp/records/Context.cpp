#include "brenvale/rqp/records/Context.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "brenvale/rqp/protocol/Times.hpp"

namespace brenvale::rqp::detail {

Context::Context(Store& store, const HostFacts& facts, std::string path, bool singleUser)
    : store_(store), facts_(facts), path_(std::move(path)), singleUser_(singleUser), now_(std::time(nullptr)) {}

void Context::Tick() { now_ = std::time(nullptr); }

std::string Context::NowText() const { return DateTimeText(now_); }
std::string Context::TodayText() const { return DateText(now_); }

std::string Context::NewListId() {
  char buf[40];
  std::snprintf(buf, sizeof buf, "%llX-%lld",
                0x80000000ULL + static_cast<unsigned long long>(store_.NextNumber("listid")),
                static_cast<long long>(now_));
  return buf;
}

std::string Context::NextEditSequence(std::string_view previous) const {
  long long prev = previous.empty() ? 0 : std::atoll(std::string(previous).c_str());
  return std::to_string(std::max<long long>(now_, prev + 1));
}

}  // namespace brenvale::rqp::detail
