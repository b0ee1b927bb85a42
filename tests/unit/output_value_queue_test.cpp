#include "output/value_queue.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "input/run_flags.h"

namespace {

using vorn::QNode;
using Entries = std::vector<std::pair<float, std::uint32_t>>;

struct ValueQueue : testing::Test {
    QNode* queue = nullptr;
    ~ValueQueue() override { vorn::FreeQNodes(queue); }

    bool put(float value, std::uint32_t code = 0) { return vorn::StoreInQ(queue, code, value); }

    // From the head to the tail; every link back is checked on the way.
    Entries entries() const {
        Entries all;
        if (queue == nullptr) return all;
        const QNode* node = queue;
        do {
            EXPECT_EQ(node->next->prev, node);
            node = node->next;
            all.emplace_back(node->value, node->code);
        } while (node != queue);
        return all;
    }
};

struct StoreInQ : ValueQueue {};
struct QueueLimit : ValueQueue {};
struct DoQEvent : ValueQueue {};
struct FreeQNodes : ValueQueue {};

struct TraverseQ : ValueQueue {
    std::FILE* output = std::tmpfile();
    std::FILE* const saved_output = vorn::std_out;
    TraverseQ() { vorn::std_out = output; }
    ~TraverseQ() override {
        vorn::std_out = saved_output;
        std::fclose(output);
    }
    std::string dump(bool backwards) {
        vorn::TraverseQ(queue, backwards);
        std::rewind(output);
        std::string text;
        for (int c = std::fgetc(output); c != EOF; c = std::fgetc(output)) text += static_cast<char>(c);
        return text;
    }
};

}  // namespace

TEST_F(QueueLimit, IsThatOfOneQueue) {
    vorn::queued_values = vorn::MAX_QUEUED - 2;
    EXPECT_TRUE(put(1.0F));
    EXPECT_TRUE(put(2.0F, 1));
    EXPECT_FALSE(put(3.0F));
    EXPECT_FALSE(vorn::DoQEvent(queue));
    EXPECT_EQ(entries(), (Entries{{1.0F, 0}, {2.0F, 1}}));
    vorn::FreeQNodes(queue);
    EXPECT_EQ(vorn::queued_values, 0U);
    EXPECT_TRUE(put(1.0F));
}

TEST_F(QueueLimit, CountsEveryValueOfAGroupThatIsRepeated) {
    EXPECT_TRUE(put(1.0F));
    EXPECT_TRUE(put(2.0F, 1));
    vorn::queued_values = vorn::MAX_QUEUED - 3;
    EXPECT_TRUE(vorn::DoQEvent(queue));
    EXPECT_FALSE(vorn::DoQEvent(queue));
}

#ifndef __SANITIZE_ADDRESS__  // whose memory is far more than is lent here
TEST_F(StoreInQ, FailsWithoutMemoryAndKeepsWhatIsThere) {
    rlimit saved = {};
    ASSERT_EQ(getrlimit(RLIMIT_AS, &saved), 0);
    const rlimit little = {rlim_t{1} << 20, saved.rlim_max};  // less than the program has: nothing is added
    ASSERT_EQ(setrlimit(RLIMIT_AS, &little), 0);
    std::size_t stored = 0;
    while (stored < 10'000'000 && put(static_cast<float>(stored))) ++stored;
    setrlimit(RLIMIT_AS, &saved);
    EXPECT_LT(stored, 10'000'000U);
    EXPECT_EQ(entries().size(), stored);
    EXPECT_EQ(vorn::queued_values, stored);
}
#endif

TEST_F(StoreInQ, OneValueIsARing) {
    ASSERT_TRUE(put(1.5F));
    EXPECT_EQ(queue->next, queue);
    EXPECT_EQ(queue->prev, queue);
    EXPECT_EQ(entries(), (Entries{{1.5F, 0}}));
}

TEST_F(StoreInQ, ValuesStandInTheOrderOfStoring) {
    put(1.0F);
    put(2.0F, 1);
    put(3.0F);
    EXPECT_EQ(entries(), (Entries{{1.0F, 0}, {2.0F, 1}, {3.0F, 0}}));
    EXPECT_EQ(queue->value, 3.0F);
}

TEST_F(StoreInQ, FusedValueIntoAnEmptyQueueFails) {
    EXPECT_FALSE(put(1.0F, 1));
    EXPECT_EQ(queue, nullptr);
}

TEST_F(DoQEvent, CopiesASingleValue) {
    put(1.0F);
    put(2.0F);
    ASSERT_TRUE(vorn::DoQEvent(queue));
    EXPECT_EQ(entries(), (Entries{{1.0F, 0}, {2.0F, 0}, {2.0F, 0}}));
}

TEST_F(DoQEvent, CopiesTheWholeLastGroup) {
    put(1.0F);
    put(2.0F);
    put(3.0F, 1);
    put(4.0F, 1);
    ASSERT_TRUE(vorn::DoQEvent(queue));
    EXPECT_EQ(entries(),
              (Entries{{1.0F, 0}, {2.0F, 0}, {3.0F, 1}, {4.0F, 1}, {2.0F, 0}, {3.0F, 1}, {4.0F, 1}}));
}

TEST_F(DoQEvent, CopiesTheOnlyGroupAgainAndAgain) {
    put(1.0F);
    put(2.0F, 1);
    EXPECT_TRUE(vorn::DoQEvent(queue));
    EXPECT_TRUE(vorn::DoQEvent(queue));
    EXPECT_EQ(entries(), (Entries{{1.0F, 0}, {2.0F, 1}, {1.0F, 0}, {2.0F, 1}, {1.0F, 0}, {2.0F, 1}}));
}

TEST_F(DoQEvent, FailsForAnEmptyQueue) {
    EXPECT_FALSE(vorn::DoQEvent(queue));
    EXPECT_EQ(queue, nullptr);
}

TEST_F(TraverseQ, GoesBackFromTheTail) {
    put(1.0F);
    put(2.5F, 1);
    EXPECT_EQ(dump(true), "\n2.500000 1\n1.000000 0");
}

TEST_F(TraverseQ, GoesForwardFromTheHead) {
    put(1.0F);
    put(2.5F, 1);
    EXPECT_EQ(dump(false), "\n1.000000 0\n2.500000 1");
}

TEST_F(TraverseQ, SaysThatAQueueIsEmpty) { EXPECT_EQ(dump(false), "empty"); }

TEST_F(FreeQNodes, NullsTheHandle) {
    put(1.0F);
    put(2.0F);
    put(3.0F);
    vorn::FreeQNodes(queue);
    EXPECT_EQ(queue, nullptr);
    vorn::FreeQNodes(queue);
    EXPECT_EQ(queue, nullptr);
}
