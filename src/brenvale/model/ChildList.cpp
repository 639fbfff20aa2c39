#include "brenvale/model/ChildList.hpp"

#include "brenvale/core/BrenvaleError.hpp"

namespace brenvale {

RecordCore& ChildListBase::At(std::size_t position) const {
  if (!ItemExists(position)) platform::Raise(platform::kSubscriptOutOfRange, owner_->Label());
  return *children_[position - 1];
}

RecordCore& ChildListBase::AddNew(std::size_t beforeIndex) {
  if (beforeIndex != 0 && !ItemExists(beforeIndex))
    platform::Raise(platform::kSubscriptOutOfRange, owner_->Label());
  std::unique_ptr<RecordCore> child(form_->make(*form_));
  child->owner_ = owner_;
  RecordCore& added = *child;
  auto at = beforeIndex == 0 ? children_.end() : children_.begin() + static_cast<std::ptrdiff_t>(beforeIndex - 1);
  children_.insert(at, std::move(child));
  added.AttachTo(*owner_);
  Changed();
  return added;
}

void ChildListBase::Remove(std::size_t position) {
  if (!ItemExists(position)) platform::Raise(platform::kSubscriptOutOfRange, owner_->Label());
  children_.erase(children_.begin() + static_cast<std::ptrdiff_t>(position - 1));
  Changed();
}

void ChildListBase::Clear() {
  children_.clear();
  Changed();
}

void ChildListBase::Changed() { owner_->MarkChanged(false); }

zkErrors& ChildListBase::Errors() {
  if (!errors_) errors_ = std::make_unique<zkErrors>();
  return *errors_;
}

}  // namespace brenvale
