#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>

namespace vorn {

// An array of plain records that grows with what a composer writes. Running out
// of memory is a result, not an exception: the array then stays as it was.
template <typename Record>
class GrowingArray {
    static_assert(std::is_trivially_copyable_v<Record>);

public:
    GrowingArray() = default;
    ~GrowingArray() { delete[] records_; }
    GrowingArray(const GrowingArray&) = delete;
    GrowingArray& operator=(const GrowingArray&) = delete;

    // False: out of memory.
    [[nodiscard]] bool append(const Record& record) {
        const Record copy = record;
        if (size_ == capacity_ && !grow(capacity_ == 0 ? FIRST_CAPACITY : 2 * capacity_)) return false;
        records_[size_++] = copy;
        return true;
    }

    std::size_t size() const { return size_; }
    Record* data() { return records_; }
    const Record* data() const { return records_; }
    Record& operator[](std::size_t index) { return records_[index]; }
    const Record& operator[](std::size_t index) const { return records_[index]; }

private:
    static constexpr std::size_t FIRST_CAPACITY = 8;

    bool grow(std::size_t capacity) {
        Record* larger = new (std::nothrow) Record[capacity];
        if (larger == nullptr) return false;
        if (size_ > 0) std::memcpy(larger, records_, size_ * sizeof(Record));
        delete[] records_;
        records_ = larger;
        capacity_ = capacity;
        return true;
    }

    Record* records_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace vorn
