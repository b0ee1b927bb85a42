#include "drawing/grammar.h"

#include <map>

// Values stay small, so that a score has a few hundred events: intervals of P2
// are a quarter of a beat or more, blocks end after 16 beats or 32 events, and
// one statement of a block may hold chords. What is drawn here without a mistake
// is converted with status 0; so no p-field divides, deviations stay below 2,
// and names of notes that could be letters of ranges and curves are left out.

namespace vorn::fuzz {

namespace {

using Rules = std::map<std::string_view, Productions>;

const Rules SCORES = {
    {"score", {"`block`", "`item``score`", "`item``score`", "`item``item``score`"}},
    {"item",
     {"`block`",
      "`block`",
      "`block`",
      "`block`",
      "`definition`",
      "`definition`",
      "`definition`",
      "`comment`",
      "`tempo`",
      "`tempo`",
      "`direct`",
      "rs(`seed`)\n",
      "rd(`deviation`) ; from here on\n",
      "sr(`rate`)\n",
      "rs ( `seed` ) rd(`deviation`)\n",
      "`condition item`",
      "`off`",
      "`include item`",
      "`include score`",
      " `call block`",
      "i-3 = 4 0 4 {\np2 1 ; all } this\n}\n",
      "\n"}},
    {"comment",
     {"; words\n", "/* words */\n", "/* words /* within words */\n; */\n", ";; $ ~ not read\n",
      "; `text`\n"}},
    {"text", {"f1 0 1024 10 1", "a > b", "} {", "0.5", ""}},
    {"direct", {"> `text`\n", ">\n", ">; `text`\n", "> `call number` ~@1\n", "> ~@2 ~@3 ~@4 `constant`\n"}},
    {"seed", {"1", "0", "5", "65535"}},
    {"deviation", {"0", ".1", ".5", "0.05", "1"}},
    {"rate", {"44100", "48000", "8000", "1"}},
    {"tempo", {"`counted_tempo tempo_line`"}},
    {"tempo_line",
     {"te(120)\n", "te(`tempo_value`)\n", "te(0 4 `tempo_value` `tempo_value`)\n",
      "TE(0, 8, `tempo_value`, `tempo_value` `curve`)\n", "te(4 4 `tempo_value` `tempo_value` `curve`)\n",
      "te(8.5 16 `tempo_value` `tempo_value` `curve`) ; later\n"}},
    {"tempo_value", {"60", "120", "90.5", "29", "301", "`constant_tempo`", "1000", "10"}},
    {"condition", {"#if(`true`)\n`?`#endif\n"}},
    {"true", {"1", "2.5", " 1 ", "`call number`", "~[1 + 1]", "~[3 * 2 - 5]", "001"}},
    {"off", {"#if(`false`)\n`unread`#endif\n"}},
    {"false", {"0", "0.0", " 0 ", "~[2 - 2]", "~[7 % 7]"}},
    {"unread",
     {"} nothing {\n", "i1 = 2 0 {\n`unread`", "#if(1)\n`unread`#endif\n", "; not an #endif\n",
      "/* nor\nthis #endif */\n", "p4 `value`\n", ""}},
};

const Rules DEFINITIONS = {
    {"definition", {"`macro`", "`macro`", "`const`"}},
    {"macro",
     {"#define `new number` #`positive`#`known`\n", "#define `new number` #`positive`# ; words`known`\n",
      "#define `new list`(a'b) #$a x2 $b#`known`\n",
      "#define `new list`(first, second) #`positive`// $first $second#`known`\n",
      "#define `new list`(a b) #<$b `call number` $a>#`known`\n",
      "#define `new part`(low) #ra(T 1 [$low 9])#`known`\n",
      "#define `new part`(low) #mo(-4 .5 e $low 9 .5 [1 $low] 2) se(-2 1 * [$low 2])#`known`\n",
      "#define `new block`(n'p) #i$n = 4 0 -4 {\np2 1 ; starts\np3 1\np4 $p\n}#`known`\n",
      "#define `new block`(n p) #i$n = 4, 1, 2 { p2 .5 p3 < 1 .5 > /* short */ p4 $p\n}#`known`\n",
      "`drop number`\n"}},
    {"const",
     {"#const `new constant` `positive``known`\n",
      "#const `new constant` ~[`first_term` `operation` `term`]`known`\n",
      "#const `new constant` ~[`first_term` `operation` `term` * `term` - @1]`known`\n"}},
    {"call_number", {"$`name`", "$`name` "}},
    {"no_number", {"1", "2"}},
    {"call_list", {"$`name`(`positive`'`positive`)", "$`name`(`positive`#`positive`)"}},
    {"no_list", {"1", "1 2"}},
    {"call_part", {"$`name`(`positive`)"}},
    {"no_part", {"ra(T 1 1)"}},
    {"call_block", {"$`name`(`instrument`'60 62)`counted_block 3`\n"}},
    {"no_block", {"\n"}},
    {"call_constant", {"~`name`", "~[`name` `operation` `term`]", "~[@1 + @2 `operation` `name`]"}},
    {"no_constant", {"1", "~[`first_term` `operation` `term`]"}},
    {"call_term", {"`name`"}},
    {"no_term", {"?"}},
    {"constant", {"`call constant`"}},
    {"constant_tempo", {"~[50 + 25]", "~[240 / 4]"}},
    {"first_term", {"2", "0.5", "`call_as term constant`", "12"}},
    {"term", {"2", "0.5", "`call_as term constant`", "-1", "12"}},
    {"operation", {"+", "-", "*", "/ 4 +", "% 5 -"}},
};

const Rules BLOCKS = {
    {"block",
     {"`new_block`i`instrument` = `count``part``start``part``length` "
      "{`settings_before`\n`starts``statements`}`"
      "end_block`\n",
      "`new_block`i`instrument`=`count` `start`,`length`{`settings_before`\n`starts``statements` } "
      "skipped`end_block`"
      "\n"}},
    {"instrument", {"1", "2", "10", "32767"}},
    {"part", {" ", ", ", ",", " /* words */ ", "\n"}},
    {"start", {"0", "1", "4", "2.5", "12", "0.125"}},
    {"beats", {"4", "1", "8", "2.5", "16", "0.1"}},
    {"events", {"-8", "-1", "-3", "-16", "-32"}},
    {"settings_before", {"", "", " rd(`deviation`)", " ; words", " rs(`seed`) rd(0)", "/* words */"}},
    {"starts",
     {"`statement_of 2`p2 `list`\n", "`statement_of 2`p2(re`digit`) `list`\n",
      "`statement_of 2`p2 `setting` `list`\n", "`statement_of 2`p2 `type_of p2_rhythm rh` `list`\n",
      "`statement_of 2`p2 `type_of p2_whole in` `list`\n", "`statement_of 2`p2 `p2_0`\n"}},
    {"durations",
     {"p3 `list`\n", "p3 `ex` `list`\n", "p3 `ex`\n", "p3(re`digit`) `list`\n", "p3 `setting` `list`\n",
      "p3 `setting` pf(`factor`) `list`\n", "p3 `type_of p3_whole in` `list`\n", "p3 1000.5\n",
      "p3 400.5 401\n"}},
    {"values",
     {"p`number``output` `list`\n", "p`number``output` `input` `list`\n", "p`number``output` `ex` `list`\n",
      "p`number``output` `input` `ex`\n", "p`number``output` `input` `list`\n",
      "p`number``output` `setting` `list`\n",
      "p`number``output` pf(`factor`) `input` `list` `input` `list`\n",
      "p`number``output` `list` `setting` `list`\n", "p`number` `call list`\n", "p`number` `call part`\n"}},
    {"setting", {"dv(`deviation`)", "rd(`deviation`)", "rs(`seed`)", "DV ( .2 )", "rs(3) dv(.25)"}},
    {"factor", {"1", ".5", "2", "-1", "0"}},
    {"digit", {"", "0", "3", "7"}},
    {"output",
     {"", "(re`digit`)", "(in)", "(op)", "(od)", "(hz)", "(bn`digit`)", "(tr)", "(db)", "( re )",
      "(xx)`hidden`", "(HZ)"}},
    {"input",
     {"`type_of re re`", "`type_of re re`", "`type_of re re5`", "`type_of note no`", "`type_of quarter nox`",
      "`type_of octave op`", "`type_of octave opx`", "`type_of rhythm rh`", "`type_of whole in`",
      "`type_of decibel db`", "`type_of note NO`"}},
};

const Rules LISTS = {
    {"list",
     {"`element`", "`element` `list`", "`element` `list`", "`value``comma_or_tie` `list`", "`loop`",
      "`loop` `list`", "`element` `comment``list`", "`element`\n`list`", "`element`\n`list_lines`\n"}},
    {"list_lines", {"`value`", "`condition list_line`", "`off`", "`include list_line`"}},
    {"list_line", {"`element` `value`\n", "`value`\n"}},
    {"loop", {"< `flat` >", "<`flat`>"}},
    {"flat", {"`element`", "`element` `flat`", "`element` `flat`", "`element`\n`flat`"}},
    {"element",
     {"`value`", "`value`", "`value``repeat`", "`value``joint``value`",
      "`value``joint``value``joint``value``repeat`", "`value``joint``generator`", "`generator`",
      "`generator`", "`generator`"}},
    {"repeat", {"/", "//", " x3", " x2", "///", " x0", " x1"}},
    {"p2", {"1", ".5", ".25", "1.5", "2", "1", "`rest`"}},
    {"p2_0", {"1", "`zero`"}},
    {"p2_rhythm", {"4", "8", "8.", "2", "12", "1", "16"}},
    {"p2_whole", {"1", "2", "3", "+1"}},
    {"p3", {"1", ".5", "200.25", "300.25", "402", "1002", "-1", "-201", "1.5", "0", "1000.5", "-402", "399"}},
    {"p3_whole", {"1", "2", "401", "1001", "-1"}},
    {"re",
     {"1", "60", ".5", "-2.25", "0", "1000", "+3", "`last`", "`call number`", "`constant`", "0.0001",
      "100000", "-1", "7.", "~@3"}},
    {"note", {"c4", "d", "a3", "cs5", "ef3", "dn", "r", "a", "es", "cff0", "ass9"}},
    {"quarter", {"c4", "d-", "a3", "c+5", "e-3", "dn+", "r", "a++", "es-", "cff+0", "ass9"}},
    {"octave", {"8.00", "8.07", "7.11", "9.5", "0.00", "10.00"}},
    {"rhythm", {"4", "8", "8.", "16", "2..", "12", "4", "1"}},
    {"whole", {"1", "2.5", "-3", "+7", "0", "12.4999"}},
    {"decibel", {"60", "0", "96", "74.9", "1"}},
    {"positive", {"1", "2", "4.5", "60", "3"}},
};

const Rules GENERATORS = {
    {"generator_form",
     {"ho(`time` `value`)", "ra(`time` `weighted range`)", "rw(`time` `weighted walk`)",
      "mo(`time` `weighted motion`)", "se(`time` `weighted set`)", "ms(`time` `weighted change`)",
      "`above 3 s2`", "RA(`time`, `weighted range` )"}},
    {"s2", {"s2(`time` `weighted chords`)"}},
    {"ex", {"ex(`time` `weighted equation`)", "dx(`time` `weighted equation`)"}},
    {"time_words", {"-4", "-1", "T", "T*.5", "2", "4", "T*.25", "-8", "T*1", ".5"}},
    {"weighted",
     {"1 `?`", ".5 `?` .5 `?`", ".25 `?` .75 `?`", ".2 `?` .3 `?` .5 `?`", "1.0 `?`", "0 `?` 1 `?`"}},
    {"range",
     {"`value`", "[f `value`]", "[`distribution` `value` `value`]", "[`distribution` `value` `value` ]"}},
    {"distribution", {"f", "l", "h", "t", "g", "x", "b", "T"}},
    {"motion", {"`curve``star` `range` `range`"}},
    {"curve", {"f", "e", "l", "v2", "v.5", "s", "c", "E"}},
    {"mark", {"", "* ", "x "}},
    {"set", {"`mark`[`elements`]"}},
    {"elements", {"`value`", "`value` `elements`", "`value` `elements`"}},
    {"change", {"`curve``star` [`elements`] [`elements`]", "`curve` `value` [`elements`]"}},
    {"chords", {"`mark`[`chord_elements`]"}},
    {"chord_elements",
     {"`value`", "`value` `chord_elements`", "`value_without_blank``joint``value` `chord_elements`"}},
    {"equation",
     {"`pfield`", "[`pfield` + `positive`]", "I[`pfield` / 3]", "[`pfield` * 2 - `pfield`]",
      "f[`pfield` % 7 + -1]", "[2 - `pfield`]", "i[`pfield`+`pfield`/.25]"}},
    {"walk_p2", {"[.25 1] .5 .5", ".5 2 .1 1"}},
    {"walk_p2_rhythm", {"[4 8] .5 4"}},
    {"walk_p2_whole", {"[1 3] .5 2"}},
    {"walk_p3", {"[.5 1.5] .1 1", "[401 402] 1 401.5"}},
    {"walk_p3_whole", {"[1 3] .5 2"}},
    {"walk_re", {"[0 10] .5 5", "1 2 0 1.5", "[-1 1] 1 -1", "[60 72] .2 72"}},
    {"walk_note", {"[c3 c5] .2 c4", "c4 d5 1 d4"}},
    {"walk_quarter", {"[c+3 c5] .2 c-4", "c4 d+5 1 d+4"}},
    {"walk_octave", {"[8.00 9.00] .2 8.07"}},
    {"walk_rhythm", {"[4 8] .5 4"}},
    {"walk_whole", {"[1 9] .5 3"}},
    {"walk_decibel", {"[40 80] .3 60"}},
};

constexpr const Rules* PARTS[] = {&SCORES, &DEFINITIONS, &BLOCKS, &LISTS, &GENERATORS};

}  // namespace

const Productions* find_rule(std::string_view name) {
    for (const Rules* rules : PARTS) {
        const auto found = rules->find(name);
        if (found != rules->end()) return &found->second;
    }
    return nullptr;
}

std::string grammar_text() {
    std::string text;
    for (const Rules* rules : PARTS) {
        for (const auto& [name, productions] : *rules) {
            for (const std::string_view production : productions) text += std::string(production) + '\n';
        }
    }
    return text;
}

}  // namespace vorn::fuzz
