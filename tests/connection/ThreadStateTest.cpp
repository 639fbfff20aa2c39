// The library's state of a thread goes in order when the thread ends: a connection left open is
// closed while the session it uses is still there.
#include <gtest/gtest.h>

#include <thread>

#include "brenvale/Brenvale.hpp"
#include "support/ScriptedProcessor.hpp"

namespace {

using brenvale::testing::ScriptedRegistration;

TEST(ThreadState, AThreadEndingWithItsConnectionOpenEndsItsSession) {
  ScriptedRegistration reg("Test.ThreadEnd");
  std::thread worker([&] {
    brenvale::BrenvaleGlobals::QBConnection().RequestProcessorProgId(reg.ProgId());
    brenvale::BrenvaleGlobals::QBConnect("", "a thread", brenvale::qbOpenModeDontCare, "C:\\Thread.qbw");
    brenvale::BrenvaleGlobals::JobTypes().Add("Left open");
    // The thread ends here with its connection open and a record in a master collection.
  });
  worker.join();
  ASSERT_NE(reg.last, nullptr);
  const auto& calls = reg.last->calls;
  ASSERT_GE(calls.size(), 2u);
  EXPECT_EQ(std::vector<std::string>(calls.end() - 2, calls.end()),
            (std::vector<std::string>{"EndSession", "CloseConnection"}));
}

}  // namespace
