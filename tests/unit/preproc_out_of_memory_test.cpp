#include <new>
#include <vector>

#include "preproc/constant_definition.h"
#include "preproc/macro_call.h"
#include "preproc/macro_definition.h"
#include "preproc/macro_list.h"
#include "unit/preproc_fixture.h"

// Every allocation of the preprocessor fails once here. The allocations that may
// fail are those that ask for no exception, and these are replaced.

namespace {

int allocations_left = -1;  // -1: no limit

bool fails() {
    if (allocations_left < 0) return false;
    if (allocations_left == 0) return true;
    --allocations_left;
    return false;
}

}  // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return fails() ? nullptr : ::operator new(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return fails() ? nullptr : ::operator new[](size);
}

namespace {

using vorn::test::Line;

class OutOfMemory : public vorn::test::PreprocessorTest {
protected:
    void TearDown() override {
        allocations_left = -1;
        PreprocessorTest::TearDown();
    }

    // Runs a step with 0, 1, 2, ... allocations allowed until it succeeds; returns
    // how often it has failed. Every failure must have the given number.
    template <typename Step>
    static int failures(int expected, Step step) {
        for (int allowed = 0;; ++allowed) {
            allocations_left = allowed;
            const int result = step();
            allocations_left = -1;
            if (result == 0) return allowed;
            EXPECT_EQ(result, expected);
            if (result != expected) return -1;
        }
    }

    static int define(const char* text) {
        vorn::Reader reader;
        std::strcpy(reader.text, text);
        return text[0] == 'c' ? vorn::parse_var(reader) : vorn::parse_macro(reader);
    }
};

TEST_F(OutOfMemory, InADefinition) {
    // The record, its name, its body.
    EXPECT_EQ(failures(32, [] { return define("define M #body#"); }), 3);
    EXPECT_STREQ(vorn::find_macro(vorn::whole_name("M"))->body, "body");
}

TEST_F(OutOfMemory, InADefinitionWithFormals) {
    // The record, its name, for each formal two, its body.
    EXPECT_EQ(failures(32, [] { return define("define M(a'b) #body#"); }), 7);
}

TEST_F(OutOfMemory, InACall) {
    ASSERT_EQ(define("define N #5#"), 0);
    ASSERT_EQ(define("define M(a'b) #$a$N$b#"), 0);
    Line line("");
    const int failed = failures(32, [&line] {
        line = Line("$M(1'2)", 1);
        vorn::ExpansionBudget budget;
        return vorn::expand_macro(line.text, line.pos, 1, budget);
    });
    // M: record, name, body, two formals; two arguments: record, name, body each;
    // the work buffer; a, N, b: record, name, body each.
    EXPECT_EQ(failed, 5 + 6 + 1 + 9);
    EXPECT_STREQ(line.text, "152");
}

TEST_F(OutOfMemory, InAConstant) {
    EXPECT_EQ(failures(102, [] { return define("const A 1"); }), 2);
}

TEST_F(OutOfMemory, TableThatCannotGrowStillFindsEveryName) {
    std::vector<std::string> names(1000);
    std::vector<vorn::NamedRecord> records(names.size());
    vorn::NameTable table;
    allocations_left = 0;
    for (std::size_t at = 0; at < names.size(); ++at) {
        names[at] = "n" + std::to_string(at);
        records[at].name = names[at].data();
        table.insert(records[at]);
    }
    for (std::size_t at = 0; at < names.size(); ++at) {
        EXPECT_EQ(table.find(vorn::whole_name(names[at].c_str())), &records[at]);
    }
}

}  // namespace
