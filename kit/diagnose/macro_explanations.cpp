#include "kit/diagnose/explanation_tables.h"

// What goes wrong where macros are defined and called.

namespace vorn::kit {

namespace {

constexpr Explanation TABLE[] = {
    {.code = "E8",
     .cause = "The body of a macro stands between two `#`, and the second one is missing. "
              "Everything up to the end of the score was then taken for the body.",
     .cure = "Write a `#` where the body ends.",
     .score = R"(#define RIFF #60 62 64
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $RIFF }
)",
     .cured = R"(#define RIFF #60 62 64#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $RIFF }
)"},
    {.code = "E80",
     .cause = "A line that begins with `#` defines something or sets a condition, and the word behind this "
              "`#` is none that Vorn knows. Or no blank follows the word.",
     .cure = "Write `#define`, `#undef`, `#const`, `#include`, `#if` or `#endif`. "
             "A comment begins with `;`.",
     .score = R"(# my first piece
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(; my first piece
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
    {.code = "E81",
     .cause = "The body of a macro stands between two `#`. "
              "Behind the name something else begins. "
              "With a blank before the `(`, the arguments are taken for the body.",
     .cure = "Write `#define ROOT #60#`, or `#define PAIR(a'b) #$a $b#` with the `(` directly behind the "
             "name.",
     .score = R"(#define ROOT 60
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $ROOT }
)",
     .cured = R"(#define ROOT #60#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $ROOT }
)"},
    {.code = "E82",
     .cause = "The call gives more arguments than the macro has. "
              "In a call `'` parts the arguments.",
     .cure = "Give as many arguments as the definition names.",
     .score = R"(#define UP(a) #$a 72#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $UP(60'64) }
)",
     .cured = R"(#define UP(a) #$a 72#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $UP(60) }
)"},
    {.code = "E84",
     .cause = "A macro with this name exists already, or one of its arguments is named twice. "
              "Perhaps a file is included twice.",
     .cure = "Choose another name, or free this one with `#undef` first.",
     .score = R"(#define ROOT #60#
#define ROOT #62#
i1 = 4, 0, 4 { p2 1  p3 1  p4 $ROOT }
)",
     .cured = R"(#define ROOT #60#
#undef ROOT
#define ROOT #62#
i1 = 4, 0, 4 { p2 1  p3 1  p4 $ROOT }
)"},
    {.code = "E85",
     .cause = "The macro has arguments, and it is called without any.",
     .cure = "Write the arguments in parentheses behind the name: `$UP(60)`, on the same line.",
     .score = R"(#define UP(a) #$a 72#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $UP }
)",
     .cured = R"(#define UP(a) #$a 72#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $UP(60) }
)"},
    {.code = "E86",
     .cause = "The call gives fewer arguments than the macro has, or it is not closed on its line. "
              "Arguments of a call are parted by `'`; a comma belongs to an argument.",
     .cure = "Write `'` between the arguments: `$PAIR(60'64)`.",
     .score = R"(#define PAIR(a'b) #$a $b#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $PAIR(60, 64) }
)",
     .cured = R"(#define PAIR(a'b) #$a $b#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $PAIR(60'64) }
)"},
    {.code = "E87",
     .cause = "A macro has 128 arguments at most, and the definition names more. "
              "Perhaps its `)` is missing.",
     .cure = "Close the list of arguments, or divide the macro.",
     .score =
         R"(#define MANY(a1 a2 a3 a4 a5 a6 a7 a8 a9 a10 a11 a12 a13 a14 a15 a16 a17 a18 a19 a20 a21 a22 a23 a24 a25 a26 a27 a28 a29 a30 a31 a32 a33 a34 a35 a36 a37 a38 a39 a40 a41 a42 a43 a44 a45 a46 a47 a48 a49 a50 a51 a52 a53 a54 a55 a56 a57 a58 a59 a60 a61 a62 a63 a64 a65 a66 a67 a68 a69 a70 a71 a72 a73 a74 a75 a76 a77 a78 a79 a80 a81 a82 a83 a84 a85 a86 a87 a88 a89 a90 a91 a92 a93 a94 a95 a96 a97 a98 a99 a100 a101 a102 a103 a104 a105 a106 a107 a108 a109 a110 a111 a112 a113 a114 a115 a116 a117 a118 a119 a120 a121 a122 a123 a124 a125 a126 a127 a128 a129) #$a1#
)",
     .cured =
         R"(#define MANY(a1 a2 a3 a4 a5 a6 a7 a8 a9 a10 a11 a12 a13 a14 a15 a16 a17 a18 a19 a20 a21 a22 a23 a24 a25 a26 a27 a28 a29 a30 a31 a32 a33 a34 a35 a36 a37 a38 a39 a40 a41 a42 a43 a44 a45 a46 a47 a48 a49 a50 a51 a52 a53 a54 a55 a56 a57 a58 a59 a60 a61 a62 a63 a64) #$a1#
#define MORE(a65 a66 a67 a68 a69 a70 a71 a72 a73 a74 a75 a76 a77 a78 a79 a80 a81 a82 a83 a84 a85 a86 a87 a88 a89 a90 a91 a92 a93 a94 a95 a96 a97 a98 a99 a100 a101 a102 a103 a104 a105 a106 a107 a108 a109 a110 a111 a112 a113 a114 a115 a116 a117 a118 a119 a120 a121 a122 a123 a124 a125 a126 a127 a128 a129) #$a65#
)"},
    {.code = "E88",
     .cause = "The name of a macro or of an argument begins with a letter. "
              "Here another character comes first, or the parentheses of the arguments are empty.",
     .cure = "Choose a name that begins with a letter; digits and `_` may follow. "
             "A macro without arguments has no parentheses.",
     .score = R"(#define 2nd #62#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $2nd }
)",
     .cured = R"(#define second #62#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $second }
)"},
    {.code = "E89",
     .cause = "What the macros put into this line does not end, or makes the line longer than 4095 "
              "characters. Mostly a macro calls itself, directly or by way of another one.",
     .cure = "Break the circle. Divide what is merely too long over several lines.",
     .score = R"(#define A #60 $A#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $A }
)",
     .cured = R"(#define A #60 62#
i1 = 4, 0, 4 {
p2 1  p3 1  p4 $A }
)"},
    {.code = "E91",
     .cause = "`#undef` frees the name of a macro, and no macro has been defined so far.",
     .cure = "Move the `#undef` behind the definition, or leave it out.",
     .score = R"(#undef ROOT
i1 = 3, 0, 4 {
p2 1  p3 1 }
)",
     .cured = R"(#define ROOT #60#
#undef ROOT
i1 = 3, 0, 4 {
p2 1  p3 1 }
)"},
};

}  // namespace

ExplanationTable macro_explanations() { return TABLE; }

}  // namespace vorn::kit
