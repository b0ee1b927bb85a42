#include "kit/vary/sheet.h"

#include <gtest/gtest.h>

#include "kit/vary/workflow.h"

namespace vorn::kit {
namespace {

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

VariantRecord variant(unsigned number, const std::string& score) {
    VariantRecord record;
    record.number = number;
    record.value = std::to_string(number);
    record.key = "k";
    record.score = score;
    record.events = 3;
    record.seconds = 65;
    record.low = 60;
    record.high = 72;
    return record;
}

TEST(Record, ComesBackAsItWent) {
    VariantRecord record = variant(17, "s");
    record.state = VariantState::SILENT;
    record.message = "a \"quoted\" \xff word";
    record.has_sound = true;
    const std::optional<VariantRecord> again = read_record(record_text(record));
    ASSERT_TRUE(again);
    EXPECT_EQ(again->number, 17U);
    EXPECT_EQ(again->state, VariantState::SILENT);
    EXPECT_EQ(again->message, "a \"quoted\" \xef\xbf\xbd word");
    EXPECT_EQ(again->seconds, 65);
    EXPECT_TRUE(again->has_sound);
    EXPECT_EQ(record_text(*again), record_text(record));
}

TEST(Record, OtherTextsAreNone) {
    for (const char* const text :
         {"", "{", "[]", "3", "{}", "{\"state\":\"odd\"}", "{\"state\":\"well\",\"number\":-1}"}) {
        EXPECT_FALSE(read_record(text)) << text;
    }
    EXPECT_TRUE(read_record("{\"state\":\"well\",\"number\":\"seven\"}"));
}

TEST(Sheet, EachVariantHasItsTile) {
    VariantRecord higher = variant(3, "c");
    higher.low = 66;
    higher.high = 84;
    higher.seconds = 130;
    higher.has_sound = true;
    const std::string page = sheet_page({"piece.vorn",
                                         "seed",
                                         "vornkit vary piece.vorn --keep ",
                                         {variant(1, "a"), variant(2, "a"), higher}});
    EXPECT_TRUE(has(page, "3 variants by seed"));
    EXPECT_TRUE(has(page, "data-number=\"3\""));
    EXPECT_TRUE(has(page, "same as 1"));
    EXPECT_TRUE(has(page, "3 events, 1:05"));
    EXPECT_TRUE(has(page, "data-command=\"vornkit vary piece.vorn --keep \""));
    // Keys 60 to 84 are the height that all share, 130 seconds the width.
    EXPECT_TRUE(has(page, "style=\"width:50.00%;top:50.00%;height:50.00%\"")) << page;
    EXPECT_TRUE(has(page, "style=\"width:100.00%;top:0.00%;height:75.00%\""));
    EXPECT_TRUE(has(page, "data-sound=\"variants/3/sound.flac\""));
}

TEST(Sheet, AsksNobodyElse) {
    const std::string page = sheet_page({"p", "seed", "", {variant(1, "a")}});
    EXPECT_FALSE(has(page, "http://"));
    EXPECT_FALSE(has(page, "https://"));
    EXPECT_FALSE(has(page, "@import"));
    EXPECT_TRUE(has(page, "prefers-color-scheme: dark"));
}

TEST(Sheet, NamesAndMessagesAreTextAndNoMarkup) {
    VariantRecord refused = variant(2, "b");
    refused.state = VariantState::REFUSED;
    refused.message = "<script>\"&'";
    const std::string page =
        sheet_page({"a<b>&\"c\".vorn", "X", "vary 'a<b>' --keep ", {variant(1, "a"), refused}});
    EXPECT_TRUE(has(page, "<h1>a&lt;b&gt;&amp;&quot;c&quot;.vorn</h1>"));
    EXPECT_TRUE(has(page, "&lt;script&gt;&quot;&amp;&#39;"));
    EXPECT_TRUE(has(page, "2 variants by X, 1 refused"));
    EXPECT_FALSE(has(page, "data-number=\"2\""));
}

TEST(Sheet, NoVariantIsAPageToo) { EXPECT_TRUE(has(sheet_page({"p", "seed", "", {}}), "0 variants")); }

TEST(Workflow, NamesAreInTheSettingsAlone) {
    Workflow workflow;
    workflow.folder = "var iants";
    workflow.inputs = {"l'été \"1\".vorn"};
    workflow.arguments = {"vary", "l'été \"1\".vorn"};
    workflow.count = 3;
    EXPECT_EQ(workflow_hindrance(workflow), "");
    EXPECT_TRUE(has(workflow_settings(workflow), "\"l'été \\\"1\\\".vorn\""));
    EXPECT_TRUE(has(workflow_settings(workflow), "\"count\": 3"));
}

TEST(Workflow, NamesThatCannotStandThereAreTold) {
    Workflow workflow;
    workflow.folder = "a{b}";
    EXPECT_TRUE(has(workflow_hindrance(workflow), "pattern"));
    workflow.folder = "a";
    workflow.inputs = {"\xff.vorn"};
    EXPECT_TRUE(has(workflow_hindrance(workflow), "is not UTF-8"));
}

}  // namespace
}  // namespace vorn::kit
