#include "blocks/statement_commands.h"

#include "blocks/command_codes.h"
#include "blocks/settings.h"
#include "generators/ddf.h"
#include "input/errors.h"

// From a command code to its handler inside a p-field statement.

namespace vorn {

int do_commands(int code, Reader& reader, Statement& statement) {
    switch (code) {
        case CODE_RA:
            return do_DDF(DdfKind::RA, reader, statement);
        case CODE_RW:
            return do_DDF(DdfKind::RW, reader, statement);
        case CODE_MO:
            return do_DDF(DdfKind::MO, reader, statement);
        case CODE_SE:
            return do_DDF(DdfKind::SE, reader, statement);
        case CODE_EX:
            return do_DDF(DdfKind::EX, reader, statement);
        case CODE_MS:
            return do_DDF(DdfKind::MS, reader, statement);
        case CODE_HO:
            return do_DDF(DdfKind::HO, reader, statement);
        case CODE_S2:
            return do_S2(reader, statement);
        case CODE_DV:
            return set_rand_dev2(reader);
        case CODE_PF:
            return set_pfactor(reader);
        case CODE_RD:
            return set_rand_dev(reader);
        case CODE_RS:
            return set_rand_seed(reader);
        case CODE_SR:
            return set_samp_rate(reader);
        default:
            return error::INVALID_COMMAND;
    }
}

}  // namespace vorn
