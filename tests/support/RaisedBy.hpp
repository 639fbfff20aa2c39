#pragma once
// Runs code that must raise a library error and hands the error back for checking.
#include <gtest/gtest.h>

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale::testing {

// Runs `f`, which must raise a library error, and returns that error.
template <class F>
BrenvaleError RaisedBy(F&& f) {
  try {
    f();
  } catch (const BrenvaleError& e) {
    return e;
  }
  ADD_FAILURE() << "no error was raised";
  return BrenvaleError(0, {}, {});
}

}  // namespace brenvale::testing
