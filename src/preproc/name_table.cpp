#include "preproc/name_table.h"

#include <new>

// A hash table with chains. It starts in buckets of its own, so that it needs
// no memory for a handful of names and can never fail; when the records outnumber
// the buckets, it moves to twice as many. Should memory run out then, the
// chains merely grow longer.
//
// Invariant: a record is in the chain that its name_hash selects, once.

namespace vorn {

namespace {

// FNV-1a (Fowler, Noll, Vo).
std::uint64_t hash_of(const Name& name) {
    std::uint64_t hash = 14695981039346656037u;
    for (std::size_t at = 0; at < name.length; ++at) {
        hash = (hash ^ static_cast<unsigned char>(name.start[at])) * 1099511628211u;
    }
    return hash ^ (hash >> 32);
}

}  // namespace

NamedRecord* NameTable::find(const Name& name) const {
    const std::uint64_t hash = hash_of(name);
    NamedRecord* record = bucket_of(hash);
    while (record != nullptr && !(record->name_hash == hash && same_name(name, record->name))) {
        record = record->next_in_bucket;
    }
    return record;
}

void NameTable::insert(NamedRecord& record) {
    if (size_ == bucket_count_) grow();
    record.name_hash = hash_of(whole_name(record.name));
    NamedRecord*& bucket = bucket_of(record.name_hash);
    record.next_in_bucket = bucket;
    bucket = &record;
    ++size_;
}

void NameTable::remove(NamedRecord& record) {
    NamedRecord** link = &bucket_of(record.name_hash);
    while (*link != &record) link = &(*link)->next_in_bucket;
    *link = record.next_in_bucket;
    record.next_in_bucket = nullptr;
    --size_;
}

void NameTable::clear() {
    use(first_, FIRST_BUCKETS);
    size_ = 0;
    for (NamedRecord*& bucket : first_) bucket = nullptr;
}

void NameTable::grow() {
    const std::size_t count = 2 * bucket_count_;
    NamedRecord** larger = new (std::nothrow) NamedRecord*[count]();
    if (larger == nullptr) return;
    for (std::size_t at = 0; at < bucket_count_; ++at) {
        for (NamedRecord* record = buckets_[at]; record != nullptr;) {
            NamedRecord* next = record->next_in_bucket;
            NamedRecord*& bucket = larger[record->name_hash & (count - 1)];
            record->next_in_bucket = bucket;
            bucket = record;
            record = next;
        }
    }
    use(larger, count);
}

void NameTable::use(NamedRecord** buckets, std::size_t count) {
    if (buckets_ != first_) delete[] buckets_;
    buckets_ = buckets;
    bucket_count_ = count;
}

}  // namespace vorn
