#pragma once
// A callback through which records and collections notify the client.
#include <string>

#include "brenvale/core/Types.hpp"

namespace brenvale {

enum zqEnumEventTypes : std::int32_t {
  zqEventRecordProcessed = 1,
  zqEventCommitStarted = 2,
  zqEventCommitFinished = 3,
};

class zkEventSink {
 public:
  virtual ~zkEventSink() = default;
  virtual Variant Raise(zqEnumEventTypes EventId, const std::string& EventParam) = 0;
  virtual bool Disabled() const = 0;
  virtual void Disabled(bool value) = 0;
};

}  // namespace brenvale
