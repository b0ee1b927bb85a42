#include "preproc/constant_list.h"

#include <string>

#include "support/held_memory.h"
#include "unit/preproc_fixture.h"

namespace {

using vorn::whole_name;

class ConstantList : public vorn::test::PreprocessorTest {
protected:
    static vorn::Constant* make(const char* name, double value) {
        auto* constant = new vorn::Constant();
        constant->name = vorn::copy_text(name);
        constant->value = value;
        return constant;
    }
};

TEST_F(ConstantList, NewestConstantStandsFirst) {
    EXPECT_EQ(vorn::store_var(make("a", 1)), 0);
    EXPECT_EQ(vorn::store_var(make("b", 2)), 0);
    EXPECT_STREQ(vorn::var_list->name, "b");
    EXPECT_STREQ(vorn::var_list->next->name, "a");
    EXPECT_EQ(vorn::find_var(whole_name("a"))->value, 1);
    EXPECT_EQ(vorn::find_var(whole_name("c")), nullptr);
}

TEST_F(ConstantList, SecondConstantOfANameIsRefusedAndDropped) {
    EXPECT_EQ(vorn::store_var(make("a", 1)), 0);
    EXPECT_EQ(vorn::store_var(make("a", 2)), 100);
    EXPECT_EQ(vorn::find_var(whole_name("a"))->value, 1);
    EXPECT_EQ(vorn::var_list->next, nullptr);
}

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
TEST_F(ConstantList, RefusedConstantGivesItsMemoryBack) {
    const std::string name(1'000'000, 'a');
    EXPECT_EQ(vorn::store_var(make(name.c_str(), 1)), 0);
    const std::size_t before = vorn::test::held_memory();
    vorn::Constant* refused = make(name.c_str(), 2);
    EXPECT_GT(vorn::test::held_memory(), before + name.size());
    EXPECT_EQ(vorn::store_var(refused), 100);
    EXPECT_LT(vorn::test::held_memory(), before + name.size());
}
#endif

TEST_F(ConstantList, FreedListIsEmpty) {
    EXPECT_EQ(vorn::store_var(make("a", 1)), 0);
    vorn::free_variable_list();
    EXPECT_EQ(vorn::var_list, nullptr);
    EXPECT_EQ(vorn::find_var(whole_name("a")), nullptr);
    vorn::free_variable_list();
}

TEST_F(ConstantList, PrintShowsNameAndValue) {
    EXPECT_EQ(vorn::store_var(make("a", 2.5)), 0);
    vorn::print_var(*vorn::var_list);
    EXPECT_EQ(messages(), "\n\tCONST a:    2.50");
}

}  // namespace
