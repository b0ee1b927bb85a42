#include "preproc/macro_list.h"

#include <cstring>

#include "support/failing_allocations.h"
#include "unit/preproc_fixture.h"

namespace {

using vorn::Macro;
using vorn::whole_name;

class MacroList : public vorn::test::PreprocessorTest {
protected:
    static Macro* make(const char* name, const char* body,
                       std::initializer_list<const char*> arguments = {}) {
        auto* macro = new Macro();
        macro->name = vorn::copy_text(name);
        macro->body = vorn::copy_text(body);
        for (const char* argument : arguments) {
            macro->argument_names[macro->argument_count++] = vorn::copy_text(argument);
        }
        return macro;
    }

    static std::string names() {
        std::string all;
        for (const Macro* macro = vorn::macro_list; macro != nullptr; macro = macro->next) all += macro->name;
        return all;
    }
};

TEST_F(MacroList, NewestMacroStandsFirst) {
    EXPECT_EQ(vorn::store_macro(make("a", "1")), 0);
    EXPECT_EQ(vorn::store_macro(make("b", "2")), 0);
    EXPECT_EQ(vorn::store_macro(make("c", "3")), 0);
    EXPECT_EQ(names(), "cba");
    EXPECT_STREQ(vorn::find_macro(whole_name("b"))->body, "2");
}

TEST_F(MacroList, SecondMacroOfANameIsRefusedAndDropped) {
    EXPECT_EQ(vorn::store_macro(make("a", "1")), 0);
    const int open = vorn::test::allocations_open;
    EXPECT_EQ(vorn::store_macro(make("a", "2", {"x"})), 84);
    EXPECT_EQ(vorn::test::allocations_open, open);
    EXPECT_EQ(names(), "a");
    EXPECT_STREQ(vorn::find_macro(whole_name("a"))->body, "1");
}

TEST_F(MacroList, RemovedMacroLeavesTheOthersInOrder) {
    for (const char* name : {"a", "b", "c", "d"}) EXPECT_EQ(vorn::store_macro(make(name, "")), 0);
    vorn::remove_macro(vorn::find_macro(whole_name("b")));
    EXPECT_EQ(names(), "dca");
    vorn::remove_macro(vorn::find_macro(whole_name("d")));
    EXPECT_EQ(names(), "ca");
    vorn::remove_macro(vorn::find_macro(whole_name("a")));
    EXPECT_EQ(names(), "c");
    EXPECT_EQ(vorn::find_macro(whole_name("a")), nullptr);
    vorn::remove_macro(vorn::find_macro(whole_name("c")));
    EXPECT_EQ(vorn::macro_list, nullptr);
    EXPECT_EQ(vorn::store_macro(make("a", "again")), 0);
    EXPECT_STREQ(vorn::find_macro(whole_name("a"))->body, "again");
}

TEST_F(MacroList, FreedListIsEmpty) {
    EXPECT_EQ(vorn::store_macro(make("a", "1")), 0);
    vorn::free_macro_list();
    EXPECT_EQ(vorn::macro_list, nullptr);
    EXPECT_EQ(vorn::find_macro(whole_name("a")), nullptr);
    vorn::free_macro_list();
}

TEST_F(MacroList, CopyIsDeep) {
    const vorn::OwnedMacro macro(make("M", "$a", {"a", "b"}));
    const vorn::OwnedMacro copy(vorn::copy_macro(*macro));
    EXPECT_STREQ(copy->name, "M");
    EXPECT_STREQ(copy->body, "$a");
    ASSERT_EQ(copy->argument_count, 2);
    EXPECT_STREQ(copy->argument_names[1], "b");
    EXPECT_EQ(copy->argument_names[2], nullptr);
    EXPECT_NE(copy->name, macro->name);
    EXPECT_NE(copy->body, macro->body);
    EXPECT_NE(copy->argument_names[1], macro->argument_names[1]);
    EXPECT_EQ(copy->next, nullptr);
}

TEST_F(MacroList, PrintShowsArgumentsAndBody) {
    const vorn::OwnedMacro macro(make("M", "$a-$b", {"a", "b"}));
    vorn::print_macro(*macro);
    EXPECT_EQ(messages(), "\n\tMACRO M: \n\t\tARG 0: a\n\t\tARG 1: b\n\tBODY: $a-$b ");
}

}  // namespace
