#pragma once
// The session values that the whole library reads: set when a connection is opened, kept in this
// thread's library state, read by the request builder and the sending code.
#include <functional>
#include <memory>
#include <string>

#include "brenvale/core/Currency.hpp"
#include "brenvale/core/RequestProcessor.hpp"

namespace brenvale {

struct Session {
  std::string qbxmlVersion;            // "7.0", "CA3.0" ...; empty before a connection
  Currency qbXMLVersionNumber;         // the version gate of every element writer
  bool isOnline = false;               // connected to the online edition
  std::shared_ptr<IRequestProcessor> processor;
  std::string ticket;                  // session ticket of "BeginSession"
  std::string tracePath;               // the session's trace file; empty = none
  std::string dataExtOwnerID;          // GUID registered for application-defined data extensions
  std::string eventSubscriberID;       // GUID registered for event subscriptions
  std::string country;                 // the company's edition as the host query reports it ("US")
  bool connectionOpen = false;
  // Whether a collection commit with failures raises 1023 after the batch.
  bool commitRaises = true;
  // Whether any of the company's data-extension definitions is assigned to an object type; set
  // by the data-extension subsystem, consulted by the request builder's OwnerID writer.
  std::function<bool(int objectType)> dataExtAssignedTo;
};

// This thread's session.
Session& CurrentSession();

// The version number of a version text: "7.0" -> 7.0, "CA3.0" -> 3.0, "" -> 0.
Currency VersionNumberOf(const std::string& versionText);

}  // namespace brenvale
