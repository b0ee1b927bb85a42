#pragma once

namespace vorn {

// One numbering for global commands, block commands, data-defining functions,
// input types and output types.
enum CommandCode : int {
    NO_COMMAND = -1,
    CODE_EX = 0,
    CODE_TE = 1,
    CODE_DB = 2,
    CODE_DV = 3,
    CODE_HZ = 4,
    CODE_HO = 5,
    CODE_IN = 6,
    CODE_MO = 7,
    CODE_SE = 9,
    CODE_NO = 10,
    CODE_OP = 11,
    CODE_PF = 12,
    CODE_OD = 13,
    CODE_RE = 14,
    CODE_RH = 15,
    CODE_RA = 16,
    CODE_RD = 17,
    CODE_RS = 18,
    CODE_RW = 19,
    CODE_DIRECT = 20,  // ">"
    CODE_MACRO = 21,   // "#", not followed by "c"
    CODE_MS = 22,
    CODE_XX = 23,
    CODE_S2 = 24,
    CODE_CONST = 25,  // "#" directly followed by "c"
    CODE_TR = 26,
    CODE_BN = 27,
    CODE_SR = 28,
};

}  // namespace vorn
