#pragma once

#include <cstddef>
#include <cstdint>

#include "preproc/names.h"

// Finds records by their names in constant time.

namespace vorn {

// What a record must begin with to be kept in a NameTable.
struct NamedRecord {
    char* name = nullptr;  // owned by the record
    NamedRecord* next_in_bucket = nullptr;
    std::uint64_t name_hash = 0;  // written by NameTable::insert
};

// Holds records, owned elsewhere, with distinct names. Constant initialisation,
// so that it can be a program-wide variable.
class NameTable {
public:
    constexpr NameTable() : buckets_(first_) {}
    ~NameTable() { clear(); }
    NameTable(const NameTable&) = delete;
    NameTable& operator=(const NameTable&) = delete;

    NamedRecord* find(const Name& name) const;  // null: no record has that name
    void insert(NamedRecord& record);           // no record of that name may be in the table
    void remove(NamedRecord& record);           // must be in the table
    void clear();                               // forgets every record

private:
    static constexpr std::size_t FIRST_BUCKETS = 64;

    NamedRecord*& bucket_of(std::uint64_t hash) const { return buckets_[hash & (bucket_count_ - 1)]; }
    void grow();
    void use(NamedRecord** buckets, std::size_t count);

    NamedRecord* first_[FIRST_BUCKETS] = {};
    NamedRecord** buckets_;                     // first_, or owned once that is outgrown
    std::size_t bucket_count_ = FIRST_BUCKETS;  // a power of two
    std::size_t size_ = 0;
};

}  // namespace vorn
