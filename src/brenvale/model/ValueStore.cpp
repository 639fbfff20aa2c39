#include "brenvale/model/ValueStore.hpp"

#include <algorithm>
#include <cstring>
#include <new>
#include <string>

#include "brenvale/core/detail/Windows1252.hpp"

namespace brenvale {
namespace {

// A C1 control (U+0080..U+009F) in UTF-8: what a Windows-1252 reference of codes 128-159 becomes.
// Most texts are short: a plain loop beats a library search there.
bool HoldsC1(std::string_view text) {
  for (std::size_t at = 0; at + 1 < text.size(); ++at)
    if (text[at] == '\xC2') {
      const auto next = static_cast<unsigned char>(text[at + 1]);
      if (next >= 0x80 && next <= 0x9F) return true;
    }
  return false;
}

}  // namespace

ValueStore& ValueStore::operator=(ValueStore&& other) noexcept {
  if (this != &other) {
    ::operator delete(block_);
    block_ = other.block_;
    other.block_ = nullptr;
  }
  return *this;
}

ValueStore::~ValueStore() { ::operator delete(block_); }

std::span<const ValueStore::Slot> ValueStore::Slots() const {
  if (!block_) return {};
  return {SlotsOf(block_), block_->count};
}

const ValueStore::Slot* ValueStore::Find(FieldId id) const {
  if (!block_) return nullptr;
  const Slot* first = SlotsOf(block_);
  const Slot* last = first + block_->count;
  // Reading fills fields in id order, so the last slot is worth a look first.
  if (first != last && last[-1].id == id) return last - 1;
  const Slot* at = std::lower_bound(first, last, id, [](const Slot& s, FieldId v) { return s.id < v; });
  return at != last && at->id == id ? at : nullptr;
}

std::string_view ValueStore::Text(const Slot& slot) const {
  if (!(slot.flags & kText)) return {};
  return {TextOf(block_) + slot.offset, static_cast<std::size_t>(slot.bits)};
}

std::string_view ValueStore::First(const Slot& slot) const {
  if (!(slot.flags & kPair)) return {};
  return Text(slot).substr(0, slot.extra);
}

std::string_view ValueStore::Second(const Slot& slot) const {
  if (!(slot.flags & kPair)) return Text(slot);
  return Text(slot).substr(slot.extra);
}

ValueStore::Slot& ValueStore::Place(FieldId id) {
  if (!block_ || block_->count == block_->capacity) Grow(1, 0);
  Slot* first = SlotsOf(block_);
  Slot* last = first + block_->count;
  Slot* at = (first == last || last[-1].id < id)
                 ? last
                 : std::lower_bound(first, last, id, [](const Slot& s, FieldId v) { return s.id < v; });
  if (at != last && at->id == id) return *at;
  std::memmove(at + 1, at, static_cast<std::size_t>(last - at) * sizeof(Slot));
  *at = Slot{id, 0, 0, 0, 0};
  ++block_->count;
  return *at;
}

void ValueStore::Grow(std::size_t slots, std::size_t text) {
  const std::size_t count = block_ ? block_->count : 0;
  const std::size_t live = block_ ? block_->textSize - block_->dead : 0;
  std::size_t slotCapacity = block_ ? block_->capacity : 0;
  if (count + slots > slotCapacity) slotCapacity = std::max<std::size_t>({count + slots, slotCapacity * 2, 8});
  std::size_t textCapacity = block_ ? block_->textCapacity : 0;
  if (live + text > textCapacity) textCapacity = std::max<std::size_t>({live + text, textCapacity * 3 / 2, 64});
  if (slotCapacity > 0xFFFF) throw std::bad_alloc();

  auto* fresh = static_cast<Header*>(
      ::operator new(sizeof(Header) + slotCapacity * sizeof(Slot) + textCapacity));
  fresh->count = static_cast<std::uint16_t>(count);
  fresh->capacity = static_cast<std::uint16_t>(slotCapacity);
  fresh->textCapacity = static_cast<std::uint32_t>(textCapacity);
  fresh->textSize = 0;
  fresh->dead = 0;
  if (block_) {
    Slot* to = SlotsOf(fresh);
    std::memcpy(to, SlotsOf(block_), count * sizeof(Slot));
    if (block_->dead == 0) {
      std::memcpy(TextOf(fresh), TextOf(block_), block_->textSize);
      fresh->textSize = block_->textSize;
    } else {
      // Only the live texts move; their offsets follow.
      char* out = TextOf(fresh);
      for (std::size_t i = 0; i < count; ++i) {
        if (!(to[i].flags & kText)) continue;
        std::memcpy(out + fresh->textSize, TextOf(block_) + to[i].offset, static_cast<std::size_t>(to[i].bits));
        to[i].offset = fresh->textSize;
        fresh->textSize += static_cast<std::uint32_t>(to[i].bits);
      }
    }
    ::operator delete(block_);
  }
  block_ = fresh;
}

std::uint32_t ValueStore::Append(std::string_view a, std::string_view b) {
  const std::size_t need = a.size() + b.size();
  // Growing drops the dead texts first, so a record set over and over does not grow for ever.
  if (!block_ || block_->textSize + need > block_->textCapacity) Grow(0, need);
  char* out = TextOf(block_) + block_->textSize;
  if (!a.empty()) std::memcpy(out, a.data(), a.size());
  if (!b.empty()) std::memcpy(out + a.size(), b.data(), b.size());
  const std::uint32_t offset = block_->textSize;
  block_->textSize += static_cast<std::uint32_t>(need);
  return offset;
}

void ValueStore::SetText(FieldId id, std::string_view text, std::uint8_t flags) {
  SetPair(id, {}, text, static_cast<std::uint8_t>(flags & ~kPair));
}

void ValueStore::SetPair(FieldId id, std::string_view first, std::string_view second, std::uint8_t flags) {
  // Texts that lie in this buffer are copied first: the buffer may move.
  std::string keep;
  if (block_) {
    const char* begin = TextOf(block_);
    const char* end = begin + block_->textCapacity;
    auto inside = [&](std::string_view t) { return !t.empty() && t.data() >= begin && t.data() < end; };
    if (inside(first) || inside(second)) {
      keep.assign(first).append(second);
      first = std::string_view(keep).substr(0, first.size());
      second = std::string_view(keep).substr(first.size());
    }
  }
  if (first.size() > 0xFFFF) throw std::length_error("a reference's ListID is too long");
  const std::size_t index = static_cast<std::size_t>(&Place(id) - SlotsOf(block_));
  {
    Slot& s = SlotsOf(block_)[index];
    if (s.flags & kText) block_->dead += static_cast<std::uint32_t>(s.bits);
    s.flags = 0;
  }
  const std::uint32_t offset = Append(first, second);
  Slot& s = SlotsOf(block_)[index];
  s.offset = offset;
  s.bits = first.size() + second.size();
  s.extra = static_cast<std::uint16_t>(first.size());
  s.flags = static_cast<std::uint8_t>(flags | kText | ((flags & kPair) ? kPair : 0));
}

ValueStore::Slot* ValueStore::AppendSlot(FieldId id, std::size_t text) {
  if (!block_ || block_->count == block_->capacity || block_->textSize + text > block_->textCapacity) return nullptr;
  Slot* slots = SlotsOf(block_);
  if (block_->count > 0 && slots[block_->count - 1].id >= id) return nullptr;
  Slot* s = slots + block_->count++;
  *s = Slot{id, 0, 0, 0, 0};
  return s;
}

void ValueStore::ReadPair(FieldId id, std::string_view first, std::string_view second, std::uint8_t flags) {
  const std::size_t size = first.size() + second.size();
  Slot* s = first.size() <= 0xFFFF ? AppendSlot(id, size) : nullptr;
  if (!s) {
    SetPair(id, first, second, flags);
    return;
  }
  char* out = TextOf(block_) + block_->textSize;
  if (!first.empty()) std::memcpy(out, first.data(), first.size());
  if (!second.empty()) std::memcpy(out + first.size(), second.data(), second.size());
  s->offset = block_->textSize;
  s->bits = size;
  s->extra = static_cast<std::uint16_t>(first.size());
  s->flags = static_cast<std::uint8_t>(flags | kText);
  block_->textSize += static_cast<std::uint32_t>(size);
}

void ValueStore::ReadBits(FieldId id, std::uint64_t bits) {
  if (Slot* s = AppendSlot(id, 0)) {
    s->bits = bits;
    return;
  }
  SetBits(id, bits, 0);
}

void ValueStore::SetBits(FieldId id, std::uint64_t bits, std::uint8_t flags) {
  Slot& s = Place(id);
  if (s.flags & kText) block_->dead += static_cast<std::uint32_t>(s.bits);
  s.flags = static_cast<std::uint8_t>(flags & ~(kText | kPair));
  s.offset = 0;
  s.extra = 0;
  s.bits = bits;
}

void ValueStore::MarkChanged(FieldId id, bool changed) {
  if (!block_) return;
  auto* s = const_cast<Slot*>(Find(id));
  if (!s) return;
  s->flags = static_cast<std::uint8_t>(changed ? s->flags | kChanged : s->flags & ~kChanged);
}

void ValueStore::ClearChanged() {
  if (!block_) return;
  Slot* s = SlotsOf(block_);
  for (std::size_t i = 0; i < block_->count; ++i) s[i].flags = static_cast<std::uint8_t>(s[i].flags & ~kChanged);
}

void ValueStore::Erase(FieldId id) {
  auto* s = const_cast<Slot*>(Find(id));
  if (!s) return;
  if (s->flags & kText) block_->dead += static_cast<std::uint32_t>(s->bits);
  Slot* last = SlotsOf(block_) + block_->count;
  std::memmove(s, s + 1, static_cast<std::size_t>(last - s - 1) * sizeof(Slot));
  --block_->count;
}

void ValueStore::Reserve(std::size_t slots, std::size_t text) {
  const std::size_t freeSlots = block_ ? block_->capacity - block_->count : 0;
  const std::size_t freeText = block_ ? block_->textCapacity - block_->textSize : 0;
  if (slots > freeSlots || text > freeText)
    Grow(slots > freeSlots ? slots : 0, text > freeText ? text : 0);
}

std::size_t ValueStore::TextSize() const { return block_ ? block_->textSize : 0; }

void ValueStore::FixC1(FieldId id) {
  const Slot* s = Find(id);
  if (!s || !(s->flags & kText) || !HoldsC1(Text(*s))) return;
  std::string first(First(*s)), second(Second(*s));
  detail::FixC1Controls(first);
  detail::FixC1Controls(second);
  SetPair(id, first, second, s->flags);
}

}  // namespace brenvale
