#pragma once
// One collected failure: a validation rule that failed, or a record a batch could not commit.
#include <cstdint>
#include <string>

namespace brenvale {

class zkError {
 public:
  zkError() = default;
  zkError(std::int32_t number, std::string field, std::string description)
      : number_(number), field_(std::move(field)), description_(std::move(description)) {}

  const std::string& Key() const { return key_; }
  std::int32_t Number() const { return number_; }
  const std::string& Field() const { return field_; }
  const std::string& Description() const { return description_; }
  const std::string& CollectionKey() const { return key_; }

  // Library-internal setters.
  void SetKey(std::string v) { key_ = std::move(v); }
  void SetNumber(std::int32_t v) { number_ = v; }
  void SetField(std::string v) { field_ = std::move(v); }
  void SetDescription(std::string v) { description_ = std::move(v); }

 private:
  std::string key_;
  std::int32_t number_ = 0;
  std::string field_;
  std::string description_;
};

}  // namespace brenvale
