#pragma once
// Records and entities by handle: an open-addressing table in one array, so that reading a
// drawing of many thousand entities makes no allocation per handle. Handle 0 names nothing
// in a drawing and marks a free slot.
#include <algorithm>
#include <cstdint>
#include <vector>

namespace cadhost {

template <class Value>
class HandleIndex {
public:
    using Key = std::uint64_t;

    // Room for `count` handles without growing.
    void reserve(std::size_t count) {
        if (count > capacityFor(slots_.size())) rehash(sizeFor(count));
    }
    void clear() {
        slots_.clear();
        size_ = 0;
    }
    std::size_t size() const { return size_; }

    // The value of the handle, or none.
    const Value* find(Key key) const {
        if (key == 0 || slots_.empty()) return nullptr;
        for (std::size_t i = home(key);; i = after(i)) {
            const Slot& s = slots_[i];
            if (s.key == key) return &s.value;
            if (s.key == 0) return nullptr;
        }
    }
    // Adds the handle unless it is there already (the first one wins, as in the file).
    void emplace(Key key, Value value) {
        if (key == 0) return;
        if (size_ + 1 > capacityFor(slots_.size())) rehash(std::max(sizeFor(size_ + 1), slots_.size() * 2));
        std::size_t i = home(key);
        for (; slots_[i].key != 0; i = after(i))
            if (slots_[i].key == key) return;
        slots_[i] = {key, value};
        ++size_;
    }
    void erase(Key key) {
        if (key == 0 || slots_.empty()) return;
        std::size_t i = home(key);
        for (; slots_[i].key != key; i = after(i))
            if (slots_[i].key == 0) return;
        // Moves later entries of the same run back, so no search stops early at the hole.
        for (std::size_t j = after(i); slots_[j].key != 0; j = after(j)) {
            // The entry at j may fill the hole at i when its home is not within (i, j].
            if (distance(home(slots_[j].key), j) >= distance(i, j)) {
                slots_[i] = slots_[j];
                i = j;
            }
        }
        slots_[i] = {};
        --size_;
    }

private:
    struct Slot {
        Key key = 0;
        Value value{};
    };

    // At most seven slots in ten are used: short runs, and little memory beside the file.
    static std::size_t capacityFor(std::size_t room) { return room / 10 * 7; }
    static std::size_t sizeFor(std::size_t count) { return std::max<std::size_t>(16, count / 7 * 10 + 10); }
    std::size_t after(std::size_t i) const { return i + 1 == slots_.size() ? 0 : i + 1; }
    // Steps from slot a forward to slot b, around the end.
    std::size_t distance(std::size_t a, std::size_t b) const { return b >= a ? b - a : b + slots_.size() - a; }
    // Handles are often consecutive: mixing spreads them over the table, and the high bits
    // of the product with the size pick the slot (any size, no division).
    std::size_t home(Key key) const {
        key ^= key >> 33;
        key *= 0xFF51AFD7ED558CCDULL;
        key ^= key >> 33;
        return static_cast<std::size_t>((static_cast<unsigned __int128>(key) * slots_.size()) >> 64);
    }
    void rehash(std::size_t room) {
        std::vector<Slot> old(room);
        old.swap(slots_);
        size_ = 0;
        for (const Slot& s : old)
            if (s.key != 0) emplace(s.key, s.value);
    }

    std::vector<Slot> slots_;
    std::size_t size_ = 0;
};

}  // namespace cadhost
