// One p-field statement: its head, the items of its data, its end.

#include "blocks/pfield.h"

#include <string>

#include "blocks/command_codes.h"
#include "blocks_fixture.h"
#include "output/tempo_map.h"

namespace vorn::test {
namespace {

class Pfield : public BlockTest {
protected:
    // A block of `count` events whose P2 has been read.
    void enter(int count, int pfields = 6) {
        reset_event_list();
        make_events(count, pfields);
        for (int& done : DID_P) done = 0;
        DID_P[2] = 1;
    }
    // A block of so many beats, or minus the number of events, before P2.
    void enter_before_p2(float length) {
        reset_event_list();
        MAX_PFIELDS = 6;
        ASSERT_TRUE(allocate_output_settings());
        for (int& done : DID_P) done = 0;
        ETIME = length;
        EVENTS = length < 0 ? static_cast<std::uint64_t>(-length) : 0;
    }
    // Reads one whole statement; "}" is added behind it.
    int read(const std::string& text) {
        feed(text + "}");
        return read_pfield_statement(reader);
    }
};

TEST_F(Pfield, IsPWithADigit) {
    EXPECT_TRUE(is_pfield("p4", 0));
    EXPECT_TRUE(is_pfield("60 p4", 3));
    EXPECT_FALSE(is_pfield("p 4", 0));
    EXPECT_FALSE(is_pfield("P4", 0));
    EXPECT_FALSE(is_pfield("pf(2)", 0));
    EXPECT_FALSE(is_pfield("p", 0));
    EXPECT_FALSE(is_pfield("", 0));
}

// --- the number ---

TEST_F(Pfield, NumberMustBeOneOfTheBlock) {
    enter(2);
    EXPECT_EQ(read("p7 60"), 44);
    EXPECT_EQ(rest(), " 60}");
    EXPECT_EQ(read("p128 60"), 44);
    EXPECT_EQ(read("p0 60"), 16);
    EXPECT_EQ(read("p1 60"), 16);
    EXPECT_EQ(read("p32768 60"), 16);
    EXPECT_EQ(rest(), "32768 60}");
    EXPECT_EQ(read("p6 60"), 0);
}

TEST_F(Pfield, LastPfieldOfTheLargestBlock) {
    enter(2, 128);
    EXPECT_EQ(read("p128 60"), 0);
    EXPECT_EQ(DID_P[128], 1);
    EXPECT_EQ(pfield(128), "60 60");
}

TEST_F(Pfield, P2FirstTheRestInAnyOrder) {
    enter_before_p2(2);
    EXPECT_EQ(read("p4 60"), 15);
    EXPECT_EQ(read("p3 1"), 15);
    EXPECT_EQ(read("p2 1"), 0);
    EXPECT_EQ(read("p4 60"), 0);
    EXPECT_EQ(read("p3 1"), 0);
    EXPECT_EQ(read("p3 1"), 70);
    EXPECT_EQ(read("p2 1"), 70);
}

TEST_F(Pfield, WithoutABlockThereIsNoPfield) { EXPECT_EQ(read("p2 1"), 44); }

TEST_F(Pfield, BehindABlockP2IsStillTheFirst) {
    enter_before_p2(2);
    free_output_settings();
    EXPECT_EQ(read("p4 60"), 15);
    EXPECT_EQ(read("p7 60"), 44);
    EXPECT_EQ(read("p2 1"), 44);
}

TEST_F(Pfield, OutOfBoundsIsFoundBeforeTheOrder) {
    enter_before_p2(2);
    EXPECT_EQ(read("p7 1"), 44);
}

TEST_F(Pfield, OpenLoopOfTheStatementBeforeIsTerminated) {
    enter(2);
    EXPECT_EQ(read("p4 <60 62 "), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(read("p5 1"), 0);
    EXPECT_EQ(messages(), "\n\nWARNING: Line 1:Previous loop terminated.\np5 1}\n^\n");
    EXPECT_EQ(read("p6 1"), 0);
    EXPECT_EQ(messages(), "");
}

TEST_F(Pfield, EventsIsTheNumberThatP2Made) {
    enter_before_p2(4);
    EXPECT_EQ(read("p2 1.5"), 0);
    EXPECT_EQ(EVENTS, 3U);
    EXPECT_EQ(read("p3 1"), 0);
    EXPECT_EQ(EVENTS, 3U);
}

// --- the state of a new statement ---

TEST_F(Pfield, NewStatementStartsAfresh) {
    enter(3);
    note_list->code = 1;
    vorn::event_codes_set = true;
    IN_TYPE = CODE_NO;
    OUT_TYPE = CODE_HZ;
    IS_FUSED = IN_LOOP = WROTE_DATA = 1;
    PFACTOR = 2;
    MAX_DEV = MAX_DEV2 = 0.5F;
    EVENT_NO = 9;
    NX = 1;
    STIME = 3;
    TEMPO = 99;
    P_NO = 4;
    reset_pfield();
    EXPECT_EQ(IN_TYPE, CODE_RE);
    EXPECT_EQ(OUT_TYPE, CODE_RE);
    EXPECT_EQ(IS_FUSED, 0);
    EXPECT_EQ(IN_LOOP, 0);
    EXPECT_EQ(WROTE_DATA, 0);
    EXPECT_EQ(PFACTOR, 1);
    EXPECT_EQ(MAX_DEV2, 0);
    EXPECT_EQ(EVENT_NO, 0);
    EXPECT_EQ(note_list->code, 0U);
    // What goes on beyond a statement:
    EXPECT_EQ(MAX_DEV, 0.5F);
    EXPECT_EQ(NX, 1);
    EXPECT_EQ(STIME, 3);
    EXPECT_EQ(TEMPO, 99);
}

TEST_F(Pfield, StartIsConvertedOnceByTheTempoAtItsBeat) {
    TEMPO_LIST[0] = {0, 60, 10, 240, 0, 1};
    STIME = SBEAT = 5;  // tempo 150 there
    P_NO = 2;
    reset_pfield();
    EXPECT_EQ(TEMPO, 150);
    EXPECT_EQ(CBEATS, 5);
    EXPECT_EQ(STIME, 2);
    P_NO = 3;
    reset_pfield();
    EXPECT_EQ(STIME, 2);
}

// --- the output specifier ---

struct Specifier {
    const char* text;
    int result;
};

TEST_F(Pfield, OutputSpecifiers) {
    constexpr Specifier SPECIFIERS[] = {
        {"p4(bn)60", CODE_BN}, {"p4(in)60", CODE_IN}, {"p4(db)60", CODE_DB},     {"p4(hz)60", CODE_HZ},
        {"p4(od)60", CODE_OD}, {"p4(op)60", CODE_OP}, {"p4(re)60", CODE_RE},     {"p4(tr)60", CODE_TR},
        {"p4(xx)60", CODE_XX}, {"p4(HZ)60", CODE_HZ}, {"p4 ( oD ) 60", CODE_OD}, {"p4 60", CODE_RE},
    };
    for (const Specifier& specifier : SPECIFIERS) {
        enter(2);
        EXPECT_EQ(read(specifier.text), 0) << specifier.text;
        EXPECT_EQ(OUTS[2], static_cast<std::uint32_t>(specifier.result)) << specifier.text;
        EXPECT_EQ(pfield(4), "60 60");
    }
}

TEST_F(Pfield, BadOutputSpecifiers) {
    constexpr Specifier SPECIFIERS[] = {
        {"p4(no)60", 17},   {"p4(rh)60", 17},   {"p4()60", 17},    {"p4(r", 17},      {"p4(re8)60", 17},
        {"p4(bn8)60", 17},  {"p4(re 60", 19},   {"p4(hz 60)", 19}, {"p4(hzx)60", 19}, {"p4(re 5)60", 19},
        {"p4(\nre)60", 17}, {"p4\n(re)60", 27}, {"p3(in)1", 18},   {"p3(xx)1", 18},   {"p3(op)1", 18},
    };
    for (const Specifier& specifier : SPECIFIERS) {
        enter(2);
        EXPECT_EQ(read(specifier.text), specifier.result) << specifier.text;
    }
}

TEST_F(Pfield, P2AndP3MayChooseTheirDecimals) {
    enter_before_p2(2);
    EXPECT_EQ(read("p2(re0) 1"), 0);
    EXPECT_EQ(read("p3(re7) 1"), 0);
    EXPECT_EQ(RE_FW[0], 0U);
    EXPECT_EQ(RE_FW[1], 7U);
    enter_before_p2(2);
    EXPECT_EQ(read("p2(hz) 1"), 18);
}

TEST_F(Pfield, DecimalsAreResetAtTheHead) {
    enter(2);
    RE_FW[2] = 6;
    EXPECT_EQ(read("p4 60"), 0);
    EXPECT_EQ(RE_FW[2], RE_FW_DEFAULT);
}

TEST_F(Pfield, DecimalsAreResetByAPlainReKeyword) {
    enter(2);
    EXPECT_EQ(read("p4(re5) 60"), 0);
    EXPECT_EQ(RE_FW[2], 5U);
    enter(2);
    EXPECT_EQ(read("p4(re5) re 60"), 0);
    EXPECT_EQ(RE_FW[2], RE_FW_DEFAULT);
    enter(2);
    EXPECT_EQ(read("p4 re5 60"), 0);
    EXPECT_EQ(RE_FW[2], 5U);
}

TEST_F(Pfield, OutputOpChangesNX) {
    enter(2);
    EXPECT_EQ(read("p4(opx) 60"), 0);
    EXPECT_EQ(NX, 1);
    EXPECT_EQ(read("p5(op) 60"), 0);
    EXPECT_EQ(NX, 0);
}

// --- items ---

TEST_F(Pfield, InputTypesOfP2) {
    for (const char* text : {"p2 re 1", "p2 rh 4", "p2 in 1", "p2 RE 1"}) {
        enter_before_p2(2);
        EXPECT_EQ(read(text), 0) << text;
        EXPECT_EQ(pfield(2), "0 1");
    }
    for (const char* text : {"p2 db 1", "p2 no c4", "p2 op 8.00"}) {
        enter_before_p2(2);
        EXPECT_EQ(read(text), 21) << text;
    }
}

TEST_F(Pfield, InputTypesOfP3) {
    for (const char* text : {"p3 re 1", "p3 in 1"}) {
        enter(2);
        EXPECT_EQ(read(text), 0) << text;
    }
    for (const char* text : {"p3 rh 4", "p3 db 1", "p3 no c4", "p3 opx 8.00"}) {
        enter(2);
        EXPECT_EQ(read(text), 26) << text;
    }
}

TEST_F(Pfield, InputTypeMayChangeOnTheWay) {
    enter(5);
    EXPECT_EQ(read("p4 1.5 in 1.5 no c4 op 8.07 re z"), 0);
    EXPECT_EQ(pfield(4), "1.5 2 48 55 55");
}

TEST_F(Pfield, ItemsGoOverLineEnds) {
    enter(4);
    EXPECT_EQ(read("p4\n\n60 ; first\n /* second\n */ 61\n\n\n62, 63\n\n"), 0);
    EXPECT_EQ(rest(), "}");
    EXPECT_EQ(pfield(4), "60 61 62 63");
    EXPECT_EQ(reader.line, 10U);
}

TEST_F(Pfield, EndsAtTheNextStatement) {
    enter(2);
    EXPECT_EQ(read("p4 60 61p5 1"), 0);
    EXPECT_EQ(rest(), "p5 1}");
}

TEST_F(Pfield, CommandsWithoutAHandlerAreRefused) {
    enter(2);
    EXPECT_EQ(read("p4 60 #x"), 20);
    EXPECT_EQ(read("p4 re8 60"), 20);
    EXPECT_EQ(read("p4 te(60)"), 27);
    EXPECT_EQ(read("p4 sr(60)"), 27);
    EXPECT_EQ(read("p4 od 8.00"), 27);
}

TEST_F(Pfield, SettingsInAStatement) {
    enter(2);
    EXPECT_EQ(read("p4 pf(2) 10 pf(3) 10"), 0);
    EXPECT_EQ(pfield(4), "20 30");
    EXPECT_EQ(read("p5 dv(.5) rd(.25) rs(3) 0"), 0);
    EXPECT_EQ(MAX_DEV, 0.25F);
    EXPECT_EQ(MAX_DEV2, 0.5F);
    enter_before_p2(2);
    EXPECT_EQ(read("p2 pf(2) 1"), 126);
}

TEST_F(Pfield, NoteNamesThatLookLikeFunctions) {
    enter(4);
    EXPECT_EQ(read("p4 no dx3"), 0);  // "x" has a number of its own
    EXPECT_EQ(pfield(4), "50 50 50 50");
    EXPECT_EQ(read("p5 no ex3"), 36);  // a function without its parenthesis
    EXPECT_EQ(read("p6 no e x3"), 0);
}

TEST_F(Pfield, RestsThatLookLikeCommands) {
    for (const char* text : {"p4 no rd4", "p4 no rs4"}) {
        enter(4);
        EXPECT_EQ(read(text), 96) << text;
    }
    enter(4);
    EXPECT_EQ(read("p4 no ra4"), 36);
    enter(4);
    EXPECT_EQ(read("p4 no re4 1"), 0);  // real input from here on
    EXPECT_EQ(pfield(4), "1 1 1 1");
    enter(4);
    EXPECT_EQ(read("p4 no rc4"), 0);
    EXPECT_EQ(pfield(4), "-1 48 48 48");
}

TEST_F(Pfield, DataMustBeginWithAValue) {
    enter(2);
    EXPECT_EQ(read("p4 , 60"), 73);
    EXPECT_EQ(read("p4\n/ 60"), 73);
    EXPECT_EQ(read("p4 no : c4"), 73);
    EXPECT_EQ(read("p4 <, 60>"), 73);
}

// --- loop marks ---

TEST_F(Pfield, LoopMarks) {
    EXPECT_FALSE(set_loop('>'));
    EXPECT_TRUE(set_loop('<'));
    EXPECT_EQ(IN_LOOP, 1);
    EXPECT_FALSE(set_loop('<'));
    EXPECT_TRUE(set_loop('>'));
    EXPECT_EQ(IN_LOOP, 0);
    IS_FUSED = 1;
    EXPECT_FALSE(set_loop('<'));
    IN_LOOP = 1;
    EXPECT_TRUE(set_loop('>'));
}

TEST_F(Pfield, MisplacedLoopMarksAreRefused) {
    for (const char* text : {"p4 60>", "p4 <60 <61", "p4 60:<61>", "p4 <60> >"}) {
        enter(4);
        EXPECT_EQ(read(text), 43) << text;
        IN_LOOP = 0;
    }
}

// --- the end ---

TEST_F(Pfield, BlankStatementIsSaidAndRefused) {
    enter(2);
    for (const char* text : {"p4", "p4 ; nothing\n", "p4 no <>", "p4 rd(.1)"}) {
        EXPECT_EQ(read(text), 999) << text;
        EXPECT_EQ(messages(), "\nERROR: P4 is blank ... OY!\n\n");
    }
}

TEST_F(Pfield, FullBlockWithoutAValueIsBlank) {
    enter_before_p2(0);
    EXPECT_EQ(read("p2 1"), 999);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time or i-events -- event(s) not added.\np2 1}\n   ^\n"
              "\nERROR: P2 is blank ... OY!\n\n");
}

TEST_F(Pfield, FullBlockSkipsToTheNextStatement) {
    enter(1);
    EXPECT_EQ(read("p4 60 61 } in a comment comes later\n"), 0);
    EXPECT_EQ(rest(), "} in a comment comes later");
    enter(1);
    EXPECT_EQ(read("p4 60 61 pf(2) ?! p ; p4 }\n /* p5 } */ >< p5 1"), 0);
    EXPECT_EQ(rest(), "p5 1}");
    EXPECT_EQ(reader.line, 2U);
}

TEST_F(Pfield, FullBlockSeesAPfieldInAnEquation) {
    enter(1);
    EXPECT_EQ(read("p5 60 61 ex(1 [p4 * 2])"), 0);
    EXPECT_EQ(rest(), "p4 * 2])}");
}

TEST_F(Pfield, LoopMarkThatIsSkippedStaysOpen) {
    enter(2);
    EXPECT_EQ(read("p4 <60 61 62>"), 0);
    EXPECT_EQ(IN_LOOP, 1);
}

TEST_F(Pfield, EndOfInputInAStatement) {
    for (const char* text :
         {"p4 60", "p4 60\n\n", "p4", "p4 60 ; }", "p4 60 /* }", "p4 60 61 62", "p4 60 61 62 /*"}) {
        enter(2);
        feed(text);
        EXPECT_EQ(read_pfield_statement(reader), 5) << text;
    }
}

TEST_F(Pfield, FusionReportOnlyInEventMode) {
    enter(2);
    EXPECT_EQ(read("p4 60:62 64"), 0);
    EXPECT_EQ(messages(), "\n\tP4: Fused data changed \"events\" from 2 to 3");
    EXPECT_EQ(read("p5 1"), 0);
    EXPECT_EQ(messages(), "");
    enter(2);
    EXPECT_EQ(read("p3 1:2"), 0);
    EXPECT_EQ(messages(), "\n\tP3: Fused data changed \"events\" from 2 to 3");
    enter_before_p2(2);
    EXPECT_EQ(read("p2 1"), 0);
    EXPECT_EQ(read("p4 60:62 64"), 0);
    EXPECT_EQ(EVENTS, 3U);
    EXPECT_EQ(messages(), "");
}

TEST_F(Pfield, ChordsOfOneStatementAreNotThoseOfTheNext) {
    enter(2);
    EXPECT_EQ(read("p4 60:64"), 0);
    EXPECT_EQ(events(4), "0 1 0 60, 0 1 1 64, 1 1 0 60, 1 1 1 64");
    EXPECT_EQ(read("p5 1 2"), 0);
    EXPECT_EQ(pfield(5), "1 2 2 2");
    EXPECT_EQ(events(3), "0 1 0, 0 1 0, 1 1 0, 1 1 0");
}

TEST_F(Pfield, LutIsTheListsCurrentNodeFromP3On) {
    enter(2);
    LUT = nullptr;
    EXPECT_EQ(read("p3 1"), 0);
    EXPECT_EQ(LUT, note_list);
}

}  // namespace
}  // namespace vorn::test
