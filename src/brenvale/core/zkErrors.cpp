#include "brenvale/core/zkErrors.hpp"

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale {

zkError& zkErrors::Add(std::int32_t code, std::string field, std::string message) {
  return list_.Add(zkError(code, std::move(field), std::move(message)));
}

zkError& zkErrors::AddCode(int code, std::string field, std::string_view message) {
  std::string text(message.empty() ? ErrorMessage(code) : message);
  return Add(ErrorNumber(code), std::move(field), std::move(text));
}

std::int32_t zkErrors::AddObject(const zkError& entry) {
  list_.Add(entry, entry.CollectionKey());
  return Count();
}

}  // namespace brenvale
