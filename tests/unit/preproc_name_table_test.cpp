#include "preproc/name_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

namespace {

class Records {
public:
    explicit Records(int count) : names_(static_cast<std::size_t>(count)), records_(names_.size()) {
        for (std::size_t at = 0; at < names_.size(); ++at) {
            names_[at] = "name" + std::to_string(at);
            records_[at].name = names_[at].data();
        }
    }

    vorn::NamedRecord& operator[](int at) { return records_[static_cast<std::size_t>(at)]; }

private:
    std::vector<std::string> names_;
    std::vector<vorn::NamedRecord> records_;
};

vorn::NamedRecord* find(const vorn::NameTable& table, const std::string& name) {
    return table.find(vorn::Name{name.c_str(), name.size()});
}

TEST(NameTable, FindsEveryRecordThroughAllItsGrowth) {
    vorn::NameTable table;
    Records records(5000);
    for (int at = 0; at < 5000; ++at) {
        EXPECT_EQ(find(table, "name" + std::to_string(at)), nullptr);
        table.insert(records[at]);
    }
    for (int at = 0; at < 5000; ++at) EXPECT_EQ(find(table, "name" + std::to_string(at)), &records[at]);
    EXPECT_EQ(find(table, "name"), nullptr);
    EXPECT_EQ(find(table, ""), nullptr);
    EXPECT_EQ(find(table, "name5000"), nullptr);
}

TEST(NameTable, FindsAStretchOfALongerText) {
    vorn::NameTable table;
    Records records(2);
    table.insert(records[1]);
    EXPECT_EQ(table.find(vorn::Name{"name12", 5}), &records[1]);
    EXPECT_EQ(table.find(vorn::Name{"name12", 6}), nullptr);
    EXPECT_EQ(table.find(vorn::Name{"name12", 4}), nullptr);
}

TEST(NameTable, RemovedRecordIsGoneAndTheOthersStay) {
    vorn::NameTable table;
    Records records(1000);
    for (int at = 0; at < 1000; ++at) table.insert(records[at]);
    for (int at = 0; at < 1000; at += 2) table.remove(records[at]);
    for (int at = 0; at < 1000; ++at) {
        EXPECT_EQ(find(table, "name" + std::to_string(at)), at % 2 == 0 ? nullptr : &records[at]);
    }
    table.insert(records[0]);
    EXPECT_EQ(find(table, "name0"), &records[0]);
}

TEST(NameTable, ClearedTableIsEmptyAndUsable) {
    vorn::NameTable table;
    Records records(500);
    for (int at = 0; at < 500; ++at) table.insert(records[at]);
    table.clear();
    for (int at = 0; at < 500; ++at) EXPECT_EQ(find(table, "name" + std::to_string(at)), nullptr);
    table.insert(records[3]);
    EXPECT_EQ(find(table, "name3"), &records[3]);
}

double seconds_of_look_ups(int names) {
    vorn::NameTable table;
    Records records(names);
    for (int at = 0; at < names; ++at) table.insert(records[at]);
    const auto start = std::chrono::steady_clock::now();
    int found = 0;
    for (int round = 0; round < 20000; ++round) found += find(table, "name7") != nullptr;
    EXPECT_EQ(found, 20000);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// The shortest of some measurements, which a busy machine disturbs least.
double shortest_time(int names) {
    double shortest = seconds_of_look_ups(names);
    for (int round = 0; round < 4; ++round) shortest = std::min(shortest, seconds_of_look_ups(names));
    return shortest;
}

TEST(NameTable, LookUpDoesNotSlowDownWithTheNumberOfNames) {
    // A walk over a list would take some thousand times as long.
    EXPECT_LT(shortest_time(50000), 100 * shortest_time(10));
}

}  // namespace
