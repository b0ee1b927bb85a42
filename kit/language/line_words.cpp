#include "kit/language/word_tables.h"

// What stands between the blocks, or may stand anywhere.

namespace vorn::kit {

namespace {

constexpr WordRow ROWS[] = {
    {WordKind::GLOBAL_COMMAND, ">", "> text", "Writes the rest of the line to the Csound score as it is.",
     "> f1 0 4096 10 1"},

    {WordKind::DIRECTIVE, "#include", "#include |file|", "The text of another file in this place.",
     "#include |part.vorn|"},
    {WordKind::DIRECTIVE, "#define", "#define NAME(a'b) #body#",
     "A macro; $a and $b in its body stand for the arguments of a call.", "#define LOUD(a) #> $a#\n$LOUD(1)"},
    {WordKind::DIRECTIVE, "#undef", "#undef NAME", "Forgets a macro, so that its name is free.",
     "#define LOUD #1#\n#undef LOUD"},
    {WordKind::DIRECTIVE, "#const", "#const NAME value", "A constant: a number, or an equation in ~[...].",
     "#const BAR ~[60 / 4]"},
    {WordKind::DIRECTIVE, "#if", "#if(value)", "The lines up to #endif are read when the value is not 0.",
     "#if(1)\nte(90)\n#endif"},
    {WordKind::DIRECTIVE, "#endif", "#endif", "Ends what #if began; alone on its line.",
     "#if(1)\nte(90)\n#endif"},

    {WordKind::REFERENCE, "$", "$NAME | $NAME(first'second)", "The text of a macro.",
     "#define PULSE #90#\nte($PULSE)"},
    {WordKind::REFERENCE, "~", "~NAME", "The value of a constant, with three decimals.",
     "#const PULSE 90\nte(~PULSE)"},
    {WordKind::REFERENCE, "~[", "~[equation]", "The value of an equation of numbers and constants.",
     "te(~[60 * 1.5])"},
    {WordKind::REFERENCE, "~@1", "~@1", "Duration of the last block in seconds.", "> ~@1"},
    {WordKind::REFERENCE, "~@2", "~@2", "The latest end of any block so far in seconds.", "> ~@2"},
    {WordKind::REFERENCE, "~@3", "~@3", "Duration of the last block in beats.", "> ~@3"},
    {WordKind::REFERENCE, "~@4", "~@4", "The latest end of any block so far in beats.", "> ~@4"},

    {WordKind::COMMENT, ";", "; text", "A comment to the end of the line.", "; quiet here"},
    {WordKind::COMMENT, "/*", "/* text */", "A comment that ends with */ and may hold others.",
     "/* quiet /* here */ */"},
    {WordKind::COMMENT, "*/", "/* text */", "Ends a comment that /* began.", "/* quiet */"},

    {WordKind::BLOCK, "i", "i<instrument> = <p-fields>, <start>, <length> { ... }",
     "An instrument block; a length of -12 is 12 events. A minus before the instrument takes it out.",
     "i2 = 3, 0, 4 { p2 1 p3 1 }"},
    {WordKind::BLOCK, "p", "p<number>[(output)] value ...",
     "The values of a p-field: p2 starts, p3 durations, from p4 on the orchestra's.",
     "i2 = 3, 0, 4 { p2 1 p3 1 }"},
    {WordKind::BLOCK, "=", "i<instrument> = <p-fields>", "Behind the instrument of a block.",
     "i2 = 3, 0, 4 { p2 1 p3 1 }"},
    {WordKind::BLOCK, "{", "{ p2 ... p3 ... }", "Begins the statements of a block.",
     "i2 = 3, 0, 4 { p2 1 p3 1 }"},
    {WordKind::BLOCK, "}", "{ p2 ... p3 ... }", "Ends a block; nothing should follow on its line.",
     "i2 = 3, 0, 4 { p2 1 p3 1 }"},
};

}  // namespace

std::span<const WordRow> line_rows() { return ROWS; }

}  // namespace vorn::kit
